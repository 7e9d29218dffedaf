// SPDX-License-Identifier: MIT
#include "tests/support/Memory.h"
#include "tests/support/TestCase.h"
#include "tests/support/fake/FakeModule.h"

namespace {

//! A little more than an entry needs, in bytes: four widgets with a style sheet each, which Qt parses for
//! each.
constexpr qint64 mostOfAnEntry = 40000;

struct Growth
{
    qint64 ofFirstHalf = 0;
    qint64 ofSecondHalf = 0;
    qint64 left = 0; //!< not freed by the module
};

Growth growthOf(int recent, int documents)
{
    QStringList paths;
    for (int i = 1; i <= recent; ++i)
        paths.append(QString("/home/user/drawings/of a project/plan %1.dwg").arg(i));
    FakeModule inHost;
    inHost.host.setRecent(paths);
    const auto costOf = [&inHost](int count) {
        const qint64 before = memory::allocated();
        for (int i = 0; i < count; ++i)
            inHost.documentReactor().DocumentCreated(nullptr);
        drainEvents();
        return memory::allocated() - before;
    };
    costOf(1); // style sheets and icons are kept once
    const qint64 before = memory::allocated();
    Growth growth{costOf(documents / 2), costOf(documents / 2)};
    inHost.end();
    drainEvents();
    growth.left = memory::allocated() - before;
    return growth;
}

} // namespace

//! The memory of each new drawing: a hidden menu with an entry for each recent drawing, kept until the module
//! is unloaded.
class tst_DocumentGrowth : public TestCase
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        growthOf(3, 10); // objects that Qt creates at first use
    }

    void eachDocumentCostsTheSame()
    {
        for (const int recent : {10, 50}) {
            const int documents = memory::rounds(1000);
            const Growth growth = growthOf(recent, documents);
            const qint64 all = growth.ofFirstHalf + growth.ofSecondHalf;
            memory::print("a document", all / documents);
            memory::print("a document of the first half", growth.ofFirstHalf / (documents / 2));
            memory::print("a document of the second half", growth.ofSecondHalf / (documents / 2));
            memory::print("not freed after the module is unloaded", growth.left);
            if (!memory::isMeasurable)
                continue;
            QVERIFY(all / documents < recent * mostOfAnEntry);
            QVERIFY(growth.ofSecondHalf < growth.ofFirstHalf * 11 / 10);
            QVERIFY(growth.left < all / 100);
        }
    }
};

TEST_CLASS(tst_DocumentGrowth);
#include "tst_documentgrowth.moc"

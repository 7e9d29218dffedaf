// SPDX-License-Identifier: MIT
#include "tests/support/Memory.h"
#include "tests/support/ModuleInHost.h"
#include "tests/support/TestCase.h"

//! What each new drawing costs: a hidden menu with an entry for each recent drawing, until the module goes.
class tst_DocumentGrowth : public TestCase
{
    Q_OBJECT

private slots:
    void initTestCase();

    void eachDocumentCostsTheSame_data();
    void eachDocumentCostsTheSame();
};

namespace {

//! A little more than an entry costs, in bytes: four widgets with a style sheet each, which Qt reads for each
//! anew.
constexpr qint64 mostOfAnEntry = 40000;

struct Growth
{
    qint64 before = 0;
    qint64 firstHalf = 0;
    qint64 secondHalf = 0;
    qint64 after = 0; //!< what the module does not give back
};

Growth growthOf(int recent, int documents)
{
    Growth growth;
    QStringList paths;
    for (int i = 1; i <= recent; ++i)
        paths.append(QStringLiteral("/home/somebody/drawings/of a project/plan %1.dwg").arg(i));
    ModuleInHost inHost;
    inHost.host.setRecent(paths);
    const auto create = [&](int count) {
        for (int i = 0; i < count; ++i)
            inHost.documentReactor().DocumentCreated(nullptr);
        drainEvents();
    };
    create(1); // style sheets and icons are kept once
    inHost.host.calls.clear();
    growth.before = memory::allocated();
    create(documents / 2);
    growth.firstHalf = memory::allocated() - growth.before;
    create(documents - documents / 2);
    growth.secondHalf = memory::allocated() - growth.before - growth.firstHalf;
    inHost.end();
    drainEvents();
    growth.after = memory::allocated() - growth.before;
    return growth;
}

} // namespace

void tst_DocumentGrowth::initTestCase()
{
    growthOf(3, 10); // what Qt makes when it is first used
}

void tst_DocumentGrowth::eachDocumentCostsTheSame_data()
{
    QTest::addColumn<int>("recent");
    QTest::newRow("10 recent documents") << 10;
    QTest::newRow("50 recent documents") << 50;
}

void tst_DocumentGrowth::eachDocumentCostsTheSame()
{
    QFETCH(int, recent);
    const int documents = memory::rounds(1000);
    const Growth growth = growthOf(recent, documents);
    const qint64 all = growth.firstHalf + growth.secondHalf;
    memory::tell("a document", all / documents);
    memory::tell("a document of the first half", growth.firstHalf / (documents / 2));
    memory::tell("a document of the second half", growth.secondHalf / (documents / 2));
    memory::tell("left of all when the module is gone", growth.after);
    if (!memory::isMeasurable)
        return;
    QVERIFY(all / documents < recent * mostOfAnEntry);
    QVERIFY(growth.secondHalf < growth.firstHalf * 11 / 10);
    QVERIFY(growth.after < all / 100);
}

QTEST_MAIN(tst_DocumentGrowth)
#include "tst_documentgrowth.moc"

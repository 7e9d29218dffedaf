// SPDX-License-Identifier: MIT
#include "host/runtime/recent/RecentFiles.h"
#include "tests/support/TestCase.h"

#include <QSignalSpy>

using fxhost::RecentFiles;

namespace {

QStringList numbered(int first, int last)
{
    QStringList paths;
    const int step = first <= last ? 1 : -1;
    for (int i = first; i != last + step; i += step)
        paths.append(QString("/drawings/%1.dwg").arg(i));
    return paths;
}

} // namespace

class tst_RecentFiles : public TestCase
{
    Q_OBJECT

private slots:
    void whatIsAddedComesFirst_data()
    {
        QTest::addColumn<QStringList>("listed");
        QTest::addColumn<QString>("path");
        QTest::addColumn<QStringList>("after");
        const QStringList a("/a");
        QTest::newRow("to an empty list") << QStringList() << "/a" << a;
        QTest::newRow("another") << a << "/b" << QStringList({"/b", "/a"});
        QTest::newRow("of another case") << a << "/A" << QStringList({"/A", "/a"});
        QTest::newRow("with other separators") << a << "//a" << QStringList({"//a", "/a"});
        QTest::newRow("an empty path") << a << QString() << a;
        QTest::newRow("what is listed")
            << QStringList({"/a", "/b", "/c"}) << "/c" << QStringList({"/c", "/a", "/b"});
        QTest::newRow("the eleventh") << numbered(10, 1) << "/drawings/11.dwg" << numbered(11, 2);
    }

    void whatIsAddedComesFirst()
    {
        QFETCH(QStringList, listed);
        QFETCH(QString, path);
        QFETCH(QStringList, after);
        RecentFiles list;
        list.setPaths(listed);
        QSignalSpy changed(&list, &RecentFiles::changed);
        list.add(path);
        list.add(path); // again, which changes nothing
        QCOMPARE(list.paths(), after);
        QCOMPARE(changed.size(), after == listed ? 0 : 1);
    }

    void theMaximumHolds()
    {
        RecentFiles list;
        QSignalSpy changed(&list, &RecentFiles::changed);
        QSignalSpy maximumChanged(&list, &RecentFiles::maximumChanged);
        for (const int refused : {0, -1, 1001})
            QVERIFY(!list.setMaximum(refused));
        QCOMPARE(list.maximum(), 10);
        QVERIFY(maximumChanged.isEmpty());
        QVERIFY(list.setMaximum(RecentFiles::largestMaximum));
        list.setPaths(numbered(1, 1001));
        QCOMPARE(list.paths(), numbered(1, 1000));
        QVERIFY(list.setMaximum(4));
        QCOMPARE(list.paths(), numbered(1, 4));
        QVERIFY(list.setMaximum(5));
        QCOMPARE(maximumChanged.size(), 3);
        QCOMPARE(changed.size(), 2);
    }

    void removingTellsWhetherItWasListed()
    {
        RecentFiles list;
        list.setPaths(numbered(1, 2));
        QVERIFY(list.remove("/drawings/1.dwg"));
        QVERIFY(!list.remove("/drawings/1.dwg"));
        QCOMPARE(list.paths(), numbered(2, 2));
        list.clear();
        QVERIFY(list.paths().isEmpty());
    }

    void changesAreMadeToWhatTheKeeperKeeps()
    {
        RecentFiles list;
        QStringList knownToTheList;
        QStringList kept = numbered(7, 8); // by somebody else too
        list.setKeeper([&](const QStringList &known, const RecentFiles::Change &change) {
            knownToTheList = known;
            kept = change(kept);
            return kept;
        });
        QSignalSpy changed(&list, &RecentFiles::changed);
        list.add("/a.dwg");
        QCOMPARE(knownToTheList, QStringList());
        QCOMPARE(list.paths(), QStringList("/a.dwg") + numbered(7, 8));
        QCOMPARE(changed.size(), 1);

        kept.prepend("/theirs.dwg");
        QVERIFY(list.remove("/theirs.dwg"));
        QCOMPARE(list.paths(), QStringList("/a.dwg") + numbered(7, 8));
        QCOMPARE(kept, list.paths());

        kept.prepend("/theirs.dwg");
        changed.clear();
        list.refresh();
        QCOMPARE(list.paths(), kept);
        QCOMPARE(changed.size(), 1);
        list.adoptMaximum(2);
        QCOMPARE(list.paths(), kept); // it counts from the next change on
        list.refresh();
        QCOMPARE(kept.size(), 2);
        QVERIFY(list.setMaximum(1));
        QCOMPARE(kept.size(), 1);
        QCOMPARE(list.paths(), kept);
        list.add(QString());
        list.clear();
        QCOMPARE(kept, QStringList());
    }
};

CORE_TEST_CLASS(tst_RecentFiles);
#include "tst_recentfiles.moc"

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

class TestRecentFiles : public TestCase
{
    Q_OBJECT

private slots:
    void theLastAddedComesFirst()
    {
        RecentFiles list;
        list.add("/a.dwg");
        list.add("/b.dwg");
        QCOMPARE(list.paths(), QStringList({"/b.dwg", "/a.dwg"}));
    }

    void whatIsListedMovesToTheTop()
    {
        RecentFiles list;
        list.setPaths(numbered(1, 3));
        list.add("/drawings/3.dwg");
        QCOMPARE(list.paths(), QStringList({"/drawings/3.dwg", "/drawings/1.dwg", "/drawings/2.dwg"}));
    }

    void pathsThatDifferInCaseOrSeparatorsAreDifferent()
    {
        RecentFiles list;
        list.setPaths({"/A.dwg", "/a.dwg", "//a.dwg"});
        QCOMPARE(list.paths().size(), 3);
    }

    void anEmptyPathIsNotListed()
    {
        RecentFiles list;
        list.add(QString());
        QVERIFY(list.paths().isEmpty());
    }

    void theEleventhPushesTheOldestOut()
    {
        RecentFiles list;
        const QStringList paths = numbered(1, 11);
        for (const QString &path : paths)
            list.add(path);
        QCOMPARE(list.paths(), numbered(11, 2));
    }

    void aSmallerMaximumShortensTheList()
    {
        RecentFiles list;
        list.setPaths(numbered(1, 10));
        QVERIFY(list.setMaximum(4));
        QCOMPARE(list.paths(), numbered(1, 4));
    }

    void aLargerMaximumTakesMore()
    {
        RecentFiles list;
        QVERIFY(list.setMaximum(RecentFiles::largestMaximum));
        list.setPaths(numbered(1, 1001));
        QCOMPARE(list.paths(), numbered(1, 1000));
    }

    void aMaximumOutOfRangeIsRefused_data()
    {
        QTest::addColumn<int>("maximum");
        QTest::newRow("none at all") << 0;
        QTest::newRow("negative") << -1;
        QTest::newRow("one too many") << 1001;
    }

    void aMaximumOutOfRangeIsRefused()
    {
        QFETCH(int, maximum);
        RecentFiles list;
        QSignalSpy maximumChanged(&list, &RecentFiles::maximumChanged);
        QVERIFY(!list.setMaximum(maximum));
        QCOMPARE(list.maximum(), 10);
        QVERIFY(maximumChanged.isEmpty());
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

    void onlyRealChangesAreTold()
    {
        RecentFiles list;
        QSignalSpy changed(&list, &RecentFiles::changed);
        list.add("/a.dwg");
        QCOMPARE(changed.size(), 1);
        list.add("/a.dwg");
        list.setMaximum(5);
        list.remove("/never there.dwg");
        QCOMPARE(changed.size(), 1);
    }

    void changesAreMadeToWhatTheKeeperKeeps()
    {
        RecentFiles list;
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

private:
    QStringList knownToTheList;
};

QTEST_GUILESS_MAIN(TestRecentFiles)
#include "tst_recentfiles.moc"

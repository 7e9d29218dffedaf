// SPDX-License-Identifier: MIT
#include "host/runtime/recent/RecentFiles.h"
#include "tests/support/Property.h"
#include "tests/support/TestCase.h"
#include "tests/support/real/RealListFile.h"
#include "tests/support/real/RealProfile.h"

#include <QFile>
#include <QSignalSpy>

using fxhost::RecentEntries;
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
    void addedDocumentComesFirst_data()
    {
        QTest::addColumn<QStringList>("listed");
        QTest::addColumn<QStringList>("kept");
        QTest::addColumn<QString>("path");
        QTest::addColumn<QStringList>("after");
        const QStringList none;
        const QStringList a("/a");
        const QStringList abc = {"/a", "/b", "/c"};
        QTest::newRow("to an empty list") << none << none << "/a" << a;
        QTest::newRow("another") << a << none << "/b" << QStringList({"/b", "/a"});
        QTest::newRow("of another case") << a << none << "/A" << QStringList({"/A", "/a"});
        QTest::newRow("with other separators") << a << none << "//a" << QStringList({"//a", "/a"});
        QTest::newRow("an empty path") << a << none << QString() << a;
        QTest::newRow("a listed one") << abc << none << "/c" << QStringList({"/c", "/a", "/b"});
        QTest::newRow("the eleventh") << numbered(10, 1) << none << "/drawings/11.dwg" << numbered(11, 2);
        QTest::newRow("after what is kept")
            << abc << QStringList({"/c", "/b"}) << "/d" << QStringList({"/c", "/b", "/d", "/a"});
        QTest::newRow("unless it is kept")
            << abc << QStringList({"/c", "/b"}) << "/b" << QStringList({"/c", "/b", "/a"});
        QTest::newRow("what is kept does not count")
            << numbered(10, 1) << QStringList("/k") << "/drawings/11.dwg"
            << QStringList("/k") + numbered(11, 2);
    }

    void addedDocumentComesFirst()
    {
        QFETCH(QStringList, listed);
        QFETCH(QStringList, kept);
        QFETCH(QString, path);
        QFETCH(QStringList, after);
        RealProfile profile;
        profile.list.setPaths(listed);
        for (int round = 0; round < 2; ++round) { // the second changes nothing
            for (const QString &each : kept)
                QVERIFY(profile.list.setKept({each}, true));
            profile.list.add(path);
        }
        QCOMPARE(profile.list.paths(), after);
        QCOMPARE(profile.stored(), after);
    }

    void theTimeOfOpeningIsRecorded()
    {
        RealProfile profile;
        const QDateTime before = QDateTime::fromSecsSinceEpoch(QDateTime::currentSecsSinceEpoch(), Qt::UTC);
        const QSignalSpy changed(&profile.list, &RecentFiles::changed);
        profile.list.add("/a");
        QVERIFY(!profile.list.entries().constFirst().lastOpened.isValid());
        profile.list.add("/a", before.addMSecs(999));
        profile.list.setKept({"/a"}, true);
        profile.list.add("/a");
        QCOMPARE(profile.list.entries(), RecentEntries({{"/a", true, before}}));
        QCOMPARE(changed.count(), 3); // as often as the list was another one
    }

    void whatIsKeptStaysUntilItIsRemoved()
    {
        RealProfile profile;
        RecentFiles &list = profile.list;
        list.setPaths(numbered(1, 10));
        QVERIFY(list.setKept({"/drawings/9.dwg", "/drawings/10.dwg"}, true));
        list.setMaximum(1);
        QCOMPARE(list.paths(), numbered(9, 10) + numbered(1, 1));
        QVERIFY(list.setKept({"/drawings/9.dwg", "/not listed"}, false));
        QCOMPARE(list.paths(), numbered(10, 9)); // the most recent one now
        QCOMPARE(list.clear(), 1);
        QCOMPARE(list.paths(), numbered(10, 10));
        QCOMPARE(list.remove(numbered(10, 10)), 1);
        QCOMPARE(profile.stored(), QStringList());
        QVERIFY(!list.setKept(numbered(1, fxhost::mostKept + 1), true));
        QCOMPARE(profile.stored(), numbered(1, fxhost::mostKept));
    }

    void aChangeIsUndoneButNotWhatFollowedIt()
    {
        const char *const property = "an undone change leaves the list as it was, and what was opened since";
        const auto check = [] {
            const auto some = [] {
                QStringList paths;
                for (int number = 1; number <= 8; ++number) {
                    if (*rc::gen::arbitrary<bool>())
                        paths += numbered(number, number);
                }
                return paths;
            };
            RealProfile profile;
            RecentFiles &list = profile.list;
            list.setPaths(numbered(1, 8));
            list.setKept(some(), true);
            const RecentEntries before = list.entries();
            switch (*rc::gen::inRange(0, 4)) {
            case 0:
                list.setKept(some(), true);
                break;
            case 1:
                list.setKept(some(), false);
                break;
            case 2:
                list.remove(some());
                break;
            default:
                list.clear();
            }
            const RecentEntries after = list.entries();
            profile.changeElsewhere(adding("/opened since"));
            list.revert(before, after);
            RC_ASSERT(list.remove({"/opened since"}) == 1);
            RC_ASSERT(list.entries() == before);
        };
        QVERIFY(holds(property, check, 50));
    }

    void undoLeavesWhatWasDoneSince()
    {
        RealProfile profile;
        RecentFiles &list = profile.list;
        const RecentEntries before = fxhost::entriesOf(numbered(1, 10));
        list.setPaths(numbered(1, 10));
        list.clear();
        list.add("/new.dwg");
        list.revert(before, {});
        QCOMPARE(list.paths(), QStringList("/new.dwg") + numbered(1, 9)); // the limit takes the oldest

        list.setPaths(numbered(1, 3));
        list.remove({"/drawings/2.dwg"});
        const RecentEntries after = list.entries();
        list.add("/drawings/2.dwg", QDateTime::currentDateTimeUtc());
        const RecentEntries opened = list.entries();
        list.revert(fxhost::entriesOf(numbered(1, 3)), after);
        QCOMPARE(list.entries(), opened);

        list.setKept({"/drawings/3.dwg"}, true);
        const RecentEntries kept = list.entries();
        list.remove({"/drawings/3.dwg"});
        list.revert(opened, kept);
        QVERIFY(!list.paths().contains("/drawings/3.dwg"));
    }

    void maximumIsKept()
    {
        RealProfile profile;
        RecentFiles &list = profile.list;
        for (const int refused : {0, -1, 1001})
            QVERIFY(!list.setMaximum(refused));
        QCOMPARE(list.maximum(), 10);
        QVERIFY(!QFile::exists(profile.folder.filePath("settings.ini")));
        QVERIFY(list.setMaximum(RecentFiles::largestMaximum));
        list.setPaths(numbered(1, 1001));
        QCOMPARE(list.paths(), numbered(1, 1000));
        QVERIFY(list.setMaximum(4));
        QCOMPARE(list.paths(), numbered(1, 4));
        QVERIFY(list.setMaximum(5));
        QCOMPARE(list.paths(), numbered(1, 4));
        fxhost::HostSettings elsewhere(profile.folder.path(), profile.report); // in another program
        elsewhere.setRecentMaximum(2);
        list.refresh();
        QCOMPARE(profile.stored(), numbered(1, 2));
    }

    void removingReturnsHowManyWereListed()
    {
        RealProfile profile;
        profile.list.setPaths(numbered(1, 2));
        QCOMPARE(profile.list.remove({"/drawings/1.dwg", "/other.dwg"}), 1);
        QCOMPARE(profile.list.remove({"/drawings/1.dwg"}), 0);
        QCOMPARE(profile.list.paths(), numbered(2, 2));
        QCOMPARE(profile.list.clear(), 1);
        QCOMPARE(profile.stored(), QStringList());
    }

    void changesApplyToTheStoredList()
    {
        RealProfile profile;
        RecentFiles &list = profile.list;
        profile.changeElsewhere(replacing(numbered(7, 8)));
        list.add("/a.dwg");
        QCOMPARE(list.paths(), QStringList("/a.dwg") + numbered(7, 8));

        profile.changeElsewhere(adding("/theirs.dwg"));
        QVERIFY(list.remove({"/theirs.dwg"}) == 1);
        QCOMPARE(profile.stored(), QStringList("/a.dwg") + numbered(7, 8));

        profile.changeElsewhere(adding("/theirs.dwg"));
        list.refresh();
        QCOMPARE(list.paths(), QStringList({"/theirs.dwg", "/a.dwg"}) + numbered(7, 8));
        QCOMPARE(profile.messages, QStringList());
    }
};

CORE_TEST_CLASS(tst_RecentFiles);
#include "tst_recentfiles.moc"

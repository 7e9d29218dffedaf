// SPDX-License-Identifier: MIT
#include "host/runtime/recent/RecentFiles.h"
#include "tests/support/TestCase.h"
#include "tests/support/real/RealProfile.h"

#include <QFile>

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
        QTest::addColumn<QString>("path");
        QTest::addColumn<QStringList>("after");
        const QStringList a("/a");
        QTest::newRow("to an empty list") << QStringList() << "/a" << a;
        QTest::newRow("another") << a << "/b" << QStringList({"/b", "/a"});
        QTest::newRow("of another case") << a << "/A" << QStringList({"/A", "/a"});
        QTest::newRow("with other separators") << a << "//a" << QStringList({"//a", "/a"});
        QTest::newRow("an empty path") << a << QString() << a;
        QTest::newRow("a listed one")
            << QStringList({"/a", "/b", "/c"}) << "/c" << QStringList({"/c", "/a", "/b"});
        QTest::newRow("the eleventh") << numbered(10, 1) << "/drawings/11.dwg" << numbered(11, 2);
    }

    void addedDocumentComesFirst()
    {
        QFETCH(QStringList, listed);
        QFETCH(QString, path);
        QFETCH(QStringList, after);
        RealProfile profile;
        profile.list.setPaths(listed);
        profile.list.add(path);
        profile.list.add(path); // again, which changes nothing
        QCOMPARE(profile.list.paths(), after);
        QCOMPARE(profile.stored(), after);
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

    void removingReturnsWhetherItWasListed()
    {
        RealProfile profile;
        profile.list.setPaths(numbered(1, 2));
        QVERIFY(profile.list.remove("/drawings/1.dwg"));
        QVERIFY(!profile.list.remove("/drawings/1.dwg"));
        QCOMPARE(profile.list.paths(), numbered(2, 2));
        profile.list.clear();
        QCOMPARE(profile.stored(), QStringList());
    }

    void changesApplyToTheStoredList()
    {
        RealProfile profile;
        RecentFiles &list = profile.list;
        profile.changeElsewhere([](const QStringList &) { return numbered(7, 8); });
        list.add("/a.dwg");
        QCOMPARE(list.paths(), QStringList("/a.dwg") + numbered(7, 8));

        const auto addTheirs = [](const QStringList &listed) { return QStringList("/theirs.dwg") + listed; };
        profile.changeElsewhere(addTheirs);
        QVERIFY(list.remove("/theirs.dwg"));
        QCOMPARE(profile.stored(), QStringList("/a.dwg") + numbered(7, 8));

        profile.changeElsewhere(addTheirs);
        list.refresh();
        QCOMPARE(list.paths(), QStringList({"/theirs.dwg", "/a.dwg"}) + numbered(7, 8));
        QCOMPARE(profile.messages, QStringList());
    }
};

CORE_TEST_CLASS(tst_RecentFiles);
#include "tst_recentfiles.moc"

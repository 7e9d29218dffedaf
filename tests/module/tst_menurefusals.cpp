// SPDX-License-Identifier: MIT
#include "module/MenuIntegration.h"
#include "tests/support/MenusInHost.h"
#include "tests/support/TestCase.h"

#include <stdexcept>

//! What becomes of the browser's entry where the host lacks, refuses or cannot make something.
class tst_MenuRefusals : public TestCase
{
    Q_OBJECT

private slots:
    void withoutAPrimaryGroupNothingIsDone();
    void withoutStartUpMenusNothingIsRefreshed();
    void aMissingFileMenuIsPassedBy_data();
    void aMissingFileMenuIsPassedBy();
    void withoutRecentDocumentsThereIsOnlyTheDefinition_data();
    void withoutRecentDocumentsThereIsOnlyTheDefinition();
    void whatTheHostRefusesLeavesNothingBehind();
    void whatTheHostCannotMakeIsLeftOut();
    void noEntryComesWithoutItsCommand();
    void theHostsExceptionLeavesNothingBehind();
};

void tst_MenuRefusals::withoutAPrimaryGroupNothingIsDone()
{
    MenusInHost inHost;
    inHost.primary.isPrimary = false;
    const int objects = inHost.menus.objectsAlive;
    RecentDocumentBrowser::LoadMenu();
    QCOMPARE(inHost.menuCalls(),
             QStringList({"enumerate", "next EXTENSION", "primary? EXTENSION", "next MAIN", "primary? MAIN",
                          "next none", "enumerator released"}));
    QCOMPARE(inHost.menus.objectsAlive, objects);
}

void tst_MenuRefusals::withoutStartUpMenusNothingIsRefreshed()
{
    MenusInHost inHost;
    inHost.menus.startUp.reset();
    RecentDocumentBrowser::LoadMenu();
    QCOMPARE(childrenOf(inHost.file).count(browserEntry), 1);
    QCOMPARE(inHost.menuCalls().constLast(), QStringLiteral("start-up group"));
}

void tst_MenuRefusals::aMissingFileMenuIsPassedBy_data()
{
    QTest::addColumn<bool>("hasFile");
    QTest::addColumn<bool>("hasStartUpFile");
    QTest::newRow("in the groups") << false << true;
    QTest::newRow("in the start-up menus") << true << false;
    QTest::newRow("in both") << false << false;
}

void tst_MenuRefusals::aMissingFileMenuIsPassedBy()
{
    QFETCH(bool, hasFile);
    QFETCH(bool, hasStartUpFile);
    MenusInHost inHost;
    if (!hasFile)
        inHost.file.identifier = QStringLiteral("ID_MNFILE");
    if (!hasStartUpFile)
        inHost.startUpFile.identifier = QStringLiteral("ID_MNFILE");
    RecentDocumentBrowser::LoadMenu();
    QCOMPARE(childrenOf(inHost.file).count(browserEntry), hasFile ? 1 : 0);
    QCOMPARE(inHost.primary.GetCommandCount(), hasFile ? 1 : 0);
    QCOMPARE(childrenOf(inHost.startUpFile).count(browserEntry), hasStartUpFile ? 1 : 0);
    QCOMPARE(inHost.startUp.GetCommandCount(), hasStartUpFile ? 1 : 0);
    QCOMPARE(inHost.menuCalls().constLast(), QStringLiteral("refresh"));
}

void tst_MenuRefusals::withoutRecentDocumentsThereIsOnlyTheDefinition_data()
{
    QTest::addColumn<bool>("application");
    QTest::addColumn<bool>("profile");
    QTest::addColumn<bool>("list");
    QTest::newRow("the list is empty") << true << true << true;
    QTest::newRow("there is no list") << true << true << false;
    QTest::newRow("there is no profile") << true << false << true;
    QTest::newRow("there is no application") << false << true << true;
}

void tst_MenuRefusals::withoutRecentDocumentsThereIsOnlyTheDefinition()
{
    QFETCH(bool, application);
    QFETCH(bool, profile);
    QFETCH(bool, list);
    MenusInHost inHost;
    inHost.host.setRecent({});
    inHost.host.hasApplication = application;
    inHost.host.hasUserProfile = profile;
    inHost.host.hasRecentFileList = list;
    RecentDocumentBrowser::LoadMenu();
    QCOMPARE(inHost.primary.GetCommandCount(), 1);
    QCOMPARE(inHost.startUp.GetCommandCount(), 1);
    QCOMPARE(inHost.file.GetChildCount(), 5);
    QCOMPARE(inHost.startUpFile.GetChildCount(), 3);
    QCOMPARE(inHost.menuCalls().filter(QStringLiteral("make entry")), QStringList());
    QCOMPARE(inHost.menuCalls().constLast(), QStringLiteral("refresh"));

    // With a document the definition is there already.
    inHost.host.setRecent({QStringLiteral("/drawings/a.dwg")});
    inHost.host.hasApplication = inHost.host.hasUserProfile = inHost.host.hasRecentFileList = true;
    RecentDocumentBrowser::LoadMenu();
    QCOMPARE(inHost.primary.GetCommandCount(), 1);
    QCOMPARE(inHost.file.child(4).command, inHost.primary.commands.front().get());
    QCOMPARE(inHost.startUpFile.child(2).command, inHost.startUp.commands.front().get());
}

void tst_MenuRefusals::whatTheHostRefusesLeavesNothingBehind()
{
    MenusInHost inHost;
    inHost.menus.insertsChildren = false;
    const int objects = inHost.menus.objectsAlive;
    RecentDocumentBrowser::LoadMenu();
    QCOMPARE(inHost.menuCalls().filter(QStringLiteral("insert")).size(), 2);
    QCOMPARE(inHost.menus.objectsAlive, objects + 2); // the two definitions
    QCOMPARE(inHost.file.GetChildCount(), 5);
    QCOMPARE(inHost.startUpFile.GetChildCount(), 3);
    QCOMPARE(inHost.menuCalls().constLast(), QStringLiteral("refresh"));
}

void tst_MenuRefusals::whatTheHostCannotMakeIsLeftOut()
{
    MenusInHost inHost;
    inHost.menus.makesMenuItems = false;
    RecentDocumentBrowser::LoadMenu();
    QCOMPARE(inHost.menuCalls().filter(QStringLiteral("make entry")).size(), 2);
    QCOMPARE(inHost.menuCalls().filter(QStringLiteral("insert")), QStringList());
    inHost.menus.makesCommands = false;
    inHost.primary.commands.clear();
    RecentDocumentBrowser::LoadMenu();
    QVERIFY(inHost.primary.commands.empty());
    QCOMPARE(inHost.menuCalls().constLast(), QStringLiteral("refresh"));
}

void tst_MenuRefusals::noEntryComesWithoutItsCommand()
{
    MenusInHost inHost;
    inHost.menus.makesCommands = false;
    RecentDocumentBrowser::LoadMenu();
    // An entry that runs nothing would stand in the way of one that does.
    QCOMPARE(inHost.menuCalls().filter(QStringLiteral("insert")), QStringList());
    inHost.menus.makesCommands = true;
    RecentDocumentBrowser::LoadMenu();
    QCOMPARE(inHost.menuCalls().filter(QStringLiteral("insert")).size(), 2);
}

void tst_MenuRefusals::theHostsExceptionLeavesNothingBehind()
{
    MenusInHost inHost;
    inHost.menus.onCall = [](const QString &call) {
        if (call.startsWith(QLatin1String("insert")))
            throw std::runtime_error("the host refuses");
    };
    const int objects = inHost.menus.objectsAlive;
    bool passed = false;
    try {
        RecentDocumentBrowser::LoadMenu();
    } catch (const std::runtime_error &) {
        passed = true;
    }
    QVERIFY(passed);
    QCOMPARE(inHost.menus.objectsAlive, objects + 1); // the definition
    QCOMPARE(inHost.menus.enumeratorsAlive, 0);
}

QTEST_MAIN(tst_MenuRefusals)
#include "tst_menurefusals.moc"

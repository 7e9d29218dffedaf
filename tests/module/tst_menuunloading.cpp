// SPDX-License-Identifier: MIT
#include "module/MenuIntegration.h"
#include "tests/support/MenusInHost.h"
#include "tests/support/TestCase.h"

namespace {

const QString acceleratorIdentifier = QStringLiteral("MA_RECENT_DOCUMENT_BROWSER_ACC");

//! How often the primary group was sought.
int searches(const MenusInHost &inHost)
{
    return inHost.menuCalls().count(QStringLiteral("enumerate"));
}

} // namespace

//! When the module's menus are looked at and filled, and that nothing is taken away again.
class tst_MenuUnloading : public TestCase
{
    Q_OBJECT

private slots:
    void unloadingTakesNothingAway();
    void eachChildUpToTheEntryMeansASearch_data();
    void eachChildUpToTheEntryMeansASearch();
    void theFirstAcceleratorOfTheIdentifierIsFetched_data();
    void theFirstAcceleratorOfTheIdentifierIsFetched();
    void withoutAGroupNoAcceleratorIsSought_data();
    void withoutAGroupNoAcceleratorIsSought();
    void withoutAMenuOrServicesNothingIsLookedAt_data();
    void withoutAMenuOrServicesNothingIsLookedAt();

    void theMainFrameBringsTheMenusAndThenTheHelpCommand();
    void theMainFramesEndLooksAtTheStartUpMenusFirst();
    void afterTheMainFramesEndEverythingStands();
    void theMainFramesEndIsHarmlessWithoutMenus_data();
    void theMainFramesEndIsHarmlessWithoutMenus();
    void aDocumentFillsTheMenusBeforeTheCacheIsEmptied();
    void aDocumentLeavesTheMenusAloneWhileNoneIsRecent();
};

void tst_MenuUnloading::unloadingTakesNothingAway()
{
    MenusInHost inHost;
    inHost.primary.addAccelerator(acceleratorIdentifier, QKeySequence(Qt::Key_F4));
    RecentDocumentBrowser::LoadMenu();
    const QStringList children = childrenOf(inHost.file);
    const int objects = inHost.menus.objectsAlive;
    RecentDocumentBrowser::UnLoadMenu(&inHost.file);
    QCOMPARE(childrenOf(inHost.file), children);
    QCOMPARE(inHost.primary.GetCommandCount(), 1);
    QCOMPARE(inHost.primary.GetAcceleratorCount(), 1);
    QCOMPARE(inHost.menus.objectsAlive, objects);
    QCOMPARE(inHost.menus.enumeratorsAlive, 0);
}

void tst_MenuUnloading::eachChildUpToTheEntryMeansASearch_data()
{
    QTest::addColumn<QStringList>("children");
    QTest::addColumn<int>("visited");
    const QString first = QStringLiteral("MI_New");
    QTest::newRow("no children") << QStringList() << 0;
    QTest::newRow("the entry first") << QStringList({browserEntry, first, first}) << 1;
    QTest::newRow("the entry third") << QStringList({first, first, browserEntry, first}) << 3;
    QTest::newRow("the entry in other letters") << QStringList({first, browserEntry.toLower(), first}) << 2;
    QTest::newRow("the entry twice") << QStringList({first, browserEntry, browserEntry}) << 2;
    QTest::newRow("no entry") << QStringList({first, first, first, first}) << 4;
}

void tst_MenuUnloading::eachChildUpToTheEntryMeansASearch()
{
    QFETCH(QStringList, children);
    QFETCH(int, visited);
    MenusInHost inHost;
    inHost.file.children.clear();
    for (const QString &child : qAsConst(children))
        inHost.file.add(child);
    RecentDocumentBrowser::UnLoadMenu(&inHost.file);
    QCOMPARE(searches(inHost), visited);
    QCOMPARE(inHost.menus.enumeratorsAlive, 0);
    QCOMPARE(childrenOf(inHost.file), children);
}

void tst_MenuUnloading::theFirstAcceleratorOfTheIdentifierIsFetched_data()
{
    QTest::addColumn<QStringList>("identifiers");
    QTest::addColumn<int>("last");
    const QString other = QStringLiteral("ACC_Other");
    QTest::newRow("the first") << QStringList({acceleratorIdentifier, other, other}) << 0;
    QTest::newRow("the second") << QStringList({other, acceleratorIdentifier, other}) << 1;
    QTest::newRow("in other letters") << QStringList({other, acceleratorIdentifier.toLower(), other}) << 1;
    QTest::newRow("two of them") << QStringList({acceleratorIdentifier, acceleratorIdentifier, other}) << 0;
    QTest::newRow("none") << QStringList({other, acceleratorIdentifier + QLatin1Char('2')}) << 1;
}

void tst_MenuUnloading::theFirstAcceleratorOfTheIdentifierIsFetched()
{
    QFETCH(QStringList, identifiers);
    QFETCH(int, last);
    MenusInHost inHost;
    for (const QString &identifier : qAsConst(identifiers))
        inHost.primary.addAccelerator(identifier, QKeySequence(Qt::Key_F9));
    RecentDocumentBrowser::UnLoadMenu(&inHost.file);
    QVERIFY(!inHost.primary.acceleratorsFetched.isEmpty());
    QCOMPARE(*std::max_element(inHost.primary.acceleratorsFetched.cbegin(),
                               inHost.primary.acceleratorsFetched.cend()),
             last);
    QCOMPARE(inHost.primary.GetAcceleratorCount(), identifiers.size());
    QVERIFY(inHost.startUp.acceleratorsFetched.isEmpty());
    QVERIFY(inHost.extension.acceleratorsFetched.isEmpty());
}

void tst_MenuUnloading::withoutAGroupNoAcceleratorIsSought_data()
{
    QTest::addColumn<bool>("primary");
    QTest::addColumn<bool>("children");
    QTest::newRow("no primary group") << false << true;
    QTest::newRow("a menu without entries") << true << false;
}

void tst_MenuUnloading::withoutAGroupNoAcceleratorIsSought()
{
    QFETCH(bool, primary);
    QFETCH(bool, children);
    MenusInHost inHost;
    inHost.primary.addAccelerator(acceleratorIdentifier, QKeySequence(Qt::Key_F4));
    inHost.primary.isPrimary = primary;
    if (!children)
        inHost.file.children.clear();
    RecentDocumentBrowser::UnLoadMenu(&inHost.file);
    QCOMPARE(searches(inHost), children ? 5 : 0);
    QCOMPARE(inHost.primary.acceleratorsFetched, QList<int>());
}

void tst_MenuUnloading::withoutAMenuOrServicesNothingIsLookedAt_data()
{
    QTest::addColumn<bool>("menu");
    QTest::addColumn<bool>("services");
    QTest::newRow("no menu") << false << true;
    QTest::newRow("no services") << true << false;
    QTest::newRow("neither") << false << false;
}

void tst_MenuUnloading::withoutAMenuOrServicesNothingIsLookedAt()
{
    QFETCH(bool, menu);
    QFETCH(bool, services);
    MenusInHost inHost;
    inHost.primary.addAccelerator(acceleratorIdentifier, QKeySequence(Qt::Key_F4));
    inHost.host.hasServices = services;
    RecentDocumentBrowser::UnLoadMenu(menu ? &inHost.file : nullptr);
    QCOMPARE(inHost.host.calls, QStringList());
    QCOMPARE(inHost.primary.acceleratorsFetched, QList<int>());
}

void tst_MenuUnloading::theMainFrameBringsTheMenusAndThenTheHelpCommand()
{
    MenusInHost inHost;
    inHost.editorReactor().mainFrameCreated(nullptr);
    QCOMPARE(childrenOf(inHost.file).count(browserEntry), 1);
    QCOMPARE(childrenOf(inHost.startUpFile).count(browserEntry), 1);
    const int refreshed = inHost.host.calls.indexOf(QStringLiteral("menus refresh"));
    QVERIFY(refreshed >= 0);
    QVERIFY(refreshed < inHost.host.calls.indexOf(QStringLiteral("stack lookup _RHELP 3 \"\"")));
    QVERIFY(inHost.menuCalls().constLast() == QLatin1String("refresh"));
}

void tst_MenuUnloading::theMainFramesEndLooksAtTheStartUpMenusFirst()
{
    MenusInHost inHost;
    inHost.editorReactor().mainFrameCreated(nullptr);
    inHost.host.calls.clear();
    inHost.editorReactor().mainFrameDestroyed(nullptr);
    // Behind the reactors and in front of the help command: the start-up menus, whose entry is their third
    // child, then the others, whose entry is the fifth.
    const QStringList calls = inHost.host.calls;
    const int from = calls.indexOf(QStringLiteral("editor released"));
    const int to = calls.indexOf(QStringLiteral("stack lookup _RHELP 3 \"\""));
    QVERIFY(from >= 0 && to > from);
    const QStringList inMenus = QStringList(calls.mid(from, to - from)).filter(QStringLiteral("menus "));
    QCOMPARE(inMenus.size(), inHost.menuCalls().size());
    QCOMPARE(inMenus.constFirst(), QStringLiteral("menus start-up group"));
    QCOMPARE(inMenus.count(QStringLiteral("menus start-up group")), 1);
    QCOMPARE(inMenus.count(QStringLiteral("menus primary? MAIN")), 3 + 5);
    QStringList endings; // of each walk over the groups: the one that seeks a menu asks nothing else
    for (int i = 1; i < inMenus.size(); ++i) {
        if (inMenus.at(i) == QLatin1String("menus enumerate"))
            endings.append(inMenus.at(i + 2).mid(6));
    }
    const QString primaryGroup = QStringLiteral("primary? EXTENSION");
    QCOMPARE(endings.size(), 3 + 1 + 5);
    QCOMPARE(endings.indexOf(QStringLiteral("next MAIN")), 3);
    QCOMPARE(endings.count(primaryGroup), 3 + 5);
    QCOMPARE(inHost.menus.enumeratorsAlive, 0);
}

void tst_MenuUnloading::afterTheMainFramesEndEverythingStands()
{
    MenusInHost inHost;
    inHost.module->initApp();
    inHost.editorReactor().mainFrameCreated(nullptr);
    RecentDocumentBrowser::SetShortCutKey();
    const int objects = inHost.menus.objectsAlive;
    inHost.editorReactor().mainFrameDestroyed(nullptr);
    inHost.end();
    QCOMPARE(inHost.menus.objectsAlive, objects);
    QCOMPARE(childrenOf(inHost.file).count(browserEntry), 1);
    QCOMPARE(childrenOf(inHost.startUpFile).count(browserEntry), 1);
    QCOMPARE(inHost.primary.GetCommandCount(), 1);
    QCOMPARE(inHost.startUp.GetCommandCount(), 1);
    QCOMPARE(inHost.primary.GetAcceleratorCount(), 1);
    QCOMPARE(inHost.menuCalls().count(QStringLiteral("refresh")), 1); // at the beginning
}

void tst_MenuUnloading::theMainFramesEndIsHarmlessWithoutMenus_data()
{
    QTest::addColumn<bool>("services");
    QTest::addColumn<bool>("customization");
    QTest::addColumn<bool>("menus");
    QTest::newRow("no services") << false << true << true;
    QTest::newRow("no customisation") << true << false << true;
    QTest::newRow("no menus") << true << true << false;
}

void tst_MenuUnloading::theMainFramesEndIsHarmlessWithoutMenus()
{
    QFETCH(bool, services);
    QFETCH(bool, customization);
    QFETCH(bool, menus);
    MenusInHost inHost;
    inHost.module->initApp();
    inHost.host.hasServices = services;
    inHost.host.hasCustomization = customization;
    if (!menus) {
        inHost.primary.menus.clear();
        inHost.startUp.menus.clear();
    }
    inHost.editorReactor().mainFrameCreated(nullptr);
    inHost.editorReactor().mainFrameDestroyed(nullptr);
    QVERIFY(inHost.host.commands.empty()); // what comes behind the menus is done
    QCOMPARE(inHost.host.openReferences, 0);
    QCOMPARE(inHost.menus.enumeratorsAlive, 0);
}

void tst_MenuUnloading::aDocumentFillsTheMenusBeforeTheCacheIsEmptied()
{
    MenusInHost inHost;
    RecentDocumentBrowser::recentFileImageMap.insert(QStringLiteral("/drawings/a.dwg"), QImage());
    int cachedAtRefresh = -1;
    inHost.menus.onCall = [&cachedAtRefresh](const QString &call) {
        if (call == QLatin1String("refresh"))
            cachedAtRefresh = RecentDocumentBrowser::recentFileImageMap.size();
    };
    inHost.documentReactor().DocumentCreated(nullptr);
    QCOMPARE(cachedAtRefresh, 1);
    QVERIFY(RecentDocumentBrowser::recentFileImageMap.isEmpty());
    QCOMPARE(childrenOf(inHost.file).count(browserEntry), 1);
    QCOMPARE(childrenOf(inHost.startUpFile).count(browserEntry), 1);
    inHost.documentReactor().DocumentCreated(nullptr);
    QCOMPARE(childrenOf(inHost.file).count(browserEntry), 1);
    QCOMPARE(childrenOf(inHost.startUpFile).count(browserEntry), 1);
}

void tst_MenuUnloading::aDocumentLeavesTheMenusAloneWhileNoneIsRecent()
{
    MenusInHost inHost;
    inHost.host.setRecent({});
    inHost.documentReactor().DocumentCreated(nullptr);
    QCOMPARE(inHost.menuCalls(), QStringList());
    // The main frame came when none was recent: the definition stands, and the entry comes with a document.
    inHost.editorReactor().mainFrameCreated(nullptr);
    QCOMPARE(inHost.primary.GetCommandCount(), 1);
    QCOMPARE(inHost.file.GetChildCount(), 5);
    inHost.host.setRecent({QStringLiteral("/drawings/a.dwg")});
    inHost.documentReactor().DocumentCreated(nullptr);
    QCOMPARE(childrenOf(inHost.file).count(browserEntry), 1);
    QCOMPARE(inHost.primary.GetCommandCount(), 1);
}

QTEST_MAIN(tst_MenuUnloading)
#include "tst_menuunloading.moc"

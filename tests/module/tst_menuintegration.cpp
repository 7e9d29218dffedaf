// SPDX-License-Identifier: MIT
#include "module/MenuIntegration.h"
#include "tests/support/MarkingTranslator.h"
#include "tests/support/MenusInHost.h"
#include "tests/support/TestCase.h"

//! The browser's command definition and its entry in the host's File menus.
class tst_MenuIntegration : public TestCase
{
    Q_OBJECT

private slots:
    void bothFileMenusAreFilledInOrder();
    void theEntryStandsWhereTheHostPutsIt_data();
    void theEntryStandsWhereTheHostPutsIt();
    void theDefinitionIsMadeOfFixedTexts();
    void shownTextsAreTranslatedAndNothingElse();
    void anExistingDefinitionIsUsedAsItIs();
    void definitionsAreFoundByTheirExactIdentifier();
    void twiceIsOnce();
    void anEntryInTheMenuIsEnough_data();
    void anEntryInTheMenuIsEnough();
    void anEntryElsewhereIsNotTheMenus();
    void theReferenceIsTheSecondEntryFromTheEnd_data();
    void theReferenceIsTheSecondEntryFromTheEnd();
    void nothingOfTheHostsIsKeptBetweenCalls();
};

void tst_MenuIntegration::bothFileMenusAreFilledInOrder()
{
    MenusInHost inHost;
    RecentDocumentBrowser::LoadMenu();
    const QString append = QStringLiteral("append definition ID_RECENT_FILES \"Recent Document Browser\" "
                                          "^C^C_RECENT \"Browse through recent documents.\" to ");
    const QString insert = QStringLiteral("insert PMI_RECENT_DOCUMENT_BROWSER "
                                          "\"Preview Recent Documents...\" for ID_RECENT_FILES at ");
    const QString make = QStringLiteral("make entry nothing \"\" \"\" PMI_RECENT_DOCUMENT_BROWSER");
    const QStringList afterTheGroup = {
        QStringLiteral("find ID_RECENT_FILES in MAIN"),
        QStringLiteral("make definition ID_RECENT_FILES"),
        append + QStringLiteral("MAIN"),
        make,
        insert + QStringLiteral("3 of ID_MnFile"),
        QStringLiteral("start-up group"),
        QStringLiteral("start-up group"), // once for itself and once for its menus
        QStringLiteral("find ID_RECENT_FILES in START"),
        QStringLiteral("make definition ID_RECENT_FILES"),
        append + QStringLiteral("START"),
        make,
        insert + QStringLiteral("1 of ID_MnFile"),
        QStringLiteral("refresh"),
    };
    QStringList calls = inHost.menuCalls();
    QCOMPARE(calls.mid(0, primaryGroupSearch.size()), primaryGroupSearch);
    QCOMPARE(calls.mid(calls.size() - afterTheGroup.size()), afterTheGroup);
    QCOMPARE(childrenOf(inHost.file),
             QStringList({"MI_New", "MI_Open", "", "MI_Recent", browserEntry, "MI_Quit"}));
    QCOMPARE(childrenOf(inHost.startUpFile), QStringList({"MI_New", "MI_Recent", browserEntry, "MI_Quit"}));
    QCOMPARE(inHost.menus.enumeratorsAlive, 0);
}

void tst_MenuIntegration::theEntryStandsWhereTheHostPutsIt_data()
{
    QTest::addColumn<bool>("behind");
    QTest::addColumn<int>("position");
    QTest::newRow("behind the reference") << true << 4;
    QTest::newRow("in front of the reference") << false << 3;
}

void tst_MenuIntegration::theEntryStandsWhereTheHostPutsIt()
{
    QFETCH(bool, behind);
    QFETCH(int, position);
    MenusInHost inHost;
    inHost.menus.insertsBehind = behind;
    RecentDocumentBrowser::LoadMenu();
    QCOMPARE(childrenOf(inHost.file).indexOf(browserEntry), position);
}

void tst_MenuIntegration::theDefinitionIsMadeOfFixedTexts()
{
    MenusInHost inHost;
    RecentDocumentBrowser::LoadMenu();
    for (const FakeGroup *group : {&inHost.primary, &inHost.startUp}) {
        QCOMPARE(group->commands.size(), std::size_t(1));
        const FakeCommand &definition = *group->commands.front();
        QCOMPARE(definition.identifier, QStringLiteral("ID_RECENT_FILES"));
        QCOMPARE(definition.name, QStringLiteral("Recent Document Browser"));
        QCOMPARE(definition.macro, QStringLiteral("^C^C_RECENT"));
        QCOMPARE(definition.helpString, QStringLiteral("Browse through recent documents."));
    }
    // Each entry runs the definition of its own group.
    QCOMPARE(inHost.file.child(4).command, inHost.primary.commands.front().get());
    QCOMPARE(inHost.startUpFile.child(2).command, inHost.startUp.commands.front().get());
    QVERIFY(inHost.extension.commands.empty());
}

void tst_MenuIntegration::shownTextsAreTranslatedAndNothingElse()
{
    MarkingTranslator translator;
    QCoreApplication::installTranslator(&translator);
    MenusInHost inHost;
    RecentDocumentBrowser::LoadMenu();
    QCoreApplication::removeTranslator(&translator);
    const FakeCommand &definition = *inHost.primary.commands.front();
    QCOMPARE(definition.helpString, QStringLiteral("QObject/Browse through recent documents."));
    QCOMPARE(definition.identifier, QStringLiteral("ID_RECENT_FILES"));
    QCOMPARE(definition.name, QStringLiteral("Recent Document Browser"));
    QCOMPARE(definition.macro, QStringLiteral("^C^C_RECENT"));
    const FakeMenuItem &entry = inHost.file.child(4);
    QCOMPARE(entry.label, QStringLiteral("QObject/Preview Recent Documents..."));
    QCOMPARE(entry.identifier, QStringLiteral("PMI_RECENT_DOCUMENT_BROWSER"));
}

void tst_MenuIntegration::anExistingDefinitionIsUsedAsItIs()
{
    MenusInHost inHost;
    FakeCommand &existing = inHost.primary.addCommand(browserDefinition);
    existing.name = QStringLiteral("of somebody else");
    existing.macro = QStringLiteral("^C_OTHER");
    existing.helpString = QStringLiteral("Does something else.");
    RecentDocumentBrowser::LoadMenu();
    QCOMPARE(inHost.primary.commands.size(), std::size_t(1));
    QCOMPARE(existing.name, QStringLiteral("of somebody else"));
    QCOMPARE(existing.macro, QStringLiteral("^C_OTHER"));
    QCOMPARE(existing.helpString, QStringLiteral("Does something else."));
    QCOMPARE(inHost.file.child(4).command, &existing);
    // What one group has is of no use to the other.
    QCOMPARE(inHost.startUp.commands.size(), std::size_t(1));
    QCOMPARE(inHost.startUp.commands.front()->macro, QStringLiteral("^C^C_RECENT"));
}

void tst_MenuIntegration::definitionsAreFoundByTheirExactIdentifier()
{
    MenusInHost inHost;
    inHost.primary.addCommand(QStringLiteral("id_recent_files"));
    inHost.extension.addCommand(browserDefinition);
    RecentDocumentBrowser::LoadMenu();
    QCOMPARE(inHost.primary.commands.size(), std::size_t(2));
    QCOMPARE(inHost.primary.commands.back()->identifier, browserDefinition);
    QCOMPARE(inHost.file.child(4).command, inHost.primary.commands.back().get());
}

void tst_MenuIntegration::twiceIsOnce()
{
    MenusInHost inHost;
    RecentDocumentBrowser::LoadMenu();
    const QStringList inFile = childrenOf(inHost.file);
    const QStringList inStartUpFile = childrenOf(inHost.startUpFile);
    const int objects = inHost.menus.objectsAlive;
    inHost.host.calls.clear();
    RecentDocumentBrowser::LoadMenu();
    QCOMPARE(childrenOf(inHost.file), inFile);
    QCOMPARE(childrenOf(inHost.startUpFile), inStartUpFile);
    QCOMPARE(inHost.menus.objectsAlive, objects);
    const QStringList calls = inHost.menuCalls();
    QCOMPARE(calls.filter(QRegularExpression(QStringLiteral("^(find|make|append|insert)"))), QStringList());
    QCOMPARE(calls.constLast(), QStringLiteral("refresh")); // all the same
}

void tst_MenuIntegration::anEntryInTheMenuIsEnough_data()
{
    QTest::addColumn<QString>("identifier");
    QTest::addColumn<int>("position");
    QTest::addColumn<bool>("isEnough");
    QTest::newRow("at the front") << browserEntry << 0 << true;
    QTest::newRow("at the end") << browserEntry << 5 << true;
    QTest::newRow("in small letters") << browserEntry.toLower() << 2 << true;
    QTest::newRow("in mixed letters") << QStringLiteral("Pmi_Recent_Document_Browser") << 5 << true;
    QTest::newRow("a longer identifier") << browserEntry + QLatin1Char('2') << 2 << false;
    QTest::newRow("its beginning") << QStringLiteral("PMI_RECENT_DOCUMENT") << 2 << false;
}

void tst_MenuIntegration::anEntryInTheMenuIsEnough()
{
    QFETCH(QString, identifier);
    QFETCH(int, position);
    QFETCH(bool, isEnough);
    MenusInHost inHost;
    inHost.file.children.insert(inHost.file.children.begin() + position,
                                std::make_unique<FakeMenuItem>(inHost.menus, identifier));
    addRecentDocMenu(&inHost.file, &inHost.primary);
    QCOMPARE(inHost.file.GetChildCount(), isEnough ? 6 : 7);
    QCOMPARE(inHost.primary.GetCommandCount(), isEnough ? 0 : 1); // not even the definition is looked for
    QCOMPARE(inHost.menuCalls().isEmpty(), isEnough);
}

void tst_MenuIntegration::anEntryElsewhereIsNotTheMenus()
{
    MenusInHost inHost;
    inHost.file.child(1).add(browserEntry);
    inHost.primary.addMenu(QStringLiteral("ID_MnOther")).add(browserEntry);
    RecentDocumentBrowser::LoadMenu();
    QCOMPARE(childrenOf(inHost.file).count(browserEntry), 1);
    QCOMPARE(childrenOf(inHost.startUpFile).count(browserEntry), 1);
}

void tst_MenuIntegration::theReferenceIsTheSecondEntryFromTheEnd_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("reference");
    QTest::addColumn<int>("countAfterwards");
    QTest::newRow("no entry") << 0 << QStringLiteral(" at -2 ") << 0;
    QTest::newRow("one entry") << 1 << QStringLiteral(" at -1 ") << 1;
    QTest::newRow("two entries") << 2 << QStringLiteral(" at 0 ") << 3;
    QTest::newRow("three entries") << 3 << QStringLiteral(" at 1 ") << 4;
    QTest::newRow("many entries") << 40 << QStringLiteral(" at 38 ") << 41;
}

void tst_MenuIntegration::theReferenceIsTheSecondEntryFromTheEnd()
{
    QFETCH(int, count);
    QFETCH(QString, reference);
    QFETCH(int, countAfterwards);
    MenusInHost inHost;
    inHost.file.children.clear();
    for (int i = 0; i < count; ++i)
        inHost.file.add(QStringLiteral("MI_%1").arg(i));
    const int objects = inHost.menus.objectsAlive;
    addRecentDocMenu(&inHost.file, &inHost.primary);
    QCOMPARE(inHost.menuCalls().filter(QStringLiteral("insert")).size(), 1);
    QVERIFY2(inHost.menuCalls().constLast().contains(reference), qPrintable(inHost.menuCalls().constLast()));
    QCOMPARE(inHost.file.GetChildCount(), countAfterwards);
    // The definition, and the entry only if it has found its place.
    QCOMPARE(inHost.menus.objectsAlive, objects + 1 + (countAfterwards - count));
}

void tst_MenuIntegration::nothingOfTheHostsIsKeptBetweenCalls()
{
    MenusInHost inHost;
    RecentDocumentBrowser::LoadMenu();
    // A host that builds its menus anew; what was there is gone.
    inHost.menus.groups.clear();
    inHost.menus.startUp.reset();
    FakeMenuItem &file =
        inHost.menus.addGroup(QStringLiteral("NEW"), true).addMenu(QStringLiteral("ID_MnFile"));
    file.add(QStringLiteral("MI_New"));
    file.add(QStringLiteral("MI_Quit"));
    RecentDocumentBrowser::LoadMenu();
    QCOMPARE(childrenOf(file), QStringList({"MI_New", browserEntry, "MI_Quit"}));
    RecentDocumentBrowser::UnLoadMenu(&file);
    RecentDocumentBrowser::SetShortCutKey();
}

QTEST_MAIN(tst_MenuIntegration)
#include "tst_menuintegration.moc"

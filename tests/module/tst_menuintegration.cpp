// SPDX-License-Identifier: MIT
#include "module/MenuIntegration.h"
#include "tests/support/MarkingTranslator.h"
#include "tests/support/TestCase.h"
#include "tests/support/fake/FakeMenus.h"

#include <stdexcept>

//! The browser's command definition, its entry in the host's File menus and its key; tst_missingservices has
//! the hosts that lack something.
class tst_MenuIntegration : public TestCase
{
    Q_OBJECT

private slots:
    void bothFileMenusAreFilledInOrder_data() { addTranslationRows(); }
    void bothFileMenusAreFilledInOrder()
    {
        QFETCH(QString, mark);
        MarkingTranslator translator; // its destructor removes it
        if (!mark.isEmpty())
            QCoreApplication::installTranslator(&translator);
        FakeMenus inHost;
        RecentDocumentBrowser::LoadMenu();
        const QString append =
            "append definition ID_RECENT_FILES \"Recent Document Browser\" ^C^C_RECENT \"" + mark +
            "Browse through recent documents.\" to ";
        const QString insert = "insert PMI_RECENT_DOCUMENT_BROWSER \"" + mark +
                               "Preview Recent Documents...\" for ID_RECENT_FILES at ";
        const QString make = "make entry nothing \"\" \"\" PMI_RECENT_DOCUMENT_BROWSER";
        const QStringList expected =
            primaryGroupSearch +
            QStringList({"enumerate", "next EXTENSION", "next MAIN", "next none", "enumerator released",
                         "find ID_RECENT_FILES in MAIN", "make definition ID_RECENT_FILES", append + "MAIN",
                         make, insert + "3 of ID_MnFile", "start-up group",
                         "start-up group", // for its commands, then for its menus
                         "find ID_RECENT_FILES in START", "make definition ID_RECENT_FILES", append + "START",
                         make, insert + "1 of ID_MnFile", "refresh"});
        QCOMPARE(inHost.menuCalls(), expected);
        QCOMPARE(childrenOf(inHost.file),
                 QStringList({"MI_New", "MI_Open", "", "MI_Recent", browserEntry, "MI_Quit"}));
        QCOMPARE(childrenOf(inHost.startUpFile),
                 QStringList({"MI_New", "MI_Recent", browserEntry, "MI_Quit"}));
        // Each entry runs the definition of its own group.
        QCOMPARE(inHost.file.child(4).command, inHost.primary.commands.front().get());
        QCOMPARE(inHost.startUpFile.child(2).command, inHost.startUp.commands.front().get());
    }

    void anExistingDefinitionIsUsedAsItIs()
    {
        FakeMenus inHost;
        inHost.extension.addCommand(browserDefinition); // not for the other groups
        FakeCommand &existing = inHost.primary.addCommand(browserDefinition);
        existing.macro = "^C_OTHER";
        RecentDocumentBrowser::LoadMenu();
        QCOMPARE(inHost.definitions(), QList<int>({1, 1}));
        QCOMPARE(existing.name + existing.macro + existing.helpString, "^C_OTHER");
        QCOMPARE(inHost.file.child(4).command, &existing);
        QCOMPARE(inHost.startUp.commands.front()->macro, "^C^C_RECENT");
    }

    void loadingTwiceAddsOneEntry()
    {
        FakeMenus inHost;
        RecentDocumentBrowser::LoadMenu();
        const int objects = inHost.menus.objectsAlive;
        inHost.host.calls.clear();
        RecentDocumentBrowser::LoadMenu();
        QCOMPARE(inHost.entries(), QList<int>({1, 1}));
        QCOMPARE(inHost.menus.objectsAlive, objects);
        const QStringList calls = inHost.menuCalls();
        QCOMPARE(calls.filter(QRegularExpression("^(find|make|append|insert)")), QStringList());
        QCOMPARE(calls.constLast(), "refresh"); // although nothing has changed
    }

    void anEntryInTheMenuIsEnough_data()
    {
        QTest::addColumn<QString>("identifier");
        QTest::addColumn<int>("position");
        QTest::addColumn<bool>("isEnough");
        QTest::newRow("first") << browserEntry << 0 << true;
        QTest::newRow("last") << browserEntry << 5 << true;
        QTest::newRow("in small letters") << browserEntry.toLower() << 2 << true;
        QTest::newRow("a longer identifier") << browserEntry + '2' << 2 << false;
        QTest::newRow("its beginning") << "PMI_RECENT_DOCUMENT" << 2 << false;
    }

    void anEntryInTheMenuIsEnough()
    {
        QFETCH(QString, identifier);
        QFETCH(int, position);
        QFETCH(bool, isEnough);
        FakeMenus inHost;
        inHost.file.children.insert(inHost.file.children.begin() + position,
                                    std::make_unique<FakeMenuItem>(inHost.menus, identifier));
        addRecentDocMenu(&inHost.file, &inHost.primary);
        QCOMPARE(inHost.file.GetChildCount(), isEnough ? 6 : 7);
        QCOMPARE(inHost.menuCalls().isEmpty(), isEnough); // not even to find the definition
    }

    void anEntryInAnotherMenuDoesNotCount()
    {
        FakeMenus inHost;
        inHost.file.child(1).add(browserEntry);
        inHost.primary.addMenu("ID_MnOther").add(browserEntry);
        RecentDocumentBrowser::LoadMenu();
        QCOMPARE(inHost.entries(), QList<int>({1, 1}));
    }

    void theReferenceIsTheSecondEntryFromTheEnd_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<QString>("reference");
        QTest::addColumn<int>("countAfterwards");
        QTest::newRow("no entry") << 0 << " at -2 " << 0; // the host refuses this
        QTest::newRow("one entry") << 1 << " at -1 " << 1;
        QTest::newRow("two entries") << 2 << " at 0 " << 3;
        QTest::newRow("many entries") << 40 << " at 38 " << 41;
    }

    void theReferenceIsTheSecondEntryFromTheEnd()
    {
        QFETCH(int, count);
        QFETCH(QString, reference);
        QFETCH(int, countAfterwards);
        FakeMenus inHost;
        inHost.file.children.clear();
        for (int i = 0; i < count; ++i)
            inHost.file.add(QString("MI_%1").arg(i));
        const int objects = inHost.menus.objectsAlive;
        addRecentDocMenu(&inHost.file, &inHost.primary);
        const QStringList inserts = inHost.menuCalls().filter("insert");
        QCOMPARE(inserts.size(), 1);
        QVERIFY2(inserts.first().contains(reference), qPrintable(inserts.first()));
        QCOMPARE(inHost.file.GetChildCount(), countAfterwards);
        // The definition, and the entry if it was inserted.
        QCOMPARE(inHost.menus.objectsAlive, objects + 1 + (countAfterwards - count));
    }

    void theFirstRecentDocumentAddsTheEntry()
    {
        FakeMenus inHost;
        inHost.host.setRecent({});
        inHost.editorReactor().mainFrameCreated(nullptr);
        QCOMPARE(inHost.definitions(), QList<int>({1, 1}));
        QCOMPARE(inHost.entries(), QList<int>({0, 0}));
        QCOMPARE(inHost.menuCalls().filter("make entry"), QStringList());
        QCOMPARE(inHost.menuCalls().constLast(), "refresh");

        inHost.host.setRecent({"/drawings/a.dwg"});
        inHost.documentReactor().DocumentCreated(nullptr);
        QCOMPARE(inHost.definitions(), QList<int>({1, 1}));
        QCOMPARE(inHost.entries(), QList<int>({1, 1}));
        QCOMPARE(inHost.file.child(4).command, inHost.primary.commands.front().get());
    }

    void aDocumentFillsTheMenusBeforeTheCacheIsEmptied()
    {
        FakeMenus inHost;
        RecentDocumentBrowser::recentFileImageMap.insert("/drawings/a.dwg", QImage());
        int cachedAtRefresh = -1;
        inHost.menus.onCall = [&cachedAtRefresh](const QString &call) {
            if (call == "refresh")
                cachedAtRefresh = RecentDocumentBrowser::recentFileImageMap.size();
        };
        inHost.documentReactor().DocumentCreated(nullptr);
        QCOMPARE(cachedAtRefresh, 1);
        QVERIFY(RecentDocumentBrowser::recentFileImageMap.isEmpty());
    }

    void noHostObjectIsKeptBetweenCalls()
    {
        FakeMenus inHost;
        RecentDocumentBrowser::LoadMenu();
        // The host rebuilds its menus; the former objects are deleted.
        inHost.menus.groups.clear();
        inHost.menus.startUp.reset();
        FakeMenuItem &file = inHost.menus.addGroup("NEW", true).addMenu("ID_MnFile");
        file.add("MI_New");
        file.add("MI_Quit");
        RecentDocumentBrowser::LoadMenu();
        QCOMPARE(childrenOf(file), QStringList({"MI_New", browserEntry, "MI_Quit"}));
        RecentDocumentBrowser::UnLoadMenu(&file);
        RecentDocumentBrowser::SetShortCutKey();
    }

    void anExceptionOfTheHostLeaksNothing()
    {
        FakeMenus inHost;
        inHost.menus.onCall = [](const QString &call) {
            if (call.startsWith("insert"))
                throw std::runtime_error("the host refuses");
        };
        const int objects = inHost.menus.objectsAlive;
        QVERIFY_EXCEPTION_THROWN(RecentDocumentBrowser::LoadMenu(), std::runtime_error);
        QCOMPARE(inHost.menus.objectsAlive, objects + 1); // the definition is in its group
        QCOMPARE(inHost.menus.enumeratorsAlive, 0);
    }

    void theKeyIsBoundToTheDefinition_data() { addTranslationRows(); }
    void theKeyIsBoundToTheDefinition()
    {
        QFETCH(QString, mark);
        MarkingTranslator translator; // its destructor removes it
        if (!mark.isEmpty())
            QCoreApplication::installTranslator(&translator);
        FakeMenus inHost;
        FakeCommand &definition = inHost.primary.addCommand(browserDefinition);
        for (FakeGroup *other : {&inHost.startUp, &inHost.extension}) // their keys do not count
            other->addAccelerator("ACC_Other", QKeySequence(Qt::Key_F4));
        for (int i = 0; i < 2; ++i)
            RecentDocumentBrowser::SetShortCutKey();
        const QStringList once =
            primaryGroupSearch +
            QStringList({"find ID_RECENT_FILES in MAIN", "make accelerator \"\" for ID_RECENT_FILES",
                         "append accelerator \"\" \"" + mark +
                             "Preview Recent Documents...\" F4 for ID_RECENT_FILES to MAIN"});
        QCOMPARE(inHost.menuCalls(), once + primaryGroupSearch + QStringList("find ID_RECENT_FILES in MAIN"));
        QCOMPARE(inHost.keys(), QList<int>({1, 1, 1}));
        QCOMPARE(inHost.primary.accelerators.front()->command, &definition);
    }

    void withoutADefinitionNoKeyIsBound()
    {
        FakeMenus inHost;
        for (FakeGroup *other : {&inHost.startUp, &inHost.extension})
            other->addCommand(browserDefinition);
        RecentDocumentBrowser::SetShortCutKey();
        inHost.primary.isPrimary = false;
        RecentDocumentBrowser::SetShortCutKey();
        QCOMPARE(inHost.keys(), QList<int>({0, 0, 0}));
        QCOMPARE(inHost.menuCalls().filter("make"), QStringList());
    }

    void aKeyInUseIsNotRebound_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<bool>("isTaken");
        QTest::newRow("F4") << "F4" << true;
        QTest::newRow("no key") << "" << false;
        QTest::newRow("F4 with a modifier") << "Ctrl+F4" << false;
        QTest::newRow("F4 as the first of two strokes") << "F4, A" << false;
        QTest::newRow("another key") << "F5" << false;
        QTest::newRow("a key with a name that F4 begins with") << "F" << false;
    }

    void aKeyInUseIsNotRebound()
    {
        QFETCH(QString, key);
        QFETCH(bool, isTaken);
        FakeMenus inHost;
        inHost.primary.addCommand(browserDefinition);
        inHost.primary.addAccelerator("ACC_New", QKeySequence("Ctrl+N"));
        const FakeAccelerator &owner = inHost.primary.addAccelerator("ACC_Other", QKeySequence(key));
        RecentDocumentBrowser::SetShortCutKey();
        QCOMPARE(inHost.primary.GetAcceleratorCount(), isTaken ? 2 : 3);
        QCOMPARE(inHost.menuCalls().filter("make").size(), isTaken ? 0 : 1);
        QCOMPARE(owner.key.toString(QKeySequence::PortableText), key);
        QVERIFY(!owner.command);
    }

    void aKeyThatTheHostCannotCreateIsOmitted()
    {
        FakeMenus inHost;
        inHost.primary.addCommand(browserDefinition);
        inHost.menus.makesAccelerators = false;
        RecentDocumentBrowser::SetShortCutKey();
        QCOMPARE(inHost.menuCalls().filter("make accelerator").size(), 1);
        QCOMPARE(inHost.keys(), QList<int>({0, 0, 0}));
    }

private:
    //! Visible texts are translated, identifiers are not.
    static void addTranslationRows()
    {
        QTest::addColumn<QString>("mark");
        QTest::newRow("untranslated") << "";
        QTest::newRow("translated") << "QObject/";
    }
};

TEST_CLASS(tst_MenuIntegration);
#include "tst_menuintegration.moc"

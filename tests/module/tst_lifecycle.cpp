// SPDX-License-Identifier: MIT
#include "state/FolderPinButton.h"
#include "tests/support/TestCase.h"
#include "tests/support/fake/FakeMenus.h"
#include "ui/QBalloonTip.h"
#include "ui/RecentDocMainWindow.h"

#include <OdEdCommand.h>

#include <QMenu>
#include <QWidgetAction>

namespace {

const QStringList lifecyclePaths = {"/drawings/c.dwg", "/drawings/a.dwg", "/drawings/b.dwg"};

//! The registry's contents on recent documents.
struct Registry
{
    QList<FolderPinButton *> pins = RecentDocumentBrowser::menuPinButtonList;
    QList<QAction *> entries = RecentDocumentBrowser::recentDocActionList;
    QMenu *menu = RecentDocumentBrowser::recentDocMenu;
    QStringList pictures = RecentDocumentBrowser::recentFileImageMap.keys();

    bool operator==(const Registry &other) const
    {
        return pins == other.pins && entries == other.entries && menu == other.menu &&
               pictures == other.pictures;
    }
    QStringList pinnedPaths() const
    {
        QStringList paths;
        for (const FolderPinButton *pin : pins)
            paths.append(pin->path());
        return paths;
    }
};

//! The module in a host with three recent documents, notified of one document; a picture is in the cache.
struct ModuleWithDocuments : FakeModule
{
    ModuleWithDocuments()
    {
        host.setRecent(lifecyclePaths);
        documentReactor().DocumentCreated(nullptr);
        RecentDocumentBrowser::recentFileImageMap.insert(lifecyclePaths.first(), QImage());
        host.calls.clear();
    }
};

} // namespace

//! The module's calls to the host, from its start to its end, and its reactions to the host's events.
class tst_Lifecycle : public TestCase
{
    Q_OBJECT

private slots:
    void registrationsAreAddedAndRemovedInOrder()
    {
        FakeMenus inHost;
        FakeHost &host = inHost.host;
        inHost.module->initApp();
        QCOMPARE(host.calls,
                 QStringList({"stack taken", "stack add _RECENT", "stack released", "documents add reactor",
                              "editor taken", "editor add reactor", "editor released"}));
        QVERIFY(host.documentReactors == std::vector<CFxDocumentManagerReactor *>{&inHost.documentReactor()});
        QVERIFY(host.editorReactors == std::vector<OdEditorReactor *>{&inHost.editorReactor()});
        QCOMPARE(host.commands.front()->flags(), std::uint32_t(0x40000000)); // its meaning is the host's

        const QStringList lookUpHelp = {"stack taken", "stack lookup _RHELP 3 \"\"", "stack released"};
        host.calls.clear();
        inHost.module->uninitApp();
        QCOMPARE(host.calls, QStringList());
        inHost.editorReactor().mainFrameCreated(nullptr);
        QCOMPARE(inHost.entries(), QList<int>({1, 1}));
        QCOMPARE(QStringList(host.calls.mid(host.calls.indexOf("menus refresh") + 1)),
                 lookUpHelp + QStringList({"stack taken", "stack add _RHELP", "stack released"}));

        host.calls.clear();
        inHost.editorReactor().mainFrameDestroyed(nullptr);
        const auto isOfMenus = [](const QString &call) { return call.startsWith("menus "); };
        const auto menus = std::find_if(host.calls.begin(), host.calls.end(), isOfMenus);
        QVERIFY(menus != host.calls.end());
        host.calls.erase(std::remove_if(menus + 1, host.calls.end(), isOfMenus), host.calls.end());
        QCOMPARE(host.calls, QStringList({"stack taken", "stack remove _RECENT", "stack released",
                                          "documents remove reactor", "editor taken", "editor remove reactor",
                                          "editor released", "menus start-up group"}) +
                                 lookUpHelp +
                                 QStringList({"stack taken", "stack remove _RHELP", "stack released"}));
        QVERIFY(host.commands.empty() && host.documentReactors.empty() && host.editorReactors.empty());
    }

    void noObjectOfTheModuleOutlivesIt()
    {
        const int menusBefore = parentlessMenus();
        ModuleWithDocuments inHost;
        inHost.module->initApp();
        inHost.editorReactor().mainFrameCreated(nullptr);
        inHost.documentReactor().DocumentCreated(nullptr);

        QVector<QPointer<QObject>> made;
        for (QAction *entry : qAsConst(RecentDocumentBrowser::recentDocActionList))
            made << entry << qobject_cast<QWidgetAction *>(entry)->defaultWidget();
        for (FolderPinButton *pin : qAsConst(RecentDocumentBrowser::menuPinButtonList))
            made << pin;
        auto *popup = new RecentDocMainWindow(&inHost.host.mainWindow());
        popup->show();
        made << RecentDocumentBrowser::recentDocMenu << popup << new RecentDocMainWindow(nullptr);
        QBalloonTip::showBalloon(QImage(), "title", "text", QPoint(), 0, true);

        inHost.editorReactor().mainFrameDestroyed(nullptr);
        inHost.module->uninitApp();
        inHost.end();
        QCOMPARE(made.count(nullptr), made.size());
        QCOMPARE(parentlessMenus(), menusBefore);
        QVERIFY(!QBalloonTip::isBalloonVisible());
    }

    void aModuleCreatedAgainStartsEmpty()
    {
        QMenu menu;
        {
            const ModuleWithDocuments former;
            RecentDocumentBrowser::AddRecentFiles(&menu, menu.addAction("Quit"));
            (new RecentDocMainWindow(nullptr))->show();
        }
        const FakeModule inHost;
        QVERIFY(Registry() == (Registry{{}, {}, nullptr, {}}));
        QVERIFY(RecentDocumentBrowser::recentDocDialogList.isEmpty());
        QVERIFY(RecentDocumentBrowser::docPinButtonList.isEmpty());
        QVERIFY(folderButtonList.isEmpty());
        QVERIFY(!RecentDocumentBrowser::before);
    }

    void aDocumentChangesNothingWhileNoneIsRecent()
    {
        // An empty list, no list, no services.
        const QPair<bool, bool> cases[] = {{true, true}, {true, false}, {false, true}};
        for (const auto &[services, list] : cases) {
            ModuleWithDocuments inHost;
            const Registry before;
            const int menus = parentlessMenus();
            inHost.host.hasCustomization = true;
            inHost.host.setRecent({});
            inHost.host.hasServices = services;
            inHost.host.hasRecentFileList = list;
            inHost.documentReactor().DocumentCreated(nullptr);
            QVERIFY(Registry() == before);
            QCOMPARE(parentlessMenus(), menus);
            QCOMPARE(inHost.host.calls, QStringList()); // not even to the menus
        }
    }

    void aDocumentEmptiesTheCacheAndRebuildsTheEntries()
    {
        ModuleWithDocuments inHost;
        const QPointer<QMenu> first = RecentDocumentBrowser::recentDocMenu;
        inHost.host.setRecent(lifecyclePaths.mid(1));
        inHost.documentReactor().DocumentCreated(nullptr);
        const Registry now;
        QCOMPARE(now.pictures, QStringList());
        QCOMPARE(now.pinnedPaths(), lifecyclePaths.mid(1));
        QVERIFY(!RecentDocumentBrowser::before);
        const QList<QAction *> inMenu = now.menu->actions();
        QCOMPARE(inMenu.mid(1, inMenu.size() - 2), now.entries);
        drainEvents();
        QVERIFY(first && first != now.menu); // a host's menu built from it may still be on screen
        QVERIFY(!first->parent() && !now.menu->parent());
        QVERIFY(!first->isVisible() && !now.menu->isVisible());
    }

    void theOtherEventsChangeNothing()
    {
        ModuleWithDocuments inHost;
        const Registry before;
        const CFxString path(lifecyclePaths.first());
        CFxDocumentManagerReactor &documents = inHost.documentReactor();
        documents.DocumentCreateStarted(nullptr);
        documents.DocumentToBeDestroyed(nullptr);
        documents.DocumentDestroyed(path);
        documents.DocumentActivated(nullptr);
        documents.DocumentBecameCurrent(nullptr);
        documents.DocumentPreOpen(path);
        CFxEditorReactor &editor = inHost.editorReactor();
        editor.appActivated();
        editor.appDeactivated();
        editor.windowStateChanged(nullptr);
        editor.cancelDwgOpen(path);
        editor.commandWillStart(L"_RECENT");
        editor.commandEnded(L"_RECENT", 5100);
        QCOMPARE(inHost.host.calls, QStringList());
        QVERIFY(Registry() == before);
    }
};

TEST_CLASS(tst_Lifecycle);
#include "tst_lifecycle.moc"

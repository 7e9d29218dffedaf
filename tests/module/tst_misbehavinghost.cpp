// SPDX-License-Identifier: MIT
#include "module/HostAccess.h"
#include "module/OdRxUnixModuleRecentDocumentBrowser.h"
#include "state/FolderPinButton.h"
#include "tests/support/OpeningHost.h"
#include "tests/support/TestCase.h"
#include "ui/RecentDocDialog.h"
#include "ui/RecentDocMainWindow.h"

#include <QDir>
#include <QMenu>

#include <algorithm>
#include <iterator>
#include <stdexcept>

namespace {

using Way = OpeningHost::Way;

//! What happens in the host's open operation, each time.
struct Deed
{
    const char *name = nullptr;
    OpeningHost::Deed act = nullptr;
    bool ends = false; //!< nothing more can be opened then
};

const Deed deeds[] = {
    {"nothing", [](OpeningHost &) {}},
    {"it opens another drawing",
     [](OpeningHost &scene) {
         scene.host.onOpen = nullptr; // and that one is opened in peace
         HostAccess::openDocument(scene.browser.path(3));
         scene.browser.createDocument();
     }},
    {"it tells of a new drawing", [](OpeningHost &scene) { scene.browser.createDocument(); }},
    {"it runs events", [](OpeningHost &) { drainEvents(); }},
    {"it tells of a new drawing and runs events",
     [](OpeningHost &scene) {
         scene.browser.createDocument();
         drainEvents();
     }},
    {"it closes the popups",
     [](OpeningHost &) {
         const auto shown = Browser::popups();
         std::for_each(shown.begin(), shown.end(), std::mem_fn(&QWidget::close));
     }},
    {"it deletes the popups", [](OpeningHost &) { qDeleteAll(Browser::popups()); }},
    {"it deletes the menu", [](OpeningHost &scene) { delete scene.menu; }},
    {"it deletes the menu's entries",
     [](OpeningHost &scene) { qDeleteAll(scene.menu ? scene.menu->actions() : QList<QAction *>()); }},
    {"it deletes the main window", [](OpeningHost &scene) { scene.host.deleteMainWindow(); }},
    {"it ends the main frame",
     [](OpeningHost &scene) { scene.browser.module().mainFrameDestroyed(nullptr); }},
    {"it forgets the module",
     [](OpeningHost &scene) {
         scene.host.commands.clear();
         scene.host.documentReactors.clear();
         scene.host.editorReactors.clear();
     }},
    {"it changes its recent documents",
     [](OpeningHost &scene) {
         scene.host.setRecent({scene.browser.path(3)});
         scene.browser.createDocument();
     }},
    {"it opens the browser anew", [](OpeningHost &) { OpeningHost::runRecent(); }},
    {"its services go", [](OpeningHost &scene) { scene.host.hasServices = false; }, true},
    {"its document manager goes", [](OpeningHost &scene) { scene.host.hasDocumentManager = false; }, true},
};

} // namespace

//! A host that does to the module, amid the module's own work, what a host better would not.
class tst_MisbehavingHost : public TestCase
{
    Q_OBJECT

private slots:
    void whateverHappensWhileADrawingIsOpened_data()
    {
        QTest::addColumn<int>("deed");
        QTest::addColumn<Way>("way");
        for (int i = 0; i < int(std::size(deeds)); ++i) {
            QTest::addRow("Enter: %s", deeds[i].name) << i << Way::Enter;
            QTest::addRow("double-click: %s", deeds[i].name) << i << Way::TwoClicks;
            QTest::addRow("menu entry: %s", deeds[i].name) << i << Way::MenuEntry;
            QTest::addRow("a drag's end: %s", deeds[i].name) << i << Way::DragOut;
        }
    }

    void whateverHappensWhileADrawingIsOpened()
    {
        QFETCH(int, deed);
        QFETCH(Way, way);
        OpeningHost scene;
        scene.host.onOpen = [&](const QString &) { deeds[deed].act(scene); };

        QStringList expected = scene.open(way);
        if (deeds[deed].ends)
            expected = expected.mid(0, 1);
        scene.host.onOpen = nullptr;
        QStringList opened = scene.host.openedPaths();
        opened.removeAll(scene.browser.path(3)); // what the host opened of its own accord
        QCOMPARE(opened, expected);
        drainEvents();
        QVERIFY(!scene.popup || way == Way::MenuEntry);
        qDeleteAll(Browser::popups());

        // And everything works as before.
        scene.host.hasServices = true;
        scene.host.hasDocumentManager = true;
        scene.browser.createDocument();
        QPointer<RecentDocMainWindow> popup = OpeningHost::runRecent();
        QVERIFY(popup && !scene.browser.tiles().isEmpty());
        const QString first = scene.browser.tiles().constFirst()->path();
        QTest::keyClick(popup, Qt::Key_Return);
        QCOMPARE(scene.host.openedPaths().constLast(), first);
        drainEvents();
        QVERIFY(!popup);
        QCOMPARE(scene.host.openReferences, 0);
    }

    void theMainWindowMayGoUnderAnOpenPopup_data()
    {
        QTest::addColumn<bool>("isTold");
        QTest::addColumn<bool>("isHeld");
        QTest::newRow("told, a tile is held") << true << true;
        QTest::newRow("told, at rest") << true << false;
        QTest::newRow("untold, a tile is held") << false << true;
        QTest::newRow("untold, at rest") << false << false;
    }

    void theMainWindowMayGoUnderAnOpenPopup()
    {
        QFETCH(bool, isTold);
        QFETCH(bool, isHeld);
        OpeningHost scene;
        QTest::mouseMove(Browser::button(scene.tile(0), "pinButton")); // a balloon would be due soon
        if (isHeld)
            scene.hold(scene.tile(1));
        if (isTold)
            scene.browser.module().mainFrameDestroyed(&scene.host.mainWindow());
        scene.host.deleteMainWindow();
        QVERIFY(!scene.popup);
        drainEvents();
        QCOMPARE(scene.host.openedPaths(), QStringList());

        scene.browser.createDocument(); // which nobody should tell any more
        const QPointer<RecentDocMainWindow> popup = OpeningHost::runRecent();
        QVERIFY(popup && !popup->parentWidget());
        QTest::keyClick(popup, Qt::Key_Return);
        QCOMPARE(scene.host.openedPaths(), QStringList(scene.browser.path(0)));
    }

    void whatOpensIsWhatTheTileSays_data()
    {
        using Change = OpeningHost::Deed;
        QTest::addColumn<Change>("change");
        const auto row = [](const char *name, Change change) { QTest::newRow(name) << change; };
        row("the list is emptied", [](OpeningHost &scene) { scene.host.setRecent({}); });
        row("the list is turned round", [](OpeningHost &scene) {
            QStringList paths = scene.browser.paths();
            std::reverse(paths.begin(), paths.end());
            scene.host.setRecent(paths);
        });
        row("the list is another", [](OpeningHost &scene) { scene.host.setRecent({"/x.dwg", "/y.dwg"}); });
        row("there is no list", [](OpeningHost &scene) { scene.host.hasRecentFileList = false; });
        row("the files are gone",
            [](OpeningHost &scene) { QDir(scene.browser.folder()).removeRecursively(); });
    }

    void whatOpensIsWhatTheTileSays()
    {
        using Change = OpeningHost::Deed;
        QFETCH(Change, change);
        for (const bool isTold : {false, true}) {
            OpeningHost scene;
            change(scene);
            if (isTold)
                scene.browser.createDocument();
            QTest::keyClick(scene.popup, Qt::Key_Right);
            QTest::keyClick(scene.popup, Qt::Key_Right, Qt::ShiftModifier);
            Browser::button(scene.tile(1), "pinButton")->click(); // whose menu entry may be another now
            QTest::keyClick(scene.popup, Qt::Key_Return);
            QCOMPARE(scene.host.openedPaths(), QStringList({scene.browser.path(1), scene.browser.path(2)}));
        }
    }

    //! The drag itself, which needs a display, has its tests there.
    void aDrawingMayBeMadeWhileATileIsHeld()
    {
        OpeningHost scene;
        const QPointer<RecentDocDialog> held = scene.tile(1);
        scene.hold(held);
        scene.host.setRecent({scene.browser.path(3)});
        scene.browser.createDocument();
        QCOMPARE(scene.popup->dragDialog.data(), held.data());
        const QStringList expected = scene.open(Way::DragOut);
        QCOMPARE(scene.host.openedPaths(), expected);
        drainEvents();
        QVERIFY(!scene.popup && !held);
    }

    void aDrawingMayBeMadeUnderAnOpenMenu()
    {
        OpeningHost scene;
        const auto pins = scene.menu->findChildren<FolderPinButton *>("pinButton");
        const auto texts = scene.menu->findChildren<FolderPinButton *>("menuTextButton");
        QCOMPARE(pins.size(), 4);
        scene.browser.createDocument();
        const QList<FolderPinButton *> hiddenPins = RecentDocumentBrowser::menuPinButtonList;
        QCOMPARE(hiddenPins.size(), 4);

        QTest::mouseClick(pins.at(2), Qt::LeftButton); // of an entry that counts no longer
        QVERIFY(scene.menu->isVisible());
        QCOMPARE(RecentDocumentBrowser::menuPinButtonList, hiddenPins);
        for (const FolderPinButton *pin : hiddenPins)
            QVERIFY(!pin->isChecked());
        QTest::mouseClick(texts.at(2), Qt::LeftButton);
        QCOMPARE(scene.host.openedPaths(), QStringList(scene.browser.path(2)));
    }

    //! Called directly: an exception may not pass through Qt, so a host throws none where Qt has called the
    //! module.
    void whatOpeningThrowsPassesThrough()
    {
        OpeningHost scene;
        QString path = scene.browser.path(2);
        const std::function<void()> openings[] = {
            [&] { scene.tile(1)->OpenDocument(); },
            [&] { Browser::button(scene.menu, "menuTextButton")->OpenDocument(path); },
            [&] {
                scene.tile(1)->highlight();
                scene.popup->multiDocumentOpen();
            },
        };
        scene.host.onOpen = [](const QString &) { throw std::runtime_error("the host gives up"); };
        for (const auto &open : openings)
            QVERIFY_EXCEPTION_THROWN(open(), std::runtime_error);
        // The popup had closed before the first of its two, and the second was not tried.
        QCOMPARE(scene.host.openedPaths(), QStringList({scene.browser.path(1), path, scene.browser.path(0)}));
        drainEvents();
        QVERIFY(!scene.popup);
        QCOMPARE(scene.host.openReferences, 0);

        scene.host.onOpen = nullptr;
        QTest::keyClick(OpeningHost::runRecent(), Qt::Key_Return);
        QCOMPARE(scene.host.openedPaths().constLast(), scene.browser.path(0));
    }

    void whatRunningACommandThrowsPassesThrough()
    {
        FakeHost host;
        host.onRunCommand = [](const QString &) { throw 7; };
        QVERIFY_EXCEPTION_THROWN(HostAccess::runCommand(L"_RHELP"), int);
        QCOMPARE(host.openReferences, 0);
    }
};

TEST_CLASS(tst_MisbehavingHost);
#include "tst_misbehavinghost.moc"

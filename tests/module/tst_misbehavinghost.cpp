// SPDX-License-Identifier: MIT
#include "module/CFxRecentDocCommand.h"
#include "module/HostAccess.h"
#include "module/OdRxUnixModuleRecentDocumentBrowser.h"
#include "state/FolderPinButton.h"
#include "tests/support/TestCase.h"
#include "tests/support/fake/FakeBrowser.h"
#include "ui/RecentDocDialog.h"
#include "ui/RecentDocMainWindow.h"

#include <OdStaticRxObject.h>

#include <QCursor>
#include <QMenu>
#include <QMouseEvent>
#include <QPointer>

#include <algorithm>
#include <iterator>
#include <stdexcept>

//! A host with four drawings, a menu of the module's entries that is open, and a popup; and the ways in which
//! the user opens drawings there. FakeHost::onOpen is called meanwhile.
class FakeOpening
{
public:
    enum class Way { Enter, TwoClicks, MenuEntry, DragOut };
    using Action = void (*)(FakeOpening &);

    FakeOpening()
    {
        browser.module().initApp();
        browser.createDocument();
        RecentDocumentBrowser::AddRecentFiles(menu, nullptr);
        popup = browser.openPopup();
        drainEvents();
        QCursor::setPos(popup->geometry().center()); // so that it stays open when the menu takes the focus
        menu->popup(popup->geometry().topLeft() + QPoint(5, 5));
    }

    //! Opens by that way, through the events that Qt would send. \return the paths that should be opened
    QStringList open(Way way) const
    {
        switch (way) {
        case Way::Enter:
            QTest::keyClick(popup, Qt::Key_Right, Qt::ShiftModifier);
            QTest::keyClick(popup, Qt::Key_Return);
            return {browser.path(0), browser.path(1)};
        case Way::TwoClicks:
            QTest::mouseDClick(tile(1), Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
            return {browser.path(1)};
        case Way::MenuEntry:
            QTest::mouseClick(FakeBrowser::button(menu, "menuTextButton"), Qt::LeftButton);
            return {browser.path(0)};
        case Way::DragOut:
            break;
        }
        tile(2)->highlight();
        hold(tile(1));
        popup->isCollapsed = true;
        QMouseEvent move(QEvent::MouseMove, popup->pressPoint + QPoint(40, 0), Qt::NoButton, Qt::LeftButton,
                         Qt::NoModifier);
        QCoreApplication::sendEvent(popup, &move);
        return {browser.path(0), browser.path(2)};
    }

    //! Presses the mouse on a tile, as a drag of it begins.
    void hold(const RecentDocDialog *tile) const
    {
        QMouseEvent press(QEvent::MouseButtonPress, tile->geometry().center(), Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(popup, &press);
    }

    RecentDocDialog *tile(int index) const { return browser.tiles().at(index); }
    //! Runs "_RECENT". \return the popup that it opens
    static RecentDocMainWindow *runRecent()
    {
        const QList<RecentDocMainWindow *> before = FakeBrowser::popups();
        OdStaticRxObject<CFxRecentDocCommand> command;
        command.Execute(nullptr);
        const QList<RecentDocMainWindow *> after = FakeBrowser::popups();
        for (RecentDocMainWindow *popup : after) {
            if (!before.contains(popup))
                return popup;
        }
        return nullptr;
    }

    FakeBrowser browser{4};
    FakeHost &host = browser.host;
    QPointer<QMenu> menu = new QMenu;
    QPointer<RecentDocMainWindow> popup;

    ~FakeOpening() { delete menu; }
    Q_DISABLE_COPY(FakeOpening)
};

Q_DECLARE_METATYPE(FakeOpening::Way)
Q_DECLARE_METATYPE(FakeOpening::Action)

namespace {

using Way = FakeOpening::Way;

//! What the host does during each open operation.
struct Action
{
    const char *name = nullptr;
    void (*run)(FakeOpening &) = nullptr;
    bool ends = false; //!< whether no drawing can be opened afterwards
};

const Action actions[] = {
    {"nothing", [](FakeOpening &) {}},
    {"it opens another drawing",
     [](FakeOpening &scene) {
         scene.host.onOpen = nullptr; // no recursion
         HostAccess::openDocument(scene.browser.path(3));
         scene.browser.createDocument();
     }},
    {"it notifies of a new drawing", [](FakeOpening &scene) { scene.browser.createDocument(); }},
    {"it runs events", [](FakeOpening &) { drainEvents(); }},
    {"it notifies of a new drawing and runs events",
     [](FakeOpening &scene) {
         scene.browser.createDocument();
         drainEvents();
     }},
    {"it closes the popups",
     [](FakeOpening &) {
         const auto shown = FakeBrowser::popups();
         std::for_each(shown.begin(), shown.end(), std::mem_fn(&QWidget::close));
     }},
    {"it deletes the popups", [](FakeOpening &) { qDeleteAll(FakeBrowser::popups()); }},
    {"it deletes the menu", [](FakeOpening &scene) { delete scene.menu; }},
    {"it deletes the menu's entries",
     [](FakeOpening &scene) { qDeleteAll(scene.menu ? scene.menu->actions() : QList<QAction *>()); }},
    {"it deletes the main window", [](FakeOpening &scene) { scene.host.deleteMainWindow(); }},
    {"it ends the main frame",
     [](FakeOpening &scene) { scene.browser.module().mainFrameDestroyed(nullptr); }},
    {"it forgets the module",
     [](FakeOpening &scene) {
         scene.host.commands.clear();
         scene.host.documentReactors.clear();
         scene.host.editorReactors.clear();
     }},
    {"it changes its recent documents",
     [](FakeOpening &scene) {
         scene.host.setRecent({scene.browser.path(3)});
         scene.browser.createDocument();
     }},
    {"it opens the browser again", [](FakeOpening &) { FakeOpening::runRecent(); }},
    {"its services end", [](FakeOpening &scene) { scene.host.hasServices = false; }, true},
    {"its document manager ends", [](FakeOpening &scene) { scene.host.hasDocumentManager = false; }, true},
};

} // namespace

//! A host that interferes while the module works.
class tst_MisbehavingHost : public TestCase
{
    Q_OBJECT

private slots:
    void theHostMayDoAnythingWhileADrawingIsOpened_data()
    {
        QTest::addColumn<int>("action");
        QTest::addColumn<Way>("way");
        for (int i = 0; i < int(std::size(actions)); ++i) {
            QTest::addRow("Enter: %s", actions[i].name) << i << Way::Enter;
            QTest::addRow("double-click: %s", actions[i].name) << i << Way::TwoClicks;
            QTest::addRow("menu entry: %s", actions[i].name) << i << Way::MenuEntry;
            QTest::addRow("a drag's end: %s", actions[i].name) << i << Way::DragOut;
        }
    }

    void theHostMayDoAnythingWhileADrawingIsOpened()
    {
        QFETCH(int, action);
        QFETCH(Way, way);
        FakeOpening scene;
        scene.host.onOpen = [&](const QString &) { actions[action].run(scene); };

        QStringList expected = scene.open(way);
        if (actions[action].ends)
            expected = expected.mid(0, 1);
        scene.host.onOpen = nullptr;
        QStringList opened = scene.host.openedPaths();
        opened.removeAll(scene.browser.path(3)); // opened by the host itself
        QCOMPARE(opened, expected);
        drainEvents();
        QVERIFY(!scene.popup || way == Way::MenuEntry);
        qDeleteAll(FakeBrowser::popups());

        // Everything works as before.
        scene.host.hasServices = true;
        scene.host.hasDocumentManager = true;
        scene.browser.createDocument();
        QPointer<RecentDocMainWindow> popup = FakeOpening::runRecent();
        QVERIFY(popup && !scene.browser.tiles().isEmpty());
        const QString first = scene.browser.tiles().constFirst()->path();
        QTest::keyClick(popup, Qt::Key_Return);
        QCOMPARE(scene.host.openedPaths().constLast(), first);
        drainEvents();
        QVERIFY(!popup);
        QCOMPARE(scene.host.openReferences, 0);
    }

    void theMainWindowMayBeDeletedUnderAnOpenPopup()
    {
        const QPair<bool, bool> cases[] = {{false, false}, {false, true}, {true, false}, {true, true}};
        for (const auto &[isNotified, isHeld] : cases) {
            FakeOpening scene;
            QTest::mouseMove(FakeBrowser::button(scene.tile(0), "pinButton")); // a balloon is due soon
            if (isHeld)
                scene.hold(scene.tile(1));
            if (isNotified)
                scene.browser.module().mainFrameDestroyed(&scene.host.mainWindow());
            scene.host.deleteMainWindow();
            QVERIFY(!scene.popup);
            drainEvents();
            QCOMPARE(scene.host.openedPaths(), QStringList());

            scene.browser.createDocument(); // the module is notified no longer
            const QPointer<RecentDocMainWindow> popup = FakeOpening::runRecent();
            QVERIFY(popup && !popup->parentWidget());
            QTest::keyClick(popup, Qt::Key_Return);
            QCOMPARE(scene.host.openedPaths(), QStringList(scene.browser.path(0)));
        }
    }

    void theDrawingOfTheTileIsOpened_data()
    {
        using Change = FakeOpening::Action;
        QTest::addColumn<Change>("change");
        const auto row = [](const char *name, Change change) { QTest::newRow(name) << change; };
        row("the list is emptied", [](FakeOpening &scene) { scene.host.setRecent({}); });
        row("the list is reversed", [](FakeOpening &scene) {
            QStringList paths = scene.browser.paths();
            std::reverse(paths.begin(), paths.end());
            scene.host.setRecent(paths);
        });
        row("the list is replaced", [](FakeOpening &scene) { scene.host.setRecent({"/x.dwg", "/y.dwg"}); });
        row("there is no list", [](FakeOpening &scene) { scene.host.hasRecentFileList = false; });
        row("the files are deleted",
            [](FakeOpening &scene) { QDir(scene.browser.folder()).removeRecursively(); });
    }

    void theDrawingOfTheTileIsOpened()
    {
        using Change = FakeOpening::Action;
        QFETCH(Change, change);
        for (const bool isNotified : {false, true}) {
            FakeOpening scene;
            change(scene);
            if (isNotified)
                scene.browser.createDocument();
            QTest::keyClick(scene.popup, Qt::Key_Right);
            QTest::keyClick(scene.popup, Qt::Key_Right, Qt::ShiftModifier);
            FakeBrowser::button(scene.tile(1), "pinButton")->click(); // its menu entry may have changed
            QTest::keyClick(scene.popup, Qt::Key_Return);
            QCOMPARE(scene.host.openedPaths(), QStringList({scene.browser.path(1), scene.browser.path(2)}));
        }
    }

    //! The drag itself needs a display: desktop/tst_draglife has it.
    void aDrawingMayBeCreatedWhileATileIsHeld()
    {
        FakeOpening scene;
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

    void aDrawingMayBeCreatedUnderAnOpenMenu()
    {
        FakeOpening scene;
        const auto pins = scene.menu->findChildren<FolderPinButton *>("pinButton");
        const auto texts = scene.menu->findChildren<FolderPinButton *>("menuTextButton");
        QCOMPARE(pins.size(), 4);
        scene.browser.createDocument();
        const QList<FolderPinButton *> hiddenPins = RecentDocumentBrowser::menuPinButtonList;
        QCOMPARE(hiddenPins.size(), 4);

        QTest::mouseClick(pins.at(2), Qt::LeftButton); // its entry is not in the registry
        QVERIFY(scene.menu->isVisible());
        QCOMPARE(RecentDocumentBrowser::menuPinButtonList, hiddenPins);
        for (const FolderPinButton *pin : hiddenPins)
            QVERIFY(!pin->isChecked());
        QTest::mouseClick(texts.at(2), Qt::LeftButton);
        QCOMPARE(scene.host.openedPaths(), QStringList(scene.browser.path(2)));
    }

    //! Called directly: an exception must not pass through Qt's event loop.
    void exceptionsFromOpeningArePropagated()
    {
        FakeOpening scene;
        QString path = scene.browser.path(2);
        const std::function<void()> openings[] = {
            [&] { scene.tile(1)->OpenDocument(); },
            [&] { FakeBrowser::button(scene.menu, "menuTextButton")->OpenDocument(path); },
            [&] {
                scene.tile(1)->highlight();
                scene.popup->multiDocumentOpen();
            },
        };
        scene.host.onOpen = [](const QString &) { throw std::runtime_error("the host refuses"); };
        for (const auto &open : openings)
            QVERIFY_EXCEPTION_THROWN(open(), std::runtime_error);
        // The popup was closed before the first of its two drawings, and the second one was not tried.
        QCOMPARE(scene.host.openedPaths(), QStringList({scene.browser.path(1), path, scene.browser.path(0)}));
        drainEvents();
        QVERIFY(!scene.popup);
        QCOMPARE(scene.host.openReferences, 0);

        scene.host.onOpen = nullptr;
        QTest::keyClick(FakeOpening::runRecent(), Qt::Key_Return);
        QCOMPARE(scene.host.openedPaths().constLast(), scene.browser.path(0));
    }

    void exceptionsFromRunningACommandArePropagated()
    {
        FakeHost host;
        host.onRunCommand = [](const QString &) { throw 7; };
        QVERIFY_EXCEPTION_THROWN(HostAccess::runCommand(L"_RHELP"), int);
        QCOMPARE(host.openReferences, 0);
    }
};

TEST_CLASS(tst_MisbehavingHost);
#include "tst_misbehavinghost.moc"

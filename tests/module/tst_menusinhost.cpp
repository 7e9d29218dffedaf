// SPDX-License-Identifier: MIT
#include "host/app/MenuBuilder.h"
#include "host/runtime/commands/CommandRunner.h"
#include "host/runtime/documents/DocumentManager.h"
#include "host/runtime/modules/ModuleManager.h"
#include "host/runtime/recent/RecentFiles.h"
#include "tests/support/MenuChildren.h"
#include "tests/support/TestCase.h"
#include "tests/support/TestModules.h"
#include "tests/support/real/RealBrowser.h"
#include "tests/support/real/RealHost.h"

#include <RecentDocumentBrowserExports.h>
#include <sdkhost/Customization.h>
#include <sdkhost/UIMenuItem.h>

#include <QDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QToolButton>
#include <QWidgetAction>

#include <dlfcn.h>

using RecentDocumentBrowserExports::addRecentFiles;
using RecentDocumentBrowserExports::setShortCutKey;
using sdkhost::UIGroup;
using sdkhost::UIMenuItem;

namespace {

//! What a File menu has after its first entry.
enum class Second { None, Open, RecentFiles };

//! Adds one definition, a Window menu, and after it a File menu.
void addGroup(UIGroup &group, Second second)
{
    CFxUICommand &command = group.addCommand(L"ID_New", L"New", L"^C^C_NEW");
    group.addMenu(L"ID_MnWindow", L"&Window");
    UIMenuItem &file = group.addMenu(L"ID_MnFile", L"&File");
    file.add(UIMenuItem::Kind::Entry, L"MI_New", L"&New", &command);
    if (second == Second::Open)
        file.add(UIMenuItem::Kind::Entry, L"MI_Open", L"&Open", &command);
    else if (second == Second::RecentFiles)
        file.add(UIMenuItem::Kind::RecentFiles, L"ID_RECENT_FILES_MENU", L"&Recent");
    file.addSeparator();
    file.add(UIMenuItem::Kind::Entry, L"MI_Quit", L"E&xit", &command);
}

//! An extension's group without a File menu, the primary group and the start-up menus.
void addMenus(sdkhost::Customization &customization, Second second)
{
    customization.addGroup(L"EXTENSION", false);
    addGroup(customization.addGroup(L"MAIN", true), second);
    addGroup(customization.addStartUpGroup(L"START"), Second::None);
}

//! The built module in the host runtime with menus of its own, before the host is notified of its main
//! window.
class HostWithMenus
{
public:
    //! \param second None for a host without menus
    explicit HostWithMenus(Second second = Second::Open)
    {
        if (second != Second::None)
            addMenus(customization(), second);
        if (!running.host.modules().load(MODULE_FILE))
            qFatal("the module cannot be loaded");
        window.resize(1300, 800);
        window.show();
    }
    ~HostWithMenus() { running.host.setMainWindow(nullptr); }
    Q_DISABLE_COPY(HostWithMenus)

    //! Sets the main window, with one recent document.
    void begin()
    {
        running.host.recentFiles().setPaths({running.makeDrawing("a.dwg")});
        running.host.setMainWindow(&window);
    }

    fxhost::Customization &customization() { return running.host.customization(); }
    void *library() { return running.host.modules().libraries().front(); }
    UIGroup &primary() { return *customization().primaryGroup(); }
    CFxUIGroup &startUp() { return *customization().GetStartUpGroup(); }
    CFxUIMenuItem &file() { return *primary().GetMenu(1); }

    //! The entries of both File menus, separators as "".
    QList<QStringList> entries() { return {childrenOf(file()), childrenOf(*startUp().GetMenu(1))}; }
    //! The primary group's keys in order, like "F4 ID_New".
    QStringList keys()
    {
        QStringList lines;
        for (int i = 0; i < primary().GetAcceleratorCount(); ++i) {
            const CFxUIAccelerator *key = primary().GetAccelerator(i);
            lines.append(key->GetKey().toString(QKeySequence::PortableText) + ' ' +
                         QString(key->GetCommand()->GetIdentifier()));
        }
        return lines;
    }

    RealHost running;
    QMainWindow window;
};

//! The built module with three recent documents, and the host's menu of these.
class HostWithRecentMenu : public HostWithMenus
{
public:
    HostWithRecentMenu() : HostWithMenus(Second::RecentFiles)
    {
        builder.setGroup(&primary());
        menu = window.findChild<QMenu *>("ID_RECENT_FILES_MENU");
        list({"a.dwg", "b.dwg", "c.dwg"});
        running.host.setMainWindow(&window);
    }

    void list(const QStringList &names)
    {
        QStringList paths;
        for (const QString &name : names)
            paths.append(running.makeDrawing(name));
        running.host.recentFiles().setPaths(paths);
    }

    QList<QWidgetAction *> entries() const
    {
        QList<QWidgetAction *> found;
        const QList<QAction *> actions = menu->actions();
        for (QAction *action : actions) {
            if (auto *entry = qobject_cast<QWidgetAction *>(action))
                found.append(entry);
        }
        return found;
    }
    QToolButton *button(int entry, const char *name) const
    {
        return RealBrowser::button(entries().at(entry)->defaultWidget(), name);
    }
    //! The entries of the opened menu with their keys, and whether they are the module's and pinned.
    QStringList lines() const
    {
        emit menu->aboutToShow();
        QStringList lines;
        const QList<QAction *> actions = menu->actions();
        for (QAction *action : actions) {
            auto *entry = qobject_cast<QWidgetAction *>(action);
            QWidget *widget = entry ? entry->defaultWidget() : nullptr;
            const bool isPinned = widget && RealBrowser::button(widget, "pinButton")->isChecked();
            const QString text =
                widget ? RealBrowser::button(widget, "menuTextButton")->text() : action->text();
            if (text != action->text())
                lines.append(text + " has the key of " + action->text());
            else if (!action->isSeparator())
                lines.append(text.left(3) + QFileInfo(text).fileName() +
                             (isPinned ? " pinned"
                              : widget ? " unpinned"
                                       : ""));
        }
        return lines;
    }
    //! The tiles of a popup: names, and whether they are pinned. \param pressed a tile whose pin is pressed
    QStringList tiles(int pressed = -1)
    {
        running.host.commands().runLine("_RECENT");
        QDialog *popup = RealBrowser::popups().constFirst();
        const QList<QDialog *> tiles = RealBrowser::tiles(popup);
        QStringList names;
        for (const QDialog *tile : tiles) {
            QToolButton *pin = RealBrowser::button(tile, "pinButton");
            if (names.size() == pressed)
                pin->click();
            names.append(tile->findChild<QLabel *>("title_label")->text() +
                         (pin->isChecked() ? " pinned" : " unpinned"));
        }
        popup->close();
        drainEvents();
        return names;
    }

    fxhost::MenuBuilder builder{running.host, window.menuBar()};
    QMenu *menu = nullptr;
};

const QString realEntry = "PMI_RECENT_DOCUMENT_BROWSER";
const QList<QStringList> withoutEntry = {{"MI_New", "MI_Open", "", "MI_Quit"}, {"MI_New", "", "MI_Quit"}};
//! Before the last group of both File menus.
const QList<QStringList> withEntry = {{"MI_New", "MI_Open", realEntry, "", "MI_Quit"},
                                      {"MI_New", realEntry, "", "MI_Quit"}};

} // namespace

class tst_MenusInHost : public TestCase
{
    Q_OBJECT

private slots:
    void theFirstRecentDocumentAddsOneEntry()
    {
        HostWithMenus host;
        fxhost::FxHost &fxHost = host.running.host;
        const QSignalSpy refreshed(&host.customization(), &fxhost::Customization::refreshed);
        fxHost.setMainWindow(&host.window);
        fxHost.documents().newDocument(); // has no path, so it is not a recent one
        QCOMPARE(refreshed.size(), 1);
        QCOMPARE(host.entries(), withoutEntry);

        const QString path = host.running.makeDrawing("first.dwg");
        fxHost.commands().runLine("_OPEN " + path);
        fxHost.documents().newDocument();
        QCOMPARE(fxHost.recentFiles().paths(), QStringList(path));
        QCOMPARE(refreshed.size(), 3);
        QCOMPARE(host.entries(), withEntry);
        QCOMPARE(host.primary().GetCommandCount(), 2);
        QCOMPARE(host.startUp().GetCommandCount(), 2);
        QCOMPARE(host.primary().GetMenu(0)->GetChildCount(), 0);
        const CFxUIMenuItem *made = host.file().GetChild(2);
        QCOMPARE(QString(made->GetLabel()), "Preview Recent Documents...");
        const CFxUICommand *definition = made->GetCommand();
        QCOMPARE(definition, host.customization().FindCommand(L"MAIN", L"ID_RECENT_FILES"));
        QCOMPARE(QString(definition->GetName()), "Recent Document Browser");
        QCOMPARE(QString(definition->GetMacro()), "^C^C_RECENT");
        QCOMPARE(QString(definition->GetHelpString()), "Browse through recent documents.");
        QCOMPARE(host.startUp().GetMenu(1)->GetChild(1)->GetCommand(),
                 host.customization().FindCommand(L"START", L"ID_RECENT_FILES"));
        QVERIFY(!host.customization().FindCommand(L"EXTENSION", L"ID_RECENT_FILES"));
    }

    void theEntryInAMenuBarOpensThePopup()
    {
        HostWithMenus host;
        // As in a host that is prepared for the browser.
        host.primary().addKey(L"ACC_Recent", L"Recent", Qt::Key_F4, L"ID_RECENT_FILES");
        fxhost::MenuBuilder builder(host.running.host, host.window.menuBar());
        builder.setGroup(&host.primary());
        QVERIFY(!host.window.findChild<QAction *>(realEntry));
        host.begin();
        host.running.host.documents().newDocument();
        auto *action = host.window.findChild<QAction *>(realEntry); // the menu bar was rebuilt
        QVERIFY(action);
        QCOMPARE(action->text(), "Preview Recent Documents...\tF4");
        QVERIFY(action->isEnabled());
        QCOMPARE(action->statusTip(), "Browse through recent documents.");
        action->trigger();
        QTRY_COMPARE(RealBrowser::popups().size(), 1);
        QCOMPARE(RealBrowser::tiles(RealBrowser::popups().constFirst()).size(), 1);
    }

    void aHostWithoutMenusIsLeftAlone()
    {
        HostWithMenus host(Second::None);
        const QSignalSpy refreshed(&host.customization(), &fxhost::Customization::refreshed);
        host.begin();
        host.running.host.documents().newDocument();
        QVERIFY(setShortCutKey(host.library()));
        host.running.host.setMainWindow(nullptr);
        QCOMPARE(refreshed.size(), 0);
        QVERIFY(!host.customization().GetStartUpGroup());
    }

    void theKeyOpensThePopup()
    {
        HostWithMenus host;
        fxhost::MenuBuilder builder(host.running.host, host.window.menuBar());
        builder.setGroup(&host.primary());
        host.begin();
        QVERIFY(setShortCutKey(host.library()));
        host.customization().Refresh(); // the host's task
        QVERIFY(waitForActive(&host.window));
        QTest::keyClick(&host.window, Qt::Key_F4);
        QTRY_COMPARE(RealBrowser::popups().size(), 1);
    }

    void theRecentMenuHasTheModulesPins()
    {
        HostWithRecentMenu host;
        fxhost::FxHost &fxHost = host.running.host;
        const QStringList plain{"&1 a.dwg", "&2 b.dwg", "&3 c.dwg"};
        const QStringList unpinned{"&1 a.dwg unpinned", "&2 b.dwg unpinned", "&3 c.dwg unpinned"};
        const QStringList pinned{"&1 c.dwg pinned", "&2 a.dwg unpinned", "&3 b.dwg unpinned"};
        QVERIFY(fxHost.modules().unload(MODULE_FILE));
        QVERIFY(fxHost.modules().load(MODULE_FILE));
        QCOMPARE(host.lines(), plain); // before the first drawing the browser is empty, too
        fxHost.documents().newDocument();
        QCOMPARE(host.lines(), unpinned);
        host.button(2, "pinButton")->click();
        QCOMPARE(host.lines(), pinned);
        QCOMPARE(host.tiles(), QStringList({"c.dwg pinned", "a.dwg unpinned", "b.dwg unpinned"}));

        host.tiles(2);
        QCOMPARE(host.lines().constLast(), "&3 b.dwg pinned");
        // Opening the browser changes the order.
        QCOMPARE(host.tiles(0), QStringList({"c.dwg unpinned", "b.dwg pinned", "a.dwg unpinned"}));
        QCOMPARE(host.lines(), QStringList({"&1 c.dwg unpinned", "&2 b.dwg pinned", "&3 a.dwg unpinned"}));

        // Another list, or another module, does not unpin.
        host.list({"d.dwg", "a.dwg", "b.dwg"});
        QVERIFY(fxHost.modules().load(modulePath("companion")));
        QCOMPARE(host.lines(), QStringList({"&1 b.dwg pinned", "&2 d.dwg unpinned", "&3 a.dwg unpinned"}));

        const QPointer<QWidgetAction> former = host.entries().constFirst();
        host.list({"a.dwg", "b.dwg", "c.dwg"});
        fxHost.documents().newDocument();
        QCOMPARE(host.lines(), unpinned);
        QCOMPARE(host.tiles(), QStringList({"a.dwg unpinned", "b.dwg unpinned", "c.dwg unpinned"}));
        QVERIFY(!former);

        QVERIFY(fxHost.modules().unload(MODULE_FILE));
        QCOMPARE(host.lines(), plain);
        QVERIFY(fxHost.modules().load(MODULE_FILE)); // is notified of the current drawing
        host.tiles(2);
        QCOMPARE(host.lines().constLast(), "&3 c.dwg pinned");
    }

    void anEntryClosesTheMenuAndOpensItsDrawing()
    {
        HostWithRecentMenu host;
        host.running.host.documents().newDocument();
        const QPointer<QWidgetAction> clicked = host.entries().at(1);
        host.menu->popup(QPoint(100, 100));
        QTest::mouseClick(host.button(0, "pinButton"), Qt::LeftButton);
        QVERIFY(host.menu->isVisible());
        bool isVisible = true;
        connect(&host.running.host.documents(), &fxhost::DocumentManager::documentAdded, this,
                [&] { isVisible = host.menu->isVisible(); });
        QTest::mouseClick(host.button(1, "menuTextButton"), Qt::LeftButton);
        QVERIFY(!isVisible);
        QCOMPARE(host.lines().constFirst(), "&1 b.dwg unpinned");
        drainEvents();
        QVERIFY(!clicked);

        host.entries().constLast()->trigger();
        QTRY_COMPARE(host.running.logged().constLast(), "command _OPEN 5100");
        QCOMPARE(host.lines().constFirst(), "&1 c.dwg unpinned");
    }

    void entriesFitEveryDesktop()
    {
        const QPalette usual = QApplication::palette();
        QApplication::setPalette(QPalette(QColor(40, 40, 40)));
        HostWithRecentMenu host;
        host.list({"a.dwg", QString("%1.dwg").arg(QString(), 250, 'b')});
        host.running.host.documents().newDocument();
        host.menu->popup(QPoint());
        host.menu->setActiveAction(host.entries().constFirst()); // as the keyboard does
        const QImage image = host.menu->grab().toImage();
        const QColor backgrounds[] = {QApplication::palette().color(QPalette::Highlight), Qt::white};
        for (int i = 0; i < 2; ++i) {
            const QPoint aboveTheText = host.button(i, "folderButton")->mapTo(host.menu, QPoint(-1, 1));
            QCOMPARE(image.pixelColor(aboveTheText), backgrounds[i]);
            const QToolButton *pin = host.button(i, "pinButton");
            QVERIFY(pin->mapTo(host.menu, pin->rect().topRight()).x() < host.menu->screen()->size().width());
        }
        QVERIFY(host.running.host.modules().unload(MODULE_FILE));
        host.lines();
        QCOMPARE(host.menu->palette(), QApplication::palette()); // the host's own entries are not black
        QApplication::setPalette(usual);
    }

    void otherLibrariesExportNothing()
    {
        HostWithMenus host;
        QVERIFY(host.running.host.modules().load(modulePath("companion")));
        QMenu menu;
        for (void *library : {host.running.host.modules().libraries().back(), static_cast<void *>(nullptr)}) {
            QVERIFY(!addRecentFiles(library, &menu, nullptr));
            QVERIFY(!setShortCutKey(library));
        }
        QVERIFY(menu.isEmpty());
    }

    void menusAndKeysRemainAfterTheModuleIsUnloaded()
    {
        HostWithMenus host;
        host.begin();
        QVERIFY(setShortCutKey(host.library()));
        const QSignalSpy refreshed(&host.customization(), &fxhost::Customization::refreshed);
        host.running.host.setMainWindow(nullptr);
        QVERIFY(host.running.host.modules().unload(MODULE_FILE));
        QVERIFY(!dlopen(MODULE_FILE, RTLD_NOW | RTLD_NOLOAD)); // the menus do not need it
        QCOMPARE(refreshed.size(), 0);
        QCOMPARE(host.entries(), withEntry);
        QCOMPARE(QString(host.file().GetChild(2)->GetLabel()), "Preview Recent Documents...");
        QCOMPARE(host.keys(), QStringList("F4 ID_RECENT_FILES"));
        QCOMPARE(QString(host.primary().GetAccelerator(0)->GetLabel()), "Preview Recent Documents...");
        // The entry now runs an unknown command.
        host.running.host.commands().runMacro(host.file().GetChild(2)->GetCommand()->GetMacro());
        QCOMPARE(host.running.logged().constLast(), "command _RECENT unknown");
    }
};

TEST_CLASS(tst_MenusInHost);
#include "tst_menusinhost.moc"

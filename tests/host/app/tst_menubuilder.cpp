// SPDX-License-Identifier: MIT
#include "host/app/MenuBuilder.h"
#include "host/runtime/commands/CommandRunner.h"
#include "host/runtime/documents/Document.h"
#include "host/runtime/documents/DocumentManager.h"
#include "host/runtime/recent/RecentFiles.h"
#include "tests/support/TestCase.h"
#include "tests/support/real/RealHost.h"

#include <CFxUICommand.h>
#include <sdkhost/Customization.h>
#include <sdkhost/UIMenuItem.h>

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

using sdkhost::UIGroup;
using sdkhost::UIMenuItem;

namespace {

void addMenus(fxhost::Customization &customization)
{
    UIGroup &group = customization.addGroup(L"MAIN", true);
    CFxUICommand &limit = group.addCommand(L"ID_Limit", L"Limit", L"^C^C_RECENTLIMIT 20", L"Sets the limit.");
    UIMenuItem &file = group.addMenu(L"ID_MnFile", L"&File");
    file.add(UIMenuItem::Kind::Entry, L"MI_New", L"&New", &group.addCommand(L"ID_New", L"New", L"_NEW"))
        .setHelpString(L"Help of the entry.");
    file.add(UIMenuItem::Kind::RecentFiles, L"ID_RECENT_FILES_MENU", L"&Recent");
    file.addSeparator();
    file.add(UIMenuItem::Kind::Entry, L"MI_Limit", L"&Limit", &limit);
    group.addMenu(L"ID_MnWindow", L"&Window")
        .add(UIMenuItem::Kind::Windows, L"ID_WINDOWS_MENU", L"&Drawings");
    group.addKey(L"ACC_New", {}, QKeySequence("Ctrl+N"), L"ID_New");
    group.addKey(L"ACC_Second", {}, QKeySequence("Ctrl+N"), L"ID_Limit");
    group.addKey(L"ACC_Recent", {}, Qt::Key_F4, L"ID_RECENT_FILES");
    UIGroup &startUp = customization.addStartUpGroup(L"START");
    startUp.addCommand(L"ID_Limit", L"Limit", L"_RECENTLIMIT 30");
    startUp.addMenu(L"ID_MnStart", L"&File");
    startUp.addKey(L"ACC_Limit", {}, QKeySequence("Ctrl+L"), L"ID_Limit");
}

//! A host's window with a menu bar for the primary group.
class Window : public RealHost
{
public:
    Window()
    {
        addMenus(host.customization());
        builder.setGroup(host.customization().primaryGroup());
    }

    //! Keys work in the active window only.
    void activate()
    {
        frame.show();
        frame.activateWindow();
        QVERIFY(waitForActive(&frame));
    }

    QMenu *menu(const char *identifier) const { return last<QMenu>(identifier); }
    QAction *action(const char *identifier) const { return last<QAction>(identifier); }
    //! The menu, with its entries made as when it opens.
    QMenu *openedMenu(const char *identifier) const
    {
        emit menu(identifier)->aboutToShow();
        return menu(identifier);
    }

    QStringList topLevel() const
    {
        QStringList identifiers;
        const QList<QAction *> actions = bar->actions();
        for (const QAction *action : actions)
            identifiers.append(action->objectName());
        return identifiers;
    }

    QMainWindow frame;
    QMenuBar *bar = frame.menuBar();
    fxhost::MenuBuilder builder{host, bar};

private:
    template<class Object>
    Object *last(const char *identifier) const
    {
        const QList<Object *> found = bar->findChildren<Object *>(identifier);
        return found.isEmpty() ? nullptr : found.last(); // the former ones are not deleted yet
    }
};

QStringList textsOf(const QMenu *menu)
{
    QStringList texts;
    const QList<QAction *> actions = menu->actions();
    for (const QAction *action : actions)
        texts.append(action->text());
    return texts;
}

} // namespace

class tst_MenuBuilder : public TestCase
{
    Q_OBJECT

private slots:
    void initTestCase() { qRegisterMetaType<fxhost::Document *>("fxhost::Document*"); }

    void menusAreBuiltFromTheGroup()
    {
        Window window;
        QCOMPARE(window.topLevel(), QStringList({"ID_MnFile", "ID_MnWindow"}));
        QCOMPARE(window.menu("ID_MnFile")->title(), QString("&File"));
        const QList<QAction *> entries = window.menu("ID_MnFile")->actions();
        QCOMPARE(entries.size(), 4);
        const QString key = QKeySequence("Ctrl+N").toString(QKeySequence::NativeText);
        QCOMPARE(entries.at(0)->text(), "&New\t" + key);
        QCOMPARE(entries.at(0)->statusTip(), QString("Help of the entry."));
        QCOMPARE(entries.at(1)->menu(), window.menu("ID_RECENT_FILES_MENU"));
        QVERIFY(entries.at(2)->isSeparator());
        QCOMPARE(entries.at(3)->statusTip(), QString("Sets the limit."));
    }

    void anEntryMayRefreshItsOwnMenu()
    {
        Window window;
        connect(&window.host.commands(), &fxhost::CommandRunner::commandStarted, &window.host.customization(),
                [&] { window.host.customization().Refresh(); });
        const QPointer<QMenu> former = window.menu("ID_MnFile");
        window.action("MI_Limit")->trigger();
        QTRY_COMPARE(window.host.recentFiles().maximum(), 20);
        QTRY_VERIFY(!former);
        QCOMPARE(window.bar->actions().size(), 2);
    }

    void refreshShowsWhatAModuleInserted()
    {
        Window window;
        fxhost::Customization &customization = window.host.customization();
        CFxUIGroup *const group = customization.primaryGroup();
        CFxUIMenuItem *const item =
            customization.CreateMenuItem(nullptr, L"Browse", CFxString(), L"PMI_BROWSE");
        CFxUIMenuItem *const file = group->GetMenu(0);
        QVERIFY(file->InsertChild(file->GetChildCount() - 2, item));
        QCOMPARE(window.action("PMI_BROWSE"), nullptr);
        customization.Refresh();
        QVERIFY(!window.action("PMI_BROWSE")->isEnabled()); // it has no command

        item->SetCommand(group->GetCommand(0));
        customization.Refresh();
        QAction *const shown = window.action("PMI_BROWSE");
        QVERIFY(shown->isEnabled());
        QCOMPARE(shown->statusTip(), QString("Sets the limit."));
        QCOMPARE(window.menu("ID_MnFile")->actions().indexOf(shown), 2);
    }

    void aKeyRunsItsMacro()
    {
        Window window;
        window.activate();
        QTest::keyClick(&window.frame, Qt::Key_N, Qt::ControlModifier);
        QTRY_COMPARE(window.host.documents().documents().size(), std::size_t(1));
        drainEvents();
        QCOMPARE(window.logged(),
                 QStringList("command _NEW 5100")); // the second Ctrl+N has no effect
    }

    void anotherGroupReplacesTheBarAndTheKeys()
    {
        Window window;
        window.activate();
        window.builder.setGroup(window.host.customization().startUpGroup());
        QCOMPARE(window.topLevel(), QStringList("ID_MnStart"));
        QTest::keyClick(&window.frame, Qt::Key_N, Qt::ControlModifier);
        QTest::keyClick(&window.frame, Qt::Key_L, Qt::ControlModifier);
        QTRY_COMPARE(window.host.recentFiles().maximum(), 30);
        drainEvents();
        QVERIFY(window.host.documents().documents().empty());
        window.builder.setGroup(nullptr);
        QVERIFY(window.topLevel().isEmpty());
    }

    void recentDocumentsAreListedWhenTheMenuOpens()
    {
        Window window;
        const QString path = window.makeDrawing("R&D\tplan.dwg");
        QMenu *const menu = window.openedMenu("ID_RECENT_FILES_MENU");
        QCOMPARE(menu->actions().size(), 1);
        QVERIFY(!menu->actions().constFirst()->isEnabled());

        window.host.recentFiles().setPaths({path, "/b.dwg"});
        emit menu->aboutToShow();
        const QString escaped = QString(path).replace("R&D\t", "R&&D ");
        QCOMPARE(textsOf(menu), QStringList({"&1 " + escaped, "&2 /b.dwg"}));

        menu->actions().constFirst()->trigger();
        QTRY_COMPARE(window.host.documents().documents().size(), std::size_t(1));
        QCOMPARE(QString(window.host.documents().current()->path()), path);
    }

    void pathsKeepTheirOrderOnEveryDesktop()
    {
        const auto picture = [](Qt::LayoutDirection direction) {
            QApplication::setLayoutDirection(direction);
            Window window;
            window.host.recentFiles().setPaths({"/plans/1. (2).dwg"});
            QMenu *const menu = window.openedMenu("ID_RECENT_FILES_MENU");
            return menu->grab().toImage();
        };
        const QImage fromTheRight = picture(Qt::RightToLeft);
        QCOMPARE(fromTheRight, picture(Qt::LeftToRight));
    }

    void openDrawingsAreListedWhenTheMenuOpens()
    {
        Window window;
        QMenu *const menu = window.openedMenu("ID_WINDOWS_MENU");
        QVERIFY(!menu->actions().constFirst()->isEnabled());

        fxhost::DocumentManager &documents = window.host.documents();
        fxhost::Document *const first = documents.newDocument();
        documents.newDocument();
        emit menu->aboutToShow();
        QCOMPARE(textsOf(menu), QStringList({"&1 Drawing1", "&2 Drawing2"}));
        QVERIFY(!menu->actions().constFirst()->isChecked());
        QVERIFY(menu->actions().constLast()->isChecked());

        QSignalSpy activateRequested(&documents, &fxhost::DocumentManager::activateRequested);
        menu->actions().constFirst()->trigger();
        QTRY_COMPARE(documents.current(), first);
        QCOMPARE(activateRequested.size(), 1);
    }

    void aListedDrawingThatWasClosedIsIgnored()
    {
        Window window;
        fxhost::DocumentManager &documents = window.host.documents();
        fxhost::Document *const first = documents.newDocument();
        fxhost::Document *const second = documents.newDocument();
        window.openedMenu("ID_WINDOWS_MENU")->actions().constFirst()->trigger();
        documents.close(first);
        drainEvents();
        QCOMPARE(documents.current(), second);
    }
};

TEST_CLASS(tst_MenuBuilder);
#include "tst_menubuilder.moc"

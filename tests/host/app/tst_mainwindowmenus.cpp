// SPDX-License-Identifier: MIT
#include "host/runtime/recent/RecentFiles.h"
#include "tests/host/app/ShownProgram.h"

#include <CFxUIAccelerator.h>
#include <CFxUICommand.h>
#include <CFxUIMenuItem.h>

#include <QMenu>
#include <QMenuBar>
#include <QSignalSpy>

using namespace fxhost;

namespace {

QStringList textsOf(const QList<QAction *> &actions)
{
    QStringList texts;
    for (const QAction *action : actions)
        texts << action->text();
    return texts;
}

QStringList menuTitles(const MainWindow &window)
{
    return textsOf(window.menuBar()->actions()).replaceInStrings(QStringLiteral("&"), QString());
}

CFxUIMenuItem *fileMenu(const CFxUIGroup *group)
{
    for (int i = 0; i < group->GetMenuCount(); ++i) {
        if (group->GetMenu(i)->GetIdentifier() == CFxString(L"ID_MnFile"))
            return group->GetMenu(i);
    }
    return nullptr;
}

} // namespace

//! The menus and keys that the program ships, as the main window shows them.
class MainWindowMenusTest : public TestCase
{
    Q_OBJECT

private slots:
    void theStartUpMenusStandWhileNoDrawingIsOpen()
    {
        const ShownProgram program;
        QCOMPARE(program.menuProblem, QString());
        QCOMPARE(menuTitles(program.window), QStringList({"File", "Help"}));
        program.enter(QStringLiteral("_NEW"));
        QCOMPARE(menuTitles(program.window), QStringList({"File", "Window", "Help"}));
        program.enter(QStringLiteral("_CLOSE"));
        QCOMPARE(menuTitles(program.window), QStringList({"File", "Help"}));
    }

    void bothFileMenusHaveRoomForAModulesEntry()
    {
        ShownProgram program;
        const Customization &customization = program.host.customization();
        for (const CFxUIGroup *group : {customization.primaryGroup(), customization.startUpGroup()}) {
            QVERIFY(group);
            const CFxUIMenuItem *menu = fileMenu(group);
            QVERIFY(menu);
            // Modules count from the end: the entry goes before the last but one, the separator of Exit.
            QStringList last;
            for (int fromEnd = 3; fromEnd > 0; --fromEnd)
                last << menu->GetChild(menu->GetChildCount() - fromEnd)->GetIdentifier();
            QCOMPARE(last, QStringList({"ID_RECENT_FILES_MENU", "", "MI_Quit"}));
        }
    }

    void theKeyOfTheBrowserWaitsForAModule()
    {
        ShownProgram program;
        const CFxUIGroup *group = program.host.customization().primaryGroup();
        int found = 0;
        for (int i = 0; i < group->GetAcceleratorCount(); ++i) {
            if (group->GetAccelerator(i)->GetKey() != QKeySequence(Qt::Key_F4))
                continue;
            ++found;
            QVERIFY(!group->GetAccelerator(i)->GetCommand());
        }
        QCOMPARE(found, 1);
        program.host.documents().newDocument();
        const QSignalSpy started(&program.host.commands(), &CommandRunner::commandStarted);
        QTest::keyClick(program.input(), Qt::Key_F4);
        QCOMPARE(started.count(), 0);
    }

    void aModulesEntryAndKeyComeToLifeOnRefresh_data()
    {
        QTest::addColumn<bool>("withDrawing");
        QTest::newRow("the menus of a drawing") << true;
        QTest::newRow("the start-up menus") << false;
    }

    void aModulesEntryAndKeyComeToLifeOnRefresh()
    {
        QFETCH(bool, withDrawing);
        ShownProgram program;
        Customization &customization = program.host.customization();
        if (withDrawing)
            program.host.documents().newDocument();
        UIGroup *group = withDrawing ? customization.primaryGroup() : customization.startUpGroup();
        CFxUICommand *command = customization.CreateCommand(L"ID_RECENT_FILES");
        command->SetMacro(L"^C^C_NEW");
        group->AppendCommand(command);
        CFxUIMenuItem *menu = fileMenu(group);
        QVERIFY(menu->InsertChild(menu->GetChildCount() - 2,
                                  customization.CreateMenuItem(command, L"Preview...", L"", L"PMI_PREVIEW")));
        customization.Refresh();

        const QStringList entries =
            textsOf(program.window.menuBar()->actions().constFirst()->menu()->actions());
        QCOMPARE(entries.mid(entries.size() - 4),
                 QStringList({"&Recent Drawings", "Preview...\tF4", "", "E&xit\tCtrl+Q"}));

        const QSignalSpy started(&program.host.commands(), &CommandRunner::commandStarted);
        QTest::keyClick(program.input(), Qt::Key_F4);
        QTRY_COMPARE(started, (QList<QVariantList>{{QStringLiteral("_NEW"), QString()}}));
    }

    void theRecentFilesMenuFollowsTheList()
    {
        ShownProgram program;
        const QString path = program.drawing(QStringLiteral("a & b.dwg"));
        program.host.recentFiles().add(path);
        auto *menu = program.window.findChild<QMenu *>(QStringLiteral("ID_RECENT_FILES_MENU"));
        QVERIFY(menu);
        emit menu->aboutToShow();
        QCOMPARE(menu->actions().size(), 1);
        menu->actions().constFirst()->trigger();
        QTRY_VERIFY(program.host.documents().current());
        QCOMPARE(QString(program.host.documents().current()->path()), path);
    }
};

QTEST_MAIN(MainWindowMenusTest)

#include "tst_mainwindowmenus.moc"

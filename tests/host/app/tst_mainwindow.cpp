// SPDX-License-Identifier: MIT
#include "host/app/EmptyHint.h"
#include "host/runtime/recent/RecentFiles.h"
#include "tests/host/app/ShownProgram.h"

#include <CFxCommand.h>
#include <CFxUICommand.h>
#include <CFxUIMenuItem.h>
#include <sdkhost/Customization.h>

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QStyle>

using namespace fxhost;

namespace {

QStringList textsOf(const QList<QAction *> &actions)
{
    QStringList texts;
    for (const QAction *action : actions)
        texts << action->text();
    return texts;
}

} // namespace

//! The main window with the shipped menus and keys, in the test's process.
class tst_MainWindow : public TestCase
{
    Q_OBJECT

private slots:
    void theTitleNamesTheCurrentDrawing()
    {
        ShownProgram program;
        QCoreApplication::setApplicationName("fxhost");
        const QString a = program.drawing("a.dwg");
        const QString b = program.drawing("b.dwg");
        const QPair<QString, QString> steps[] = {
            {"_OPEN " + a, "fxhost - [a.dwg]"}, {"_OPEN " + b, "fxhost - [b.dwg]"},
            {"_TILE", "fxhost - [b.dwg]"},      {"_NEXTWINDOW", "fxhost - [a.dwg]"},
            {"_CLOSE", "fxhost - [b.dwg]"},     {"_CLOSE", "fxhost"}};
        for (const auto &step : steps) {
            program.enter(step.first);
            QTRY_COMPARE(program.window.windowTitle(), step.second);
        }
    }

    void pathsAndFactsKeepTheirOrderOnEveryDesktop()
    {
        const auto picture = [](Qt::LayoutDirection direction, const char *name) {
            QApplication::setLayoutDirection(direction);
            ShownProgram program;
            program.enter(QString("_OPEN ") + program.drawing("plan.dwg"));
            auto *line = program.window.findChild<QLabel *>(QLatin1String(name));
            const bool isAtTheStart =
                line->alignment().testFlag(direction == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft);
            line->setText("/plans/1. (2).dwg");
            line->setAlignment(Qt::AlignLeft); // there letters begin on a whole pixel
            return isAtTheStart ? line->grab().toImage() : QImage();
        };
        for (const char *name : {"path", "facts"}) {
            const QImage fromTheRight = picture(Qt::RightToLeft, name);
            QVERIFY(!fromTheRight.isNull());
            QCOMPARE(fromTheRight, picture(Qt::LeftToRight, name));
        }
    }

    void drawingsStayMaximizedUntilTheyAreArranged()
    {
        ShownProgram program;
        QVERIFY(program.newWindow()->isMaximized());
        QVERIFY(program.newWindow()->isMaximized());
        program.enter("_CASCADE");
        QVERIFY(!program.newWindow()->isMaximized());
    }

    void windowsAreActivatedAndClosedWithTheirDrawings()
    {
        ShownProgram program;
        DocumentManager &documents = program.host.documents();
        Document *first = documents.newDocument();
        Document *second = documents.newDocument();
        program.window.drawingArea().setActiveSubWindow(program.window.drawingArea().windowOf(first));
        QCOMPARE(documents.current(), first);
        documents.setCurrent(second);
        QCOMPARE(program.window.drawingArea().activeSubWindow(),
                 program.window.drawingArea().windowOf(second));

        program.window.drawingArea().windowOf(first)->close();
        QCOMPARE(documents.documents(), std::vector<Document *>{second});
        QCOMPARE(documents.current(), second);
        program.window.drawingArea().windowOf(second)->close();
        drainEvents();
        QVERIFY(documents.documents().empty());
        QVERIFY(program.window.drawingArea().subWindowList().isEmpty());
    }

    void anOpenDrawingIsRestoredFromItsIcon()
    {
        ShownProgram program;
        const QString path = program.drawing("a.dwg");
        program.enter(QString("_OPEN ") + path);
        QMdiSubWindow *window = program.window.drawingArea().windowOf(program.host.documents().current());
        program.host.documents().newDocument();
        program.enter("_CASCADE");
        window->showMinimized();
        program.enter(QString("_OPEN ") + path);
        QCOMPARE(program.window.drawingArea().activeSubWindow(), window);
        QVERIFY(!window->isMinimized());
        QCOMPARE(program.host.documents().documents().size(), 2U);
    }

    void typedTextIsForwardedToTheCommandLine()
    {
        ShownProgram program;
        QMdiSubWindow *window = program.newWindow();
        window->setFocus();
        QTest::keyClick(window, Qt::Key_Control, Qt::ControlModifier); // types nothing
        QVERIFY(!program.window.commandLine().hasInputFocus());
        QTest::keyClick(window, 'q');
        QCOMPARE(program.input()->text(), "q");
        QVERIFY(program.window.commandLine().hasInputFocus());
        window->setFocus();
        QTest::keyClick(window, Qt::Key_Escape);
        QCOMPARE(program.input()->text(), QString());
    }

    void tabCompletesAndActivatesNoOtherDrawing()
    {
        ShownProgram program;
        const Document *last = program.host.documents().newDocument();
        program.host.documents().newDocument();
        program.host.documents().setCurrent(const_cast<Document *>(last));
        QTest::keyClicks(program.input(), "_recentl");
        QTest::keyClick(program.input(), Qt::Key_Tab);
        QCOMPARE(program.input()->text(), "_RECENTLIMIT ");
        program.input()->setText("_RE 5");
        program.input()->setCursorPosition(3);
        QTest::keyClick(program.input(), Qt::Key_Tab);
        QCOMPARE(program.input()->text(), "_RECENT 5"); // the rest of the line is kept
        QVERIFY(!program.history().contains("_RECENTADD"));
        QTest::keyClick(program.input(), Qt::Key_Tab);
        QVERIFY(program.history().contains("_RECENTADD  _RECENTCLEAR"));
        QCOMPARE(program.host.documents().current(), last);
    }

    void theFocusMovesFromTheCommandLineAndBack()
    {
        ShownProgram program;
        program.host.documents().newDocument();
        QMdiSubWindow *window = program.newWindow();
        program.input()->setFocus();
        QTest::keyClick(program.input(), Qt::Key_Backtab, Qt::ShiftModifier);
        QVERIFY(window->isAncestorOf(QApplication::focusWidget()) || window->hasFocus());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QVERIFY(program.window.commandLine().hasInputFocus());
        QTest::keyClick(program.input(), Qt::Key_Escape);
        QVERIFY(!program.window.commandLine().hasInputFocus());
        QCOMPARE(program.window.drawingArea().activeSubWindow(), window);
    }

    void theFocusReturnsFromAPopup()
    {
        ShownProgram program;
        QMdiSubWindow *window = program.newWindow();
        window->setFocus();
        QDialog popup(&program.window, Qt::FramelessWindowHint);
        popup.show();
        popup.activateWindow();
        QVERIFY(waitForActive(&popup));
        popup.close();
        program.window.activateWindow(); // instead of a window manager
        QTRY_VERIFY(program.input()->hasFocus());
    }

    void aRunningCommandEndsOnRequest()
    {
        ShownProgram program;
        const QSignalSpy ended(&program.host.commands(), &CommandRunner::commandEnded);
        for (const bool typed : {false, true}) {
            QTimer::singleShot(0, &program.window, [&program, typed] {
                if (typed)
                    program.enter("^C");
                else
                    QTest::keyClick(program.input(), Qt::Key_Escape);
            });
            program.enter("_DELAY 600000"); // far longer than a test may take
            QVERIFY2(program.history().endsWith("*Cancelled*"), qPrintable(program.history()));
        }
        const QVariantList cancelled{QStringLiteral("_DELAY"), CFxCommand::cancelled};
        QCOMPARE(ended, QList<QVariantList>({cancelled, cancelled}));
    }

    void closingTheWindowEndsTheRunningCommandAndTheProgram()
    {
        ShownProgram program;
        const QSignalSpy ended(&program.host.commands(), &CommandRunner::commandEnded);
        QTimer::singleShot(0, &program.window, [&program] {
            QTimer::singleShot(0, &program.window, [&program] {
                program.enter("_NEW"); // too late to run
                program.window.close();
            });
            program.enter("_DELAY 600000");
        });
        QCOMPARE(QCoreApplication::exec(), 0);
        QCOMPARE(ended.count(), 1);
        QVERIFY(!program.window.isVisible());
    }

    void aLineEnteredDuringACommandRunsAfterIt()
    {
        ShownProgram program;
        const QSignalSpy ended(&program.host.commands(), &CommandRunner::commandEnded);
        QTimer::singleShot(0, &program.window, [&program] {
            program.enter("_NEW");
            QVERIFY(program.host.documents().documents().empty());
        });
        program.enter("_DELAY 50");
        QCOMPARE(ended,
                 QList<QVariantList>({{QStringLiteral("_DELAY"), 5100}, {QStringLiteral("_NEW"), 5100}}));
    }

    void theHistoryShowsCommandsAndFailures()
    {
        ShownProgram program;
        program.enter("nosuch thing");
        program.enter("open /not/there.dwg");
        const QString history = program.history();
        QVERIFY2(history.contains("nosuch"), qPrintable(history));
        QVERIFY2(history.contains("\nCommand: _OPEN /not/there.dwg\n"), qPrintable(history));
        QVERIFY2(history.contains("does not exist"), qPrintable(history));
        QVERIFY(!QApplication::activeModalWidget()); // it would block a script
    }

    void withoutDrawingsTheWindowSaysWhatToDo()
    {
        ShownProgram program;
        const auto *hint = program.window.findChild<EmptyHint *>();
        QCOMPARE(hint->size(), program.window.drawingArea().viewport()->size());
        CommandSet browser(program.host.commandStack());
        browser.add("RECENT", [](const CFxCommandContext &) { return CFxCommand::normalCompletion; });
        const QString open = QString("_OPEN ") + program.drawing("a.dwg");
        for (const QString &line : {QString("_RECENT"), open}) {
            QVERIFY(hint->isVisible());
            program.enter(line);
        }
        QVERIFY(!hint->isVisible());
        program.enter("_CLOSE");
        QVERIFY(hint->isVisible());
        program.enter("_RECENT"); // now there is one to show
        QCOMPARE(program.history().count("no recent drawings"), 1);
    }

    void theWindowCanBeResizedToTheMinimum()
    {
        ShownProgram program;
        program.host.documents().newDocument();
        program.window.resize(400, 300);
        QTRY_COMPARE(program.window.size(), QSize(400, 300));
    }

    void theGeometryOfTheWindowIsSaved_data()
    {
        QTest::addColumn<QRect>("geometry");
        QTest::addColumn<bool>("maximized");
        QTest::addColumn<QRect>("expected");
        const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
        const QRect room =
            screen.adjusted(0, QApplication::style()->pixelMetric(QStyle::PM_TitleBarHeight), 0, 0);
        const QRect place(30, 40, 555, 444);
        const QRect larger = room.adjusted(20, 10, 80, 60);
        QTest::newRow("unchanged") << place << false << place;
        QTest::newRow("larger than the screen") << larger << false << room;
        QTest::newRow("maximised") << larger << true << room;
    }

    void theGeometryOfTheWindowIsSaved()
    {
        QFETCH(QRect, geometry);
        QFETCH(bool, maximized);
        const QTemporaryDir profile;
        {
            FxHost host(profile.path(), QString());
            MainWindow window(host);
            window.show();
            window.showNormal();
            window.setGeometry(geometry);
            if (maximized)
                window.showMaximized();
            QTimer::singleShot(0, &window, &QWidget::close);
            QCOMPARE(QCoreApplication::exec(), 0);
        }
        FxHost host(profile.path(), QString());
        const MainWindow window(host);
        QCOMPARE(window.isMaximized(), maximized);
        QTEST(window.normalGeometry(), "expected");
    }

    void theFirstStartTakesTheWholeScreen()
    {
        const ShownProgram program;
        QVERIFY(program.window.isMaximized());
        const QSize screen = QGuiApplication::primaryScreen()->availableSize();
        const QSize normal = program.window.normalGeometry().size();
        QCOMPARE(normal.boundedTo(screen), normal);
    }

    void theStartUpMenusAreShownWhileNoDrawingIsOpen()
    {
        const ShownProgram program;
        QCOMPARE(textsOf(program.window.menuBar()->actions()), QStringList({"&File", "&Help"}));
        program.enter("_NEW");
        QCOMPARE(textsOf(program.window.menuBar()->actions()), QStringList({"&File", "&Window", "&Help"}));
        QVERIFY(program.window.findChild<QMenu *>("ID_RECENT_FILES_MENU"));
        const QStringList help{"&Contents\tF1", "&Recent Drawings", "", "&About fxhost"};
        QCOMPARE(textsOf(program.window.menuBar()->actions().constLast()->menu()->actions()), help);
        program.enter("_CLOSE");
        QCOMPARE(textsOf(program.window.menuBar()->actions()), QStringList({"&File", "&Help"}));
        QCOMPARE(textsOf(program.window.menuBar()->actions().constLast()->menu()->actions()), help);
    }

    void aModulesEntryAndKeyWorkAfterRefresh()
    {
        for (const bool withDrawing : {false, true}) {
            ShownProgram program;
            Customization &customization = program.host.customization();
            if (withDrawing)
                program.host.documents().newDocument();
            const QSignalSpy started(&program.host.commands(), &CommandRunner::commandStarted);
            QTest::keyClick(program.input(), Qt::Key_F4); // no effect without a module
            UIGroup *group = withDrawing ? customization.primaryGroup() : customization.startUpGroup();
            CFxUICommand *command = customization.CreateCommand(L"ID_RECENT_FILES");
            command->SetMacro(L"^C^C_NEW");
            group->AppendCommand(command);
            CFxUIMenuItem *menu = group->GetMenu(0);
            QVERIFY(menu->GetIdentifier() == CFxString(L"ID_MnFile"));
            // Modules count from the end: the entry is inserted before the separator of Exit.
            QVERIFY(
                menu->InsertChild(menu->GetChildCount() - 2,
                                  customization.CreateMenuItem(command, L"Preview...", L"", L"PMI_PREVIEW")));
            customization.Refresh();

            const QMenu *file = program.window.menuBar()->actions().constFirst()->menu();
            QCOMPARE(textsOf(file->actions().mid(file->actions().size() - 5)),
                     QStringList({"&Recent Drawings", "&Manage Recent Drawings...", "Preview...\tF4", "",
                                  "E&xit\tCtrl+Q"}));
            QCOMPARE(started.count(), 0);
            QTest::keyClick(program.input(), Qt::Key_F4);
            QTRY_COMPARE(started, (QList<QVariantList>{{QStringLiteral("_NEW"), QString()}}));
        }
    }
};

TEST_CLASS(tst_MainWindow);
#include "tst_mainwindow.moc"

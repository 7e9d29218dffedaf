// SPDX-License-Identifier: MIT
#include "host/app/HelpWindow.h"
#include "tests/host/app/ShownProgram.h"

#include <CFxCommand.h>
#include <CFxEditorReactor.h>
#include <OdEditor.h>

#include <QApplication>
#include <QLabel>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QScreen>
#include <QSignalSpy>
#include <QStyle>
#include <QTimer>

using namespace fxhost;

//! The main window, in the test's own process.
class MainWindowTest : public TestCase
{
    Q_OBJECT

private slots:
    void theTitleNamesTheCurrentDrawing()
    {
        ShownProgram program;
        QCoreApplication::setApplicationName(QStringLiteral("fxhost"));
        const QString a = program.drawing(QStringLiteral("a.dwg"));
        const QString b = program.drawing(QStringLiteral("b.dwg"));
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
            program.enter(QStringLiteral("_OPEN ") + program.drawing(QStringLiteral("plan.dwg")));
            auto *line = program.window.findChild<QLabel *>(QLatin1String(name));
            const bool isAtTheBegin =
                line->alignment().testFlag(direction == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft);
            line->setText(QStringLiteral("/plans/1. (2).dwg"));
            line->setAlignment(Qt::AlignLeft); // letters begin on a whole pixel there
            return isAtTheBegin ? line->grab().toImage() : QImage();
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
        program.enter(QStringLiteral("_CASCADE"));
        QVERIFY(!program.newWindow()->isMaximized());
    }

    void aClosedWindowClosesItsDrawing()
    {
        ShownProgram program;
        DocumentManager &documents = program.host.documents();
        Document *first = documents.newDocument();
        Document *second = documents.newDocument();
        program.window.drawingArea().windowOf(first)->close();
        QCOMPARE(documents.documents(), std::vector<Document *>{second});
        QCOMPARE(documents.current(), second);
        program.window.drawingArea().windowOf(second)->close();
        drainEvents();
        QVERIFY(documents.documents().empty());
        QVERIFY(program.window.drawingArea().subWindowList().isEmpty());
    }

    void theWindowThatAPersonTurnsToIsTheCurrentDrawing()
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
    }

    void anOpenDrawingComesBackFromItsIcon()
    {
        ShownProgram program;
        const QString path = program.drawing(QStringLiteral("a.dwg"));
        program.enter(QStringLiteral("_OPEN ") + path);
        QMdiSubWindow *window = program.window.drawingArea().windowOf(program.host.documents().current());
        program.host.documents().newDocument();
        program.enter(QStringLiteral("_CASCADE"));
        window->showMinimized();
        program.enter(QStringLiteral("_OPEN ") + path);
        QCOMPARE(program.window.drawingArea().activeSubWindow(), window);
        QVERIFY(!window->isMinimized());
        QCOMPARE(program.host.documents().documents().size(), 2U);
    }

    void whatIsTypedAnywhereGoesToTheCommandLine()
    {
        ShownProgram program;
        QMdiSubWindow *window = program.newWindow();
        window->setFocus();
        QTest::keyClick(window, Qt::Key_Control, Qt::ControlModifier); // alone it is nothing typed
        QVERIFY(!program.window.commandLine().hasInputFocus());
        QTest::keyClick(window, 'q');
        QCOMPARE(program.input()->text(), QStringLiteral("q"));
        QVERIFY(program.window.commandLine().hasInputFocus());
        window->setFocus();
        QTest::keyClick(window, Qt::Key_Escape);
        QCOMPARE(program.input()->text(), QString());
    }

    void tabCompletesAndTurnsToNoDrawing()
    {
        ShownProgram program;
        const Document *last = program.host.documents().newDocument();
        program.host.documents().newDocument();
        program.host.documents().setCurrent(const_cast<Document *>(last));
        QTest::keyClicks(program.input(), QStringLiteral("_recentl"));
        QTest::keyClick(program.input(), Qt::Key_Tab);
        QCOMPARE(program.input()->text(), QStringLiteral("_RECENTLIMIT "));
        program.input()->setText(QStringLiteral("_RE 5"));
        program.input()->setCursorPosition(3);
        QTest::keyClick(program.input(), Qt::Key_Tab);
        QCOMPARE(program.input()->text(), QStringLiteral("_RECENT 5")); // the rest of the line stays
        QVERIFY(!program.history().contains(QStringLiteral("_RECENTADD")));
        QTest::keyClick(program.input(), Qt::Key_Tab);
        QVERIFY(program.history().endsWith(QStringLiteral("_RECENTADD  _RECENTLIMIT")));
        QCOMPARE(program.host.documents().current(), last);
    }

    void theKeyboardLeavesTheCommandLineAndComesBack()
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

    void theFocusComesBackFromAPopup()
    {
        ShownProgram program;
        QMdiSubWindow *window = program.newWindow();
        window->setFocus();
        QDialog popup(&program.window, Qt::FramelessWindowHint);
        popup.show();
        popup.activateWindow();
        QVERIFY(waitForActive(&popup));
        popup.close();
        program.window.activateWindow(); // as a window manager does, and no such thing is here
        QTRY_VERIFY(program.input()->hasFocus());
    }

    void aRunningCommandEndsOnRequest()
    {
        ShownProgram program;
        const QSignalSpy ended(&program.host.commands(), &CommandRunner::commandEnded);
        for (const bool typed : {false, true}) {
            QTimer::singleShot(0, &program.window, [&program, typed] {
                if (typed)
                    program.enter(QStringLiteral("^C"));
                else
                    QTest::keyClick(program.input(), Qt::Key_Escape);
            });
            program.enter(QStringLiteral("_DELAY 600000")); // far longer than a test may take
            QVERIFY2(program.history().endsWith(QStringLiteral("*Cancelled*")),
                     qPrintable(program.history()));
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
                program.enter(QStringLiteral("_NEW")); // too late: its turn does not come
                program.window.close();
            });
            program.enter(QStringLiteral("_DELAY 600000"));
        });
        QCOMPARE(QCoreApplication::exec(), 0);
        QCOMPARE(ended.count(), 1);
        QVERIFY(!program.window.isVisible());
    }

    void whatIsEnteredMeanwhileWaitsItsTurn()
    {
        ShownProgram program;
        const QSignalSpy ended(&program.host.commands(), &CommandRunner::commandEnded);
        QTimer::singleShot(0, &program.window, [&program] {
            program.enter(QStringLiteral("_NEW"));
            QVERIFY(program.host.documents().documents().empty());
        });
        program.enter(QStringLiteral("_DELAY 50"));
        QCOMPARE(ended,
                 QList<QVariantList>({{QStringLiteral("_DELAY"), 5100}, {QStringLiteral("_NEW"), 5100}}));
    }

    void theHistoryTellsWhatRanAndWhatFailed()
    {
        ShownProgram program;
        program.enter(QStringLiteral("nosuch thing"));
        program.enter(QStringLiteral("open /not/there.dwg"));
        const QString history = program.history();
        QVERIFY2(history.contains(QStringLiteral("nosuch")), qPrintable(history));
        QVERIFY2(history.contains(QStringLiteral("\nCommand: _OPEN /not/there.dwg\n")), qPrintable(history));
        QVERIFY2(history.contains(QStringLiteral("does not exist")), qPrintable(history));
        QVERIFY(!QApplication::activeModalWidget()); // nothing that would hold up a script
    }

    void helpShowsThePageOfATopic()
    {
        ShownProgram program;
        const QPair<const char *, const char *> pages[] = {
            {"_HELP", "_RECENTLIMIT"},
            {"_HELP 3087", "F4 or the command _RECENT show them with their pictures"},
            {"_HELP 12", "no help page for topic 12"}};
        for (const auto &page : pages) {
            program.enter(page.first);
            const auto *help = program.window.findChild<HelpWindow *>();
            QVERIFY(help && help->isVisible());
            QVERIFY2(help->text().contains(page.second), qPrintable(help->text()));
        }
    }

    void theWindowCanBeMadeAsSmallAsItNeedsToBe()
    {
        ShownProgram program;
        program.host.documents().newDocument();
        program.window.resize(400, 300);
        QTRY_COMPARE(program.window.size(), QSize(400, 300));
    }

    void thePlaceOfTheWindowIsKept_data()
    {
        QTest::addColumn<QRect>("left");
        QTest::addColumn<bool>("maximized");
        QTest::addColumn<QRect>("found");
        const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
        const QRect room =
            screen.adjusted(0, QApplication::style()->pixelMetric(QStyle::PM_TitleBarHeight), 0, 0);
        const QRect place(30, 40, 555, 444);
        const QRect larger = room.adjusted(20, 10, 80, 60);
        QTest::newRow("as it was") << place << false << place;
        QTest::newRow("larger than the screen") << larger << false << room;
        QTest::newRow("maximised") << larger << true << room;
    }

    void thePlaceOfTheWindowIsKept()
    {
        QFETCH(QRect, left);
        QFETCH(bool, maximized);
        const QTemporaryDir profile;
        {
            FxHost host(profile.path(), QString());
            MainWindow window(host);
            window.show();
            window.showNormal();
            window.setGeometry(left);
            if (maximized)
                window.showMaximized();
            QTimer::singleShot(0, &window, &QWidget::close);
            QCOMPARE(QCoreApplication::exec(), 0);
        }
        FxHost host(profile.path(), QString());
        const MainWindow window(host);
        QCOMPARE(window.isMaximized(), maximized);
        QTEST(window.normalGeometry(), "found");
    }

    void theFirstStartTakesTheWholeScreen()
    {
        const ShownProgram program;
        QVERIFY(program.window.isMaximized());
        const QSize screen = QGuiApplication::primaryScreen()->availableSize();
        const QSize normal = program.window.normalGeometry().size();
        QCOMPARE(normal.boundedTo(screen), normal);
    }

    void modulesHearOfTheEndWhileTheWindowLives()
    {
        struct Reactor : CFxEditorReactor
        {
            void mainFrameDestroyed(QWidget *mainFrame) override
            {
                hasMenuBar = mainFrame->findChild<QMenuBar *>() != nullptr;
            }
            bool hasMenuBar = false;
        } reactor;
        QTemporaryDir profile;
        FxHost host(profile.path(), QString());
        {
            MainWindow window(host);
            window.show();
            host.setMainWindow(&window);
            OdEditor *editor = odedEditor();
            editor->addReactor(&reactor);
            editor->release();
        }
        QVERIFY(reactor.hasMenuBar);
        QVERIFY(!host.mainWindow());
        OdEditor *editor = odedEditor();
        editor->removeReactor(&reactor);
        editor->release();
    }
};

QTEST_MAIN(MainWindowTest)

#include "tst_mainwindow.moc"

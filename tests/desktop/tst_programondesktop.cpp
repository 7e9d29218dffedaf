// SPDX-License-Identifier: MIT
#include "tests/support/Hand.h"
#include "tests/support/RunningProgram.h"
#include "tests/support/TestCase.h"

#include <QScreen>

//! The program as a user starts it: from the script to the opened drawing and out.
class tst_ProgramOnDesktop : public TestCase
{
    Q_OBJECT

private slots:
    void geometryIsAsGivenAlsoAfterAMaximizedSession();
    void wrongGeometryIsRefused_data();
    void wrongGeometryIsRefused();
    void drawingIsOpenedThroughThePopup();
    void helpIconLeadsToTheHelpWindow();
    void f4OpensThePopupWithTheKeyboardFocus();
    void f4WorksBeforeAnyDrawingIsOpen();
    void fileMenuOpensThePopup();
    void escapeGivesTheFocusBackToTheCommandLine();
    void clickIntoAnotherProgramClosesThePopup();
    void tileDraggedOntoTheDrawingAreaIsOpenedOnce();
    void logTellsTheWholeStoryInOrder();
};

namespace {

const QStringList drawings{QStringLiteral("gr\u00fcndung.dwg"), QStringLiteral("cellar & garage.dwg"),
                           QStringLiteral("roof.dwg")};
const QString newDrawing = QStringLiteral("_NEW");
const QString recent = QStringLiteral("_RECENT");

} // namespace

void tst_ProgramOnDesktop::geometryIsAsGivenAlsoAfterAMaximizedSession()
{
    RunningProgram program((QStringList()));
    const QString title = QStringLiteral("fxhost");
    const auto place = [&] { return Hand::realGeometry(RunningProgram::findWindow(title)); };
    program.geometry.clear();
    QVERIFY(program.start({}));
    QTRY_COMPARE(RunningProgram::activeTitle(), title);
    QTRY_COMPARE(place().width(), QGuiApplication::primaryScreen()->geometry().width());
    QVERIFY(program.quit());

    program.geometry = QStringLiteral("800x600+100+90");
    QVERIFY(program.start({}));
    QTRY_COMPARE(RunningProgram::activeTitle(), title);
    QTRY_COMPARE(place(), QRect(100, 90, 800, 600));
}

void tst_ProgramOnDesktop::wrongGeometryIsRefused_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("no numbers") << QStringList{"--geometry", "big"};
    QTest::newRow("too small, as X programs spell it") << QStringList{"-geometry", "10x10"};
}

void tst_ProgramOnDesktop::wrongGeometryIsRefused()
{
    QFETCH(QStringList, arguments);
    const QTemporaryDir profile;
    QProcess program;
    program.start(QStringLiteral(FXHOST_FILE), QStringList{"--profile", profile.path()} + arguments);
    QVERIFY(program.waitForFinished());
    QCOMPARE(program.exitCode(), 2);
}

void tst_ProgramOnDesktop::drawingIsOpenedThroughThePopup()
{
    RunningProgram program(drawings);
    QVERIFY(program.start({newDrawing, recent}));
    QTRY_VERIFY(program.log().contains(QStringLiteral("command _RECENT 5100")));
    QTRY_VERIFY(RunningProgram::popup() != 0);
    const WId popup = RunningProgram::popup();
    QTRY_COMPARE(Hand::realGeometry(popup), RunningProgram::popupPlace);
    Hand::keepScreenshot(QStringLiteral("program-with-popup"));

    Hand::moveTo(RunningProgram::tile(1));
    Hand::doubleClick();
    QTRY_COMPARE(program.opened(), QStringList(program.paths().at(1)));
    QTRY_COMPARE(RunningProgram::popup(), WId(0));
    QTRY_VERIFY(RunningProgram::findWindow(QStringLiteral("cellar & garage.dwg")) != 0);
    Hand::keepScreenshot(QStringLiteral("program-with-opened-drawing"));
    QVERIFY(program.quit()); // the keys reach the command line by themselves
    QCOMPARE(program.opened().size(), 1);
    QCOMPARE(program.log().filter(QStringLiteral("module ")),
             QStringList({QStringLiteral("module %1 loaded").arg(QStringLiteral(MODULE_FILE)),
                          QStringLiteral("module %1 unloaded").arg(QStringLiteral(MODULE_FILE))}));
}

void tst_ProgramOnDesktop::helpIconLeadsToTheHelpWindow()
{
    RunningProgram program(drawings);
    QVERIFY(program.start({newDrawing, recent}));
    QTRY_VERIFY(RunningProgram::popup() != 0);
    const QRect place = Hand::realGeometry(RunningProgram::popup());
    Hand::moveTo(QPoint(place.right() - 8, place.top() + 14));
    Hand::click();
    QTRY_VERIFY(program.log().contains(QStringLiteral("help 3087")));
    QTRY_VERIFY(program.log().contains(QStringLiteral("command _RHELP 5100")));
    QTRY_COMPARE(RunningProgram::popup(), WId(0));
    Hand::keepScreenshot(QStringLiteral("program-with-help"));
}

void tst_ProgramOnDesktop::f4OpensThePopupWithTheKeyboardFocus()
{
    RunningProgram program(drawings);
    QVERIFY(program.start({newDrawing}));
    QCOMPARE(RunningProgram::popup(), WId(0));
    Hand::key(QStringLiteral("F4"));
    QTRY_COMPARE(RunningProgram::activeTitle(), RunningProgram::popupTitle());
    QTRY_VERIFY(program.log().contains(QStringLiteral("command _RECENT 5100")));
    Hand::keepScreenshot(QStringLiteral("program-after-f4"));
    // No click in between: the first key goes to the tiles.
    Hand::key(QStringLiteral("Right"));
    Hand::key(QStringLiteral("Return"));
    QTRY_COMPARE(program.opened(), QStringList(program.paths().at(1)));
    QTRY_COMPARE(RunningProgram::popup(), WId(0));
    QVERIFY(program.quit());
}

void tst_ProgramOnDesktop::f4WorksBeforeAnyDrawingIsOpen()
{
    {
        RunningProgram first(drawings);
        QVERIFY(first.start({newDrawing, QStringLiteral("_CLOSE")}));
        Hand::key(QStringLiteral("F4"));
        QTRY_COMPARE(RunningProgram::activeTitle(), RunningProgram::popupTitle());
        Hand::keepScreenshot(QStringLiteral("program-without-drawing-after-f4"));
        Hand::key(QStringLiteral("Return"));
        QTRY_COMPARE(first.opened(), QStringList(first.paths().at(0)));
    }
    // Before the first drawing the module has made no entries, and so no tiles: an empty popup.
    for (const QStringList &names : {drawings, QStringList()}) {
        RunningProgram program(names);
        QVERIFY(program.start({}));
        QTRY_COMPARE(RunningProgram::activeTitle(), QStringLiteral("fxhost"));
        Hand::key(QStringLiteral("F4"));
        QTRY_COMPARE(RunningProgram::activeTitle(), RunningProgram::popupTitle());
        Hand::keepScreenshot(QStringLiteral("program-at-its-start-after-f4-%1").arg(names.size()));
        Hand::key(QStringLiteral("Return"));
        Hand::key(QStringLiteral("Escape"));
        QTRY_COMPARE(RunningProgram::popup(), WId(0));
        QVERIFY(program.quit());
        QVERIFY(program.opened().isEmpty());
    }
}

void tst_ProgramOnDesktop::fileMenuOpensThePopup()
{
    RunningProgram program(drawings);
    QVERIFY(program.start({newDrawing}));
    Hand::key(QStringLiteral("alt+f"));
    // From the end: Exit, and before its separator the browser's entry.
    Hand::key(QStringLiteral("Up"));
    Hand::key(QStringLiteral("Up"));
    Hand::keepScreenshot(QStringLiteral("program-with-file-menu"));
    Hand::key(QStringLiteral("Return"));
    QTRY_COMPARE(RunningProgram::activeTitle(), RunningProgram::popupTitle());
    QTRY_VERIFY(program.log().contains(QStringLiteral("command _RECENT 5100")));
    Hand::key(QStringLiteral("Escape"));
    QTRY_COMPARE(RunningProgram::popup(), WId(0));
    QVERIFY(program.quit());
}

void tst_ProgramOnDesktop::escapeGivesTheFocusBackToTheCommandLine()
{
    RunningProgram program(drawings);
    QVERIFY(program.start({newDrawing}));
    const QString title = RunningProgram::activeTitle();
    Hand::key(QStringLiteral("F4"));
    QTRY_COMPARE(RunningProgram::activeTitle(), RunningProgram::popupTitle());
    Hand::key(QStringLiteral("Escape"));
    QTRY_COMPARE(RunningProgram::popup(), WId(0));
    QTRY_COMPARE(RunningProgram::activeTitle(), title);
    QVERIFY(program.opened().isEmpty());
    QVERIFY(program.quit());
}

void tst_ProgramOnDesktop::clickIntoAnotherProgramClosesThePopup()
{
    RunningProgram program(drawings);
    QVERIFY(program.start({newDrawing}));
    QWidget other; // this test is another program than the one that it has started
    other.setGeometry(1500, 300, 300, 200);
    other.show();
    QVERIFY(waitForActive(&other));
    Hand::moveTo(QPoint(1300, 100)); // the main window's title bar
    Hand::click();
    QTRY_VERIFY(!other.isActiveWindow());
    Hand::key(QStringLiteral("F4"));
    QTRY_COMPARE(RunningProgram::activeTitle(), RunningProgram::popupTitle());
    Hand::moveTo(&other);
    Hand::click();
    QTRY_COMPARE(RunningProgram::popup(), WId(0));
    QTRY_VERIFY(other.isActiveWindow());
    QVERIFY(program.opened().isEmpty());
}

void tst_ProgramOnDesktop::tileDraggedOntoTheDrawingAreaIsOpenedOnce()
{
    RunningProgram program(drawings);
    QVERIFY(program.start({newDrawing, recent}));
    QTRY_COMPARE(RunningProgram::activeTitle(), RunningProgram::popupTitle());
    const WId popup = RunningProgram::popup();
    Hand::moveTo(RunningProgram::tile(0));
    Hand::press();
    // Down over the popup's rim, in steps that do not jump it.
    const int bottom = RunningProgram::popupPlace.bottom();
    QPoint position = RunningProgram::tile(0);
    for (; position.y() < bottom; position.ry() += 4)
        Hand::moveTo(position);
    QTRY_COMPARE(Hand::realGeometry(popup).height(), 32);
    Hand::moveTo(position + QPoint(60, 60));
    Hand::moveTo(position + QPoint(62, 60));
    Hand::keepScreenshot(QStringLiteral("program-with-dragged-tile"));
    Hand::release();
    QTRY_COMPARE(program.opened(), QStringList(program.paths().at(0)));
    QTRY_COMPARE(RunningProgram::popup(), WId(0));
    QVERIFY(program.quit()); // what came in late has been dealt with by then
    QCOMPARE(program.log().filter(QStringLiteral("open ")).size(), 1);
}

void tst_ProgramOnDesktop::logTellsTheWholeStoryInOrder()
{
    RunningProgram program(drawings);
    QVERIFY(program.start({newDrawing}));
    Hand::key(QStringLiteral("F4"));
    QTRY_COMPARE(RunningProgram::activeTitle(), RunningProgram::popupTitle());
    Hand::key(QStringLiteral("shift+Right"));
    Hand::key(QStringLiteral("Return"));
    QTRY_COMPARE(program.opened().size(), 2);
    QTRY_COMPARE(RunningProgram::popup(), WId(0));
    QVERIFY(program.quit());
    const QString module = QStringLiteral("module %1 ").arg(QStringLiteral(MODULE_FILE));
    const QString listed = QStringLiteral("command _RECENTADD 5100");
    QCOMPARE(program.log(),
             QStringList({module + QStringLiteral("loaded"), listed, listed, listed,
                          QStringLiteral("command _NEW 5100"), QStringLiteral("command _RECENT 5100"),
                          QStringLiteral("open %1 ok").arg(program.paths().at(0)),
                          QStringLiteral("open %1 ok").arg(program.paths().at(1)),
                          QStringLiteral("command _QUIT 5100"), module + QStringLiteral("unloaded")}));
}

QTEST_MAIN(tst_ProgramOnDesktop)
#include "tst_programondesktop.moc"

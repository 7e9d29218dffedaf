// SPDX-License-Identifier: MIT
#include "tests/desktop/Hand.h"
#include "tests/support/TestCase.h"
#include "tests/support/process/ProgramOnScreen.h"
#include "tests/support/process/ProgramStandIn.h"

#include <QScreen>

namespace {

const QStringList threeDrawings{QStringLiteral("gr\u00fcndung.dwg"), QStringLiteral("cellar & garage.dwg"),
                                QStringLiteral("roof.dwg")};

} // namespace

//! The program as a user starts it.
class tst_ProgramOnDesktop : public TestCase
{
    Q_OBJECT

private slots:
    void geometryOptionOverridesAMaximizedSession()
    {
        ProgramOnScreen program((QStringList()));
        const QString title = QStringLiteral("fxhost");
        const auto place = [&] { return Hand::realGeometry(ProgramOnScreen::findWindow(title)); };
        program.geometry.clear();
        QVERIFY(program.start({}));
        QTRY_COMPARE(place().width(), QGuiApplication::primaryScreen()->geometry().width());
        QVERIFY(program.quit());

        program.geometry = QStringLiteral("800x600+100+90");
        QVERIFY(program.start({}));
        QTRY_COMPARE(place(), QRect(100, 90, 800, 600));
    }

    void f4OpensThePopupWithTheFocus()
    {
        ProgramOnScreen program(threeDrawings);
        QVERIFY(program.start({"_NEW"}));
        QCOMPARE(ProgramOnScreen::popup(), WId(0));
        Hand::key(QStringLiteral("F4"));
        QVERIFY(ProgramOnScreen::popupOpens());
        QTRY_COMPARE(Hand::realGeometry(ProgramOnScreen::popup()), ProgramOnScreen::popupPlace);
        // The first key goes to the tiles, without a click.
        Hand::key(QStringLiteral("shift+Right"));
        Hand::key(QStringLiteral("Return"));
        QTRY_COMPARE(program.opened(), program.paths().mid(0, 2));
        QVERIFY(ProgramOnScreen::popupCloses());
        QVERIFY(program.quit()); // typed keys go to the command line
        const QString module = QStringLiteral("module %1 ").arg(QStringLiteral(MODULE_FILE));
        const QString listed = QStringLiteral("command _RECENTADD 5100");
        QCOMPARE(program.log(), QStringList({module + "loaded", listed, listed, listed, "command _DELAY 5100",
                                             "command _NEW 5100", "command _RECENT 5100",
                                             QStringLiteral("open %1 ok").arg(program.paths().at(0)),
                                             QStringLiteral("open %1 ok").arg(program.paths().at(1)),
                                             "command _QUIT 5100", module + "unloaded"}));
    }

    void f4WorksBeforeAnyDrawingIsOpen()
    {
        {
            ProgramOnScreen first(threeDrawings);
            QVERIFY(first.start({"_NEW", "_CLOSE"}));
            Hand::key(QStringLiteral("F4"));
            QVERIFY(ProgramOnScreen::popupOpens());
            Hand::key(QStringLiteral("Return"));
            QTRY_COMPARE(first.opened(), first.paths().mid(0, 1));
        }
        // Before the first drawing the module has no entries, and so the popup has no tiles.
        for (const QStringList &names : {threeDrawings, QStringList()}) {
            ProgramOnScreen program(names);
            QVERIFY(program.start({}));
            Hand::key(QStringLiteral("F4"));
            QVERIFY(ProgramOnScreen::popupOpens());
            Hand::keepScreenshot(QStringLiteral("program-at-its-start-after-f4-%1").arg(names.size()));
            Hand::key(QStringLiteral("Return"));
            Hand::key(QStringLiteral("Escape"));
            QVERIFY(ProgramOnScreen::popupCloses());
            QVERIFY(program.quit());
            QVERIFY(program.opened().isEmpty());
        }
    }

    void helpIconOpensTheHelpWindow()
    {
        ProgramOnScreen program(threeDrawings);
        QVERIFY(program.start({"_NEW", "_RECENT"}));
        QVERIFY(ProgramOnScreen::popupOpens());
        Hand::moveTo(ProgramOnScreen::popupPlace.topRight() + QPoint(-8, 14));
        Hand::click();
        QTRY_COMPARE(program.log().mid(7), QStringList({"help 3087", "command _RHELP 5100"}));
        QVERIFY(ProgramOnScreen::popupCloses());
        Hand::keepScreenshot(QStringLiteral("program-with-help"));
    }

    void fileMenuOpensThePopup()
    {
        ProgramOnScreen program(threeDrawings);
        QVERIFY(program.start({"_NEW"}));
        const QString title = ProgramOnScreen::activeTitle();
        Hand::key(QStringLiteral("alt+f"));
        // The last entry is Exit; the browser's is before its separator.
        Hand::key(QStringLiteral("Up"));
        Hand::key(QStringLiteral("Up"));
        Hand::keepScreenshot(QStringLiteral("program-with-file-menu"));
        Hand::key(QStringLiteral("Return"));
        QVERIFY(ProgramOnScreen::popupOpens());
        QTRY_VERIFY(program.log().contains(QStringLiteral("command _RECENT 5100")));
        Hand::key(QStringLiteral("Escape"));
        QVERIFY(ProgramOnScreen::popupCloses());
        QTRY_COMPARE(ProgramOnScreen::activeTitle(), title);
        QVERIFY(program.quit()); // the focus is in the command line again
        QVERIFY(program.opened().isEmpty());
    }

    void clickOnAnotherProgramClosesThePopup()
    {
        ProgramOnScreen program(threeDrawings);
        QVERIFY(program.start({"_NEW"}));
        QWidget other; // of this process, which is another program
        other.setGeometry(1500, 300, 300, 200);
        other.show();
        QVERIFY(waitForActive(&other));
        Hand::moveTo(QPoint(1300, 100)); // the main window's title bar
        Hand::click();
        QTRY_VERIFY(!other.isActiveWindow());
        Hand::key(QStringLiteral("F4"));
        QVERIFY(ProgramOnScreen::popupOpens());
        Hand::moveTo(&other);
        Hand::click();
        QVERIFY(ProgramOnScreen::popupCloses());
        QTRY_VERIFY(other.isActiveWindow());
        QVERIFY(program.opened().isEmpty());
    }

    void fileManagerGetsThePath()
    {
        ProgramOnScreen program({QStringLiteral("--50%20off `id` \\ 'x' \u00dc.dwg")},
                                QStringLiteral("a & b  $HOME"));
        const ProgramStandIn fileManager(0, ProgramStandIn::Others::Found);
        QVERIFY(program.start({"_NEW", "_RECENT"}));
        QVERIFY(ProgramOnScreen::popupOpens());
        Hand::moveTo(ProgramOnScreen::folderButton);
        Hand::click();
        QVERIFY(ProgramOnScreen::popupCloses());
        QCOMPARE(fileManager.starts(), QVector<QStringList>{program.paths()});
        QVERIFY(program.opened().isEmpty());
        QVERIFY(program.quit());
    }
};

TEST_CLASS(tst_ProgramOnDesktop);
#include "tst_programondesktop.moc"

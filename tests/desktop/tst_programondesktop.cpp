// SPDX-License-Identifier: MIT
#include "tests/desktop/Hand.h"
#include "tests/support/Patience.h"
#include "tests/support/TestCase.h"
#include "tests/support/process/ProgramOnScreen.h"
#include "tests/support/process/ProgramStandIn.h"

#include <QScreen>

namespace {

const QStringList threeDrawings{"gr\u00fcndung.dwg", "cellar & garage.dwg", "roof.dwg"};

} // namespace

class tst_ProgramOnDesktop : public TestCase
{
    Q_OBJECT

private slots:
    void geometryOptionOverridesAMaximizedSession()
    {
        ProgramOnScreen program((QStringList()));
        const QString title = "fxhost";
        const auto place = [&] { return Hand::realGeometry(ProgramOnScreen::findWindow(title)); };
        program.geometry.clear();
        QVERIFY(program.start({}));
        QTRY_COMPARE(place().width(), QGuiApplication::primaryScreen()->geometry().width());
        QVERIFY(program.quit());

        program.geometry = "800x600+100+90";
        QVERIFY(program.start({}));
        QTRY_COMPARE(place(), QRect(100, 90, 800, 600));
    }

    void f4OpensThePopupWithTheFocus()
    {
        ProgramOnScreen program(threeDrawings);
        QVERIFY(program.start({"_NEW"}));
        QCOMPARE(ProgramOnScreen::popup(), WId(0));
        Hand::key("F4");
        QVERIFY(ProgramOnScreen::popupOpens());
        QTRY_COMPARE(Hand::realGeometry(ProgramOnScreen::popup()), ProgramOnScreen::popupPlace);
        // The first key goes to the tiles, without a click.
        Hand::key("shift+Right");
        Hand::key("Return");
        QTRY_COMPARE(program.opened(), program.paths().mid(0, 2));
        QVERIFY(ProgramOnScreen::popupCloses());
        QVERIFY(program.quit()); // typed keys go to the command line
        const QString module = QString("module %1 ").arg(MODULE_FILE);
        const QString listed = "command _RECENTADD 5100";
        QCOMPARE(program.log(), QStringList({module + "loaded", listed, listed, listed, "command _DELAY 5100",
                                             "command _NEW 5100", "command _RECENT 5100",
                                             QString("open %1 ok").arg(program.paths().at(0)),
                                             QString("open %1 ok").arg(program.paths().at(1)),
                                             "command _QUIT 5100", module + "unloaded"}));
    }

    void f4WorksBeforeAnyDrawingIsOpen()
    {
        {
            ProgramOnScreen first(threeDrawings);
            QVERIFY(first.start({"_NEW", "_CLOSE"}));
            Hand::key("F4");
            QVERIFY(ProgramOnScreen::popupOpens());
            Hand::key("Return");
            QTRY_COMPARE(first.opened(), first.paths().mid(0, 1));
        }
        // Before the first drawing the module has no entries, and so the popup has no tiles.
        for (const QStringList &names : {threeDrawings, QStringList()}) {
            ProgramOnScreen program(names);
            QVERIFY(program.start({}));
            Hand::key("F4");
            QVERIFY(ProgramOnScreen::popupOpens());
            Hand::keepScreenshot(QString("program-at-its-start-after-f4-%1").arg(names.size()));
            Hand::key("Return");
            Hand::key("Escape");
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
        Hand::click(ProgramOnScreen::popupPlace.topRight() + QPoint(-8, 14));
        QTRY_COMPARE(program.log().mid(7), QStringList({"help 3087", "command _RHELP 5100"}));
        QVERIFY(ProgramOnScreen::popupCloses());
        Hand::keepScreenshot("program-with-help");
    }

    void fileMenuOpensThePopup()
    {
        ProgramOnScreen program(threeDrawings);
        QVERIFY(program.start({"_NEW"}));
        const QString title = ProgramOnScreen::activeTitle();
        Hand::key("alt+f");
        // The last entry is Exit; the browser's is before its separator.
        Hand::key("Up");
        Hand::key("Up");
        Hand::keepScreenshot("program-with-file-menu");
        Hand::key("Return");
        QVERIFY(ProgramOnScreen::popupOpens());
        QTRY_VERIFY(program.log().contains("command _RECENT 5100"));
        Hand::key("Escape");
        QVERIFY(ProgramOnScreen::popupCloses());
        QTRY_COMPARE(ProgramOnScreen::activeTitle(), title);
        QVERIFY(program.quit()); // the focus is in the command line again
        QVERIFY(program.opened().isEmpty());
    }

    void recentDrawingsAreUsedInTheFileMenu()
    {
        ProgramOnScreen program(threeDrawings);
        const ProgramStandIn fileManager(0, ProgramStandIn::Others::Found);
        QVERIFY(program.start({"_NEW"}));
        // Opens the menu, of three entries. \return its place; null unless it is open
        const auto openMenu = [] {
            Hand::keys({"alt+f", "r"});
            QStringList windows;
            const auto isOpen = [&windows] {
                windows = Hand::ask({"search", "--onlyvisible", "--class", "fxhost"}).split('\n');
                return windows.size() == 3; // this menu, the File menu and the main window
            };
            if (!waitUntil(isOpen))
                return QRect();
            QRect rightmost;
            for (const QString &window : qAsConst(windows)) {
                const QRect place = Hand::realGeometry(window.toULongLong());
                if (place.left() > rightmost.left())
                    rightmost = place;
            }
            return rightmost;
        };
        QRect menu = openMenu();
        const int row = menu.height() / 3;
        constexpr int pinButton = 10; // from the right edge, in pixels
        constexpr int folderButton = 30;
        Hand::click(menu.bottomRight() - QPoint(pinButton, row / 2));
        Hand::keepScreenshot("program-with-pinned-entry");
        Hand::key("1"); // for the menu, which is still open; the entry is now the first
        QTRY_COMPARE(program.opened(), program.paths().mid(2));

        menu = openMenu();
        Hand::click(menu.topLeft() + QPoint(50, row / 2 + row));
        QTRY_COMPARE(program.opened(), QStringList({program.paths().at(2), program.paths().at(0)}));
        menu = openMenu();
        Hand::click(menu.bottomRight() - QPoint(folderButton, row / 2));
        QTRY_COMPARE(fileManager.starts(), QVector<QStringList>{program.paths().mid(1, 1)});
        QVERIFY(program.quit()); // the menu is closed, so the command line has the keyboard
    }

    void clickOnAnotherProgramClosesThePopup()
    {
        ProgramOnScreen program(threeDrawings);
        QVERIFY(program.start({"_NEW"}));
        QWidget other; // of this process, which is another program
        other.setGeometry(1500, 300, 300, 200);
        other.show();
        QVERIFY(waitForActive(&other));
        Hand::click(QPoint(1300, 100)); // the main window's title bar
        QTRY_VERIFY(!other.isActiveWindow());
        Hand::key("F4");
        QVERIFY(ProgramOnScreen::popupOpens());
        Hand::click(&other);
        QVERIFY(ProgramOnScreen::popupCloses());
        QTRY_VERIFY(other.isActiveWindow());
        QVERIFY(program.opened().isEmpty());
    }

    void fileManagerGetsThePath()
    {
        ProgramOnScreen program({"--50%20off `id` \\ 'x' \u00dc.dwg"}, "a & b  $HOME");
        const ProgramStandIn fileManager(0, ProgramStandIn::Others::Found);
        QVERIFY(program.start({"_NEW", "_RECENT"}));
        QVERIFY(ProgramOnScreen::popupOpens());
        Hand::click(ProgramOnScreen::folderButton);
        QVERIFY(ProgramOnScreen::popupCloses());
        QCOMPARE(fileManager.starts(), QVector<QStringList>{program.paths()});
        QVERIFY(program.opened().isEmpty());
        QVERIFY(program.quit());
    }
};

TEST_CLASS(tst_ProgramOnDesktop);
#include "tst_programondesktop.moc"

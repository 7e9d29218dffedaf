// SPDX-License-Identifier: MIT
#include "tests/support/FileManager.h"
#include "tests/support/Hand.h"
#include "tests/support/RealBrowser.h"
#include "tests/support/TestCase.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QMenu>
#include <QPointer>
#include <QSignalSpy>
#include <QToolButton>
#include <QWidgetAction>

//! What the popup and the menu entries lead to: drawings, help, folder, pins. Used by hand.
class tst_ButtonsOnDesktop : public TestCase
{
    Q_OBJECT

private slots:
    void doubleClickOpensTheDrawing();
    void helpIconShowsTheTopicAndClosesThePopup_data();
    void helpIconShowsTheTopicAndClosesThePopup();
    void showInFolderRunsTheFileManagerOnTheFileAndClosesThePopup();
    void pinChangesItsPictureAtOnceAndTellsTheMenu();
    void menuEntryIsLegible();
    void menuEntryOpensItsDrawing();
    void menuEntryShowsItsFolder();
    void menuEntryIsPinned();
};

namespace {

const QRect usualFrame(60, 60, 1300, 900);
const QPoint aside(1900, 1190);

//! The module's entries in a menu of the host's, on screen.
struct ShownMenu
{
    explicit ShownMenu(int documents) : browser(documents, usualFrame)
    {
        Hand::moveTo(aside);
        browser.addRecentFiles(&menu, nullptr);
        menu.popup(QPoint(100, 100));
        isShown = waitForExposed(&menu);
    }

    QToolButton *button(int entry, const char *name) const
    {
        return menu.findChildren<QToolButton *>(QLatin1String(name)).value(entry);
    }

    RealBrowser browser;
    QMenu menu;
    bool isShown = false;
};

} // namespace

void tst_ButtonsOnDesktop::doubleClickOpensTheDrawing()
{
    Hand::moveTo(aside);
    RealBrowser browser({QStringLiteral("one.dwg"), QStringLiteral("zw\u00f6lf & mehr.dwg")}, usualFrame);
    const QPointer<QDialog> popup = browser.openPopup();
    QVERIFY(popup);
    Hand::moveTo(RealBrowser::tiles(popup).at(1));
    QTRY_COMPARE(RealBrowser::pathLine(popup), browser.paths().at(1));
    Hand::doubleClick();
    QTRY_VERIFY(!popup);
    QTRY_COMPARE(browser.log().filter(QStringLiteral("open ")),
                 QStringList({QStringLiteral("open %1 ok").arg(browser.paths().at(1))}));
}

void tst_ButtonsOnDesktop::helpIconShowsTheTopicAndClosesThePopup_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("left button") << 1;
    QTest::newRow("right button") << 3;
}

void tst_ButtonsOnDesktop::helpIconShowsTheTopicAndClosesThePopup()
{
    QFETCH(int, button);
    Hand::moveTo(aside);
    RealBrowser browser(3, usualFrame);
    QSignalSpy help(&browser.host(), &fxhost::FxHost::helpRequested);
    const QPointer<QDialog> popup = browser.openPopup();
    QVERIFY(popup);
    const auto *icon = popup->findChild<QLabel *>(QStringLiteral("help_label"));
    QVERIFY(icon && icon->pixmap(Qt::ReturnByValue).size() == QSize(20, 20));
    Hand::moveTo(icon);
    Hand::click(button);
    QTRY_COMPARE(help.size(), 1);
    QCOMPARE(help.first().first().toInt(), 3087);
    QTRY_VERIFY(!popup);
    QVERIFY(browser.log().contains(QStringLiteral("command _RHELP 5100")));
}

void tst_ButtonsOnDesktop::showInFolderRunsTheFileManagerOnTheFileAndClosesThePopup()
{
    Hand::moveTo(aside);
    RealBrowser browser({QStringLiteral("one.dwg"), QStringLiteral("ground floor 'new' & 100%.dwg")},
                        usualFrame);
    const QPointer<QDialog> popup = browser.openPopup();
    QVERIFY(popup);
    const FileManager fileManager(0, FileManager::Others::Found);
    Hand::moveTo(RealBrowser::button(RealBrowser::tiles(popup).at(1), "folderButton"));
    Hand::click();
    QTRY_VERIFY(!popup);
    QCOMPARE(fileManager.starts(), QVector<QStringList>{QStringList(browser.paths().at(1))});
    QVERIFY(browser.log().filter(QStringLiteral("open ")).isEmpty());
}

void tst_ButtonsOnDesktop::pinChangesItsPictureAtOnceAndTellsTheMenu()
{
    Hand::moveTo(aside);
    RealBrowser browser(3, usualFrame);
    const QPointer<QDialog> popup = browser.openPopup();
    QVERIFY(popup);
    QToolButton *pin = RealBrowser::button(RealBrowser::tiles(popup).at(1), "pinButton");
    Hand::moveTo(pin);
    QTRY_VERIFY(pin->underMouse());
    const QImage unpinned = pin->grab().toImage();
    Hand::click();
    QTRY_VERIFY(pin->isChecked());
    QVERIFY(pin->grab().toImage() != unpinned);
    QVERIFY(popup->isVisible());
    Hand::keepScreenshot(QStringLiteral("second-tile-pinned"));

    // The next popup takes the state over from the menu's button.
    Hand::moveTo(&browser.window(), QPoint(20, 20));
    Hand::click();
    QTRY_VERIFY(!popup);
    QDialog *next = browser.openPopup();
    QVERIFY(next);
    const QList<QDialog *> tiles = RealBrowser::tiles(next);
    for (const QDialog *tile : tiles) {
        QLabel *name = tile->findChild<QLabel *>(QStringLiteral("title_label"));
        QCOMPARE(RealBrowser::button(tile, "pinButton")->isChecked(),
                 name->text() == QLatin1String("plan 2.dwg"));
    }
}

void tst_ButtonsOnDesktop::menuEntryIsLegible()
{
    ShownMenu shown(3);
    QVERIFY(shown.isShown);
    const QToolButton *text = shown.button(0, "menuTextButton");
    QVERIFY(text);
    QVERIFY(text->text().startsWith(QLatin1String("&1 /")));
    QTRY_VERIFY(text->isVisible());
    Hand::keepScreenshot(QStringLiteral("menu-entries"));
    const QImage image = shown.menu.grab(QRect(text->mapTo(&shown.menu, QPoint()), text->size())).toImage();
    int dark = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            dark += image.pixelColor(x, y).lightness() < 100;
    }
    const double share = double(dark) / (image.width() * image.height());
    QVERIFY2(share > 0.005, "no text can be seen"); // letters cover some hundredths of their line
    QVERIFY2(share < 0.25, "the text stands on a dark bar");
}

void tst_ButtonsOnDesktop::menuEntryOpensItsDrawing()
{
    ShownMenu shown(2); // "plan 2.dwg": the path goes on behind its blank
    QVERIFY(shown.isShown);
    Hand::moveTo(shown.button(1, "menuTextButton"));
    Hand::click();
    QTRY_COMPARE(shown.browser.log().filter(QStringLiteral("open ")),
                 QStringList({QStringLiteral("open %1 ok").arg(shown.browser.paths().at(1))}));
}

void tst_ButtonsOnDesktop::menuEntryShowsItsFolder()
{
    ShownMenu shown(2);
    QVERIFY(shown.isShown);
    const FileManager fileManager(0, FileManager::Others::Found);
    Hand::moveTo(shown.button(1, "folderButton"));
    Hand::click();
    QTRY_COMPARE(fileManager.starts(), QVector<QStringList>{QStringList(shown.browser.paths().at(1))});
}

void tst_ButtonsOnDesktop::menuEntryIsPinned()
{
    ShownMenu shown(2);
    QVERIFY(shown.isShown);
    Hand::moveTo(shown.button(1, "pinButton"));
    Hand::click();
    // The entry moves to the front, under the hand that clicks it.
    QTRY_VERIFY(shown.button(0, "pinButton")->isChecked());
    QVERIFY(!shown.button(1, "pinButton")->isChecked());
    QCOMPARE(shown.button(0, "menuTextButton")->text(), QStringLiteral("&1 ") + shown.browser.paths().at(1));
    QCOMPARE(shown.button(1, "menuTextButton")->text(), QStringLiteral("&2 ") + shown.browser.paths().at(0));
    Hand::keepScreenshot(QStringLiteral("menu-entry-pinned"));
}

QTEST_MAIN(tst_ButtonsOnDesktop)
#include "tst_buttonsondesktop.moc"

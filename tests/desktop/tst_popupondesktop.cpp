// SPDX-License-Identifier: MIT
#include "tests/support/Hand.h"
#include "tests/support/RealBrowser.h"
#include "tests/support/TestCase.h"

#include <QDialog>
#include <QLabel>
#include <QPointer>
#include <QToolButton>

//! The popup under a window manager, used by hand.
class tst_PopupOnDesktop : public TestCase
{
    Q_OBJECT

private slots:
    void popupHasExactlyTheComputedPlaceAndSize_data();
    void popupHasExactlyTheComputedPlaceAndSize();
    void headerAloneCanBeSeenWithoutDocuments();
    void openingGivesThePopupTheFocusAndShowsTheFirstPath();
    void clickOnATileHighlightsItAndKeepsThePopupOpen();
    void controlAndShiftClicksHighlightMore();
    void pathLineFollowsThePointerAndComesBack();
    void rightButtonChangesNothing();
    void tabMovesNoFocus();
    void clickOutsideClosesThePopup();
    void focusLossWithThePointerInsideKeepsThePopup();
    void newerOfTwoPopupsMayCloseFirst();
};

namespace {

const QRect usualFrame(60, 60, 1300, 900);

//! Where the pointer disturbs nothing: beside every window of these tests.
const QPoint aside(1900, 1190);

} // namespace

void tst_PopupOnDesktop::popupHasExactlyTheComputedPlaceAndSize_data()
{
    QTest::addColumn<QRect>("frame");
    QTest::addColumn<int>("documents");
    QTest::addColumn<QRect>("expected");

    QTest::newRow("narrow main window, 4 columns")
        << QRect(100, 50, 500, 400) << 1 << QRect(50, 99, 724, 201);
    QTest::newRow("narrow main window, taller popup")
        << QRect(100, 50, 500, 400) << 9 << QRect(100, 50, 724, 525);
    QTest::newRow("3 columns") << QRect(40, 40, 800, 700) << 7 << QRect(128, 87, 543, 525);
    QTest::newRow("2 columns") << QRect(40, 40, 950, 700) << 3 << QRect(294, 175, 362, 350);
    QTest::newRow("1300 wide, one row") << QRect(60, 60, 1300, 900) << 4 << QRect(288, 349, 724, 201);
    QTest::newRow("1920 wide, 5 columns") << QRect(0, 30, 1920, 1100) << 12 << QRect(507, 287, 905, 525);
    QTest::newRow("3840 wide, 11 columns") << QRect(0, 30, 3840, 1100) << 12 << QRect(924, 375, 1991, 350);
}

void tst_PopupOnDesktop::popupHasExactlyTheComputedPlaceAndSize()
{
    QFETCH(QRect, frame);
    QFETCH(int, documents);
    QFETCH(QRect, expected);

    Hand::moveTo(aside);
    RealBrowser browser(documents, frame);
    QCOMPARE(browser.window().geometry().size(), frame.size());
    QDialog *popup = browser.openPopup();
    QVERIFY(popup);
    QCOMPARE(RealBrowser::tiles(popup).size(), documents);

    // The crossing of left and top counts from where the window manager has put the main window.
    const QPoint shift = browser.window().geometry().topLeft() - frame.topLeft();
    if (expected.x() == frame.top())
        expected.translate(shift.y(), 0);
    else if (expected.topLeft() == frame.topLeft())
        expected.translate(shift);
    QTRY_COMPARE(Hand::realGeometry(popup->winId()), expected);
    QCOMPARE(popup->geometry(), expected);
    Hand::keepScreenshot(QStringLiteral("popup-%1-wide-%2-documents").arg(frame.width()).arg(documents));
}

void tst_PopupOnDesktop::headerAloneCanBeSeenWithoutDocuments()
{
    Hand::moveTo(aside);
    RealBrowser browser(0, usualFrame);
    QDialog *popup = browser.openPopup();
    QVERIFY(popup);
    QVERIFY(RealBrowser::tiles(popup).isEmpty());
    const auto *path = popup->findChild<QLabel *>(QStringLiteral("main_label_path"));
    QVERIFY(popup->height() > path->geometry().bottom());
    QCOMPARE(popup->geometry().topLeft(), QPoint(288, 450));
    QCOMPARE(popup->width(), 724);
    QTRY_COMPARE(Hand::realGeometry(popup->winId()), popup->geometry());
}

void tst_PopupOnDesktop::openingGivesThePopupTheFocusAndShowsTheFirstPath()
{
    Hand::moveTo(aside);
    RealBrowser browser(9, usualFrame);
    QDialog *popup = browser.openPopup();
    QVERIFY(popup);
    QTRY_COMPARE(QApplication::focusWidget(), popup);
    drainEvents();
    QCOMPARE(RealBrowser::pathLine(popup), browser.paths().at(0));
    const QList<QDialog *> tiles = RealBrowser::tiles(popup);
    QCOMPARE(tiles.size(), 9);
    for (const QDialog *tile : tiles)
        QCOMPARE(RealBrowser::isHighlighted(tile), tile == tiles.first());
}

void tst_PopupOnDesktop::clickOnATileHighlightsItAndKeepsThePopupOpen()
{
    Hand::moveTo(aside);
    RealBrowser browser(6, usualFrame);
    const QPointer<QDialog> popup = browser.openPopup();
    QVERIFY(popup);
    const QList<QDialog *> tiles = RealBrowser::tiles(popup);
    Hand::moveTo(tiles.at(2));
    QTRY_COMPARE(RealBrowser::pathLine(popup), browser.paths().at(2));
    Hand::click();
    QTRY_VERIFY(RealBrowser::isHighlighted(tiles.at(2)));
    drainEvents();
    QVERIFY(popup && popup->isVisible());
    QVERIFY(!RealBrowser::isHighlighted(tiles.at(0)));
    QTRY_COMPARE(QApplication::focusWidget(), popup.data());
    QVERIFY(browser.log().filter(QStringLiteral("open ")).isEmpty());
    Hand::keepScreenshot(QStringLiteral("third-tile-clicked"));
}

void tst_PopupOnDesktop::controlAndShiftClicksHighlightMore()
{
    Hand::moveTo(aside);
    RealBrowser browser(8, usualFrame);
    const QPointer<QDialog> popup = browser.openPopup();
    QVERIFY(popup);
    const QList<QDialog *> tiles = RealBrowser::tiles(popup);
    const auto highlighted = [&tiles] { return RealBrowser::highlighted(tiles); };
    Hand::moveTo(tiles.at(1));
    Hand::click();
    QTRY_COMPARE(highlighted(), QList<int>({1}));
    Hand::holdKey(QStringLiteral("ctrl"));
    Hand::moveTo(tiles.at(6));
    Hand::click();
    Hand::releaseKey(QStringLiteral("ctrl"));
    QTRY_COMPARE(highlighted(), QList<int>({1, 6}));
    Hand::moveTo(tiles.at(6), QPoint(20, 110)); // far enough away to be no double-click
    Hand::click();                              // one of several: the release leaves it alone
    QTRY_COMPARE(highlighted(), QList<int>({6}));
    Hand::holdKey(QStringLiteral("shift"));
    Hand::moveTo(tiles.at(3));
    Hand::click();
    Hand::releaseKey(QStringLiteral("shift"));
    QTRY_COMPARE(highlighted(), QList<int>({3, 4, 5, 6}));
    QVERIFY(popup && popup->isVisible());
    Hand::keepScreenshot(QStringLiteral("four-tiles-highlighted"));
}

void tst_PopupOnDesktop::pathLineFollowsThePointerAndComesBack()
{
    Hand::moveTo(aside);
    RealBrowser browser(5, usualFrame);
    const QPointer<QDialog> popup = browser.openPopup();
    QVERIFY(popup);
    Hand::moveTo(RealBrowser::tiles(popup).at(4));
    QTRY_COMPARE(RealBrowser::pathLine(popup), browser.paths().at(4));
    Hand::moveTo(popup, QPoint(popup->width() - 4, popup->height() - 4));
    QTRY_COMPARE(RealBrowser::pathLine(popup), browser.paths().at(0));
}

void tst_PopupOnDesktop::rightButtonChangesNothing()
{
    Hand::moveTo(aside);
    RealBrowser browser(3, usualFrame);
    const QPointer<QDialog> popup = browser.openPopup();
    QVERIFY(popup);
    const QList<QDialog *> tiles = RealBrowser::tiles(popup);
    Hand::moveTo(tiles.at(1));
    QTRY_COMPARE(RealBrowser::pathLine(popup), browser.paths().at(1));
    Hand::click(3);
    Hand::moveTo(tiles.at(2)); // arrives after the click
    QTRY_COMPARE(RealBrowser::pathLine(popup), browser.paths().at(2));
    QVERIFY(RealBrowser::isHighlighted(tiles.at(0)));
    QVERIFY(!RealBrowser::isHighlighted(tiles.at(1)));
    QVERIFY(popup->isVisible());
}

void tst_PopupOnDesktop::tabMovesNoFocus()
{
    Hand::moveTo(aside);
    RealBrowser browser(3, usualFrame);
    const QPointer<QDialog> popup = browser.openPopup();
    QVERIFY(popup);
    QTRY_COMPARE(QApplication::focusWidget(), popup.data());
    QSignalSpy focus(qApp, &QApplication::focusChanged);
    Hand::key(QStringLiteral("Tab"));
    Hand::key(QStringLiteral("shift+Tab"));
    Hand::moveTo(RealBrowser::tiles(popup).at(1)); // arrives after the keys
    QTRY_COMPARE(RealBrowser::pathLine(popup), browser.paths().at(1));
    QVERIFY(focus.isEmpty());
    QCOMPARE(QApplication::focusWidget(), popup.data());
}

void tst_PopupOnDesktop::clickOutsideClosesThePopup()
{
    Hand::moveTo(aside);
    RealBrowser browser(3, usualFrame);
    const QPointer<QDialog> popup = browser.openPopup();
    QVERIFY(popup);
    Hand::moveTo(&browser.window(), QPoint(20, 20));
    Hand::click();
    QTRY_VERIFY(!popup);
    QTRY_VERIFY(browser.window().isActiveWindow());
}

void tst_PopupOnDesktop::focusLossWithThePointerInsideKeepsThePopup()
{
    Hand::moveTo(aside);
    RealBrowser browser(3, usualFrame);
    const QPointer<QDialog> popup = browser.openPopup();
    QVERIFY(popup);
    Hand::moveTo(RealBrowser::tiles(popup).at(1));
    QTRY_COMPARE(RealBrowser::pathLine(popup), browser.paths().at(1));
    QWidget other;
    other.setGeometry(1500, 900, 200, 100);
    other.show();
    other.activateWindow();
    QVERIFY(waitForActive(&other));
    drainEvents();
    QVERIFY(popup && popup->isVisible());
}

void tst_PopupOnDesktop::newerOfTwoPopupsMayCloseFirst()
{
    Hand::moveTo(aside);
    RealBrowser browser(6, usualFrame);
    const QPointer<QDialog> older = browser.openPopup();
    QVERIFY(older);
    Hand::moveTo(
        RealBrowser::tiles(older).at(5)); // inside: the older one stays when the newer takes the focus
    QTRY_COMPARE(RealBrowser::pathLine(older), browser.paths().at(5));
    const QPointer<QDialog> newer = browser.openPopup();
    QVERIFY(newer && older);
    newer->close();
    QTRY_VERIFY(!newer);
    QVERIFY(older);
    older->activateWindow();
    QVERIFY(waitForActive(older));

    const QList<QDialog *> tiles = RealBrowser::tiles(older);
    for (QDialog *tile : tiles) {
        Hand::moveTo(tile);
        QTRY_VERIFY(tile->underMouse());
        Hand::click();
        QTRY_COMPARE(RealBrowser::highlighted(tiles), QList<int>({tiles.indexOf(tile)}));
        QCOMPARE(RealBrowser::pathLine(older), browser.paths().at(tiles.indexOf(tile)));
    }
    QToolButton *pin = RealBrowser::button(tiles.at(0), "pinButton");
    Hand::moveTo(pin);
    Hand::click();
    QTRY_VERIFY(pin->isChecked());
    Hand::key(QStringLiteral("Left"));
    QTRY_COMPARE(RealBrowser::highlighted(tiles), QList<int>({4}));
    Hand::key(QStringLiteral("Return"));
    QTRY_VERIFY(!older);
    QVERIFY(browser.log().contains(QStringLiteral("open %1 ok").arg(browser.paths().at(4))));
}

QTEST_MAIN(tst_PopupOnDesktop)
#include "tst_popupondesktop.moc"

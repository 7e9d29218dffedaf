// SPDX-License-Identifier: MIT
#include "tests/desktop/Hand.h"
#include "tests/support/TestCase.h"
#include "tests/support/real/RealBrowser.h"

#include <QDialog>
#include <QLabel>
#include <QToolButton>

using Indices = QList<int>;

namespace {

const QStringList none;
const QStringList control = {"ctrl"};
const QStringList shift = {"shift"};
const QStringList both = control + shift;

constexpr int leftButton = 1;
constexpr int middleButton = 2;
constexpr int rightButton = 3;

//! A popup, usually with ten tiles in rows of 4, 4 and 2, and clicks in it.
struct PopupByHand
{
    explicit PopupByHand(int tileCount = 10) : browser(tileCount) { open(); }

    void open()
    {
        Hand::stepAside();
        popup = browser.openPopup();
        if (!popup)
            qFatal("the popup does not become active");
        tiles = RealBrowser::tiles(popup);
    }
    //! Moves the pointer to a tile, to a new position each time: a second click at one position is a
    //! double-click.
    void moveTo(int tile)
    {
        const QPoint place(20 + 30 * (m_places % 4), 40 + 20 * (m_places / 4 % 4));
        ++m_places;
        Hand::moveTo(tiles.at(tile), place);
    }
    //! \param held modifiers as X names them
    void click(int tile, const QStringList &held = none, int button = leftButton)
    {
        moveTo(tile);
        for (const QString &key : held)
            Hand::holdKey(key);
        Hand::click(button);
        for (const QString &key : held)
            Hand::releaseKey(key);
    }
    Indices highlighted() const { return RealBrowser::highlighted(tiles); }
    //! The tile that the path line names; -1 for none.
    int shown() const { return browser.paths().indexOf(RealBrowser::pathLine(popup)); }
    //! Waits until all input so far has arrived, by the pointer's next positions.
    bool allHasArrived()
    {
        return std::all_of(tiles.end() - 2, tiles.end(), [&](QDialog *tile) {
            const int number = tiles.indexOf(tile);
            moveTo(number);
            return waitUntil([&] { return !popup || shown() == number; });
        });
    }

    RealBrowser browser;
    QPointer<QDialog> popup;
    QList<QDialog *> tiles;

private:
    int m_places = 0;
};

} // namespace

class tst_PopupOnDesktop : public TestCase
{
    Q_OBJECT

private slots:
    void popupHasItsPlaceAndTheFocus_data()
    {
        QTest::addColumn<QRect>("frame");
        QTest::addColumn<int>("documents");
        QTest::addColumn<QRect>("expected");
        const auto row = [](const char *name, const QRect &frame, int documents, const QRect &expected) {
            QTest::newRow(name) << frame << documents << expected;
        };
        row("narrow main window", {100, 50, 500, 400}, 1, {50, 99, 724, 201});
        row("narrow main window, taller popup", {100, 50, 500, 400}, 9, {100, 50, 724, 525});
        row("two columns", {40, 40, 950, 700}, 3, {294, 175, 362, 350});
        row("eleven columns", {0, 30, 3840, 1100}, 12, {924, 375, 1991, 350});
    }

    void popupHasItsPlaceAndTheFocus()
    {
        QFETCH(QRect, frame);
        QFETCH(int, documents);
        QFETCH(QRect, expected);
        Hand::stepAside();
        RealBrowser browser(documents, frame);
        QCOMPARE(browser.window().geometry().size(), frame.size());
        QDialog *popup = browser.openPopup();
        QVERIFY(popup);

        // The position counts from where the window manager has placed the main window; left and top are
        // swapped.
        const QPoint moved = browser.window().geometry().topLeft() - frame.topLeft();
        if (expected.x() == frame.top())
            expected.translate(moved.y(), 0);
        else if (expected.topLeft() == frame.topLeft())
            expected.translate(moved);
        QTRY_COMPARE(Hand::realGeometry(popup->winId()), expected);
        QCOMPARE(popup->geometry(), expected);
        QTRY_COMPARE(QApplication::focusWidget(), popup);
        drainEvents();
        QCOMPARE(RealBrowser::pathLine(popup), browser.paths().at(0));
        QCOMPARE(RealBrowser::tiles(popup).size(), documents);
        QCOMPARE(RealBrowser::highlighted(RealBrowser::tiles(popup)), Indices{0});
        Hand::keepScreenshot(QString("popup-%1-wide-%2-documents").arg(frame.width()).arg(documents));
    }

    void pathLineFollowsThePointerAndIsRestored()
    {
        PopupByHand hand(5);
        hand.moveTo(4);
        QTRY_COMPARE(hand.shown(), 4);
        Hand::moveTo(hand.popup, QPoint(hand.popup->width() - 4, hand.popup->height() - 4));
        QTRY_COMPARE(hand.shown(), 0);
    }

    void clickByClick()
    {
        const struct
        {
            int tile;
            QStringList held;
            int button;
            Indices after;
        } clicks[] = {
            {3, none, leftButton, {3}},
            {9, none, rightButton, {3}},
            {4, none, middleButton, {4}},
            {7, control, leftButton, {4, 7}},
            {1, control, middleButton, {1, 4, 7}},
            {7, control, leftButton, {1, 4, 7}}, // never removes a highlight
            {4, none, leftButton, {4}},          // one of several: the release highlights it alone
            {8, shift, leftButton, {4, 5, 6, 7, 8}},
            {2, shift, leftButton, {2, 3, 4, 5, 6, 7, 8}},
            {6, both, leftButton, {6}}, // like no modifier
            {6, shift, leftButton, {6, 7, 8, 9}},
        };
        PopupByHand hand;
        for (const auto &click : clicks) {
            hand.click(click.tile, click.held, click.button);
            QTRY_COMPARE(hand.highlighted(), click.after);
            QVERIFY(hand.allHasArrived()); // including the release
            QCOMPARE(hand.highlighted(), click.after);
        }
        Hand::keepScreenshot("four-tiles-highlighted");
        QVERIFY(hand.popup && hand.popup->isVisible());
        QTRY_COMPARE(QApplication::focusWidget(), hand.popup.data());
        QCOMPARE(hand.browser.opened(), QStringList());
        Hand::key("Return");
        QTRY_VERIFY(!hand.popup);
        QCOMPARE(hand.browser.opened(), hand.browser.opening({6, 7, 8, 9}));
    }

    void doubleClickOpensThatTileAlone()
    {
        for (const int button : {leftButton, rightButton}) {
            PopupByHand hand;
            hand.click(7, shift);
            QTRY_COMPARE(hand.highlighted().size(), 8);
            QVERIFY(hand.allHasArrived());
            Hand::moveTo(hand.tiles.at(5)->findChild<QLabel *>("image_label"));
            QTRY_COMPARE(hand.shown(), 5);
            Hand::doubleClick(button);
            QTRY_VERIFY(!hand.popup);
            QCOMPARE(hand.browser.opened(), hand.browser.opening({5}));
        }
    }

    void clickOutsideClosesThePopup()
    {
        PopupByHand hand(3);
        Hand::click(hand.browser.window().mapToGlobal(QPoint(20, 20)));
        QTRY_VERIFY(!hand.popup);
        QTRY_VERIFY(hand.browser.window().isActiveWindow());
    }

    void pinnedDrawingComesFirstAtTheNextOpening()
    {
        PopupByHand hand(3);
        QToolButton *pin = RealBrowser::button(hand.tiles.at(1), "pinButton");
        Hand::moveTo(pin);
        QTRY_VERIFY(pin->underMouse());
        const QImage unpinned = pin->grab().toImage();
        Hand::click();
        QTRY_VERIFY(pin->isChecked());
        QVERIFY(pin->grab().toImage() != unpinned);
        QVERIFY(hand.popup->isVisible());
        Hand::keepScreenshot("second-tile-pinned");
        Hand::key("Escape"); // goes to the popup, not to the clicked pin
        QTRY_VERIFY(!hand.popup);

        hand.open();
        QStringList names;
        for (const QDialog *tile : qAsConst(hand.tiles)) {
            const bool isPinned = RealBrowser::button(tile, "pinButton")->isChecked();
            names.append((isPinned ? "pinned " : QString()) +
                         tile->findChild<QLabel *>("title_label")->text());
        }
        QCOMPARE(names, QStringList({"pinned plan 2.dwg", "plan 1.dwg", "plan 3.dwg"}));
    }
};

TEST_CLASS(tst_PopupOnDesktop);
#include "tst_popupondesktop.moc"

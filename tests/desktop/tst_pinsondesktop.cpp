// SPDX-License-Identifier: MIT
#include "host/runtime/documents/DocumentManager.h"
#include "tests/support/Hand.h"
#include "tests/support/RealBrowser.h"
#include "tests/support/TestCase.h"

#include <QDialog>
#include <QLabel>
#include <QPointer>
#include <QToolButton>

//! Pins set and taken away by hand, over several openings of the popup, with the module's menu behind it.
class tst_PinsOnDesktop : public TestCase
{
    Q_OBJECT

private slots:
    void pinnedDrawingComesFirstAtTheNextOpening();
    void unpinnedDrawingKeepsItsPlaceInFront();
    void twoPinnedDrawingsKeepTheOrderOfTheirPins();
    void newDrawingTakesAllPinsAway();
};

namespace {

const QRect usualFrame(60, 60, 1300, 900);
const QPoint aside(1900, 1190);

//! A browser over four drawings, and a hand that opens it, pins, and looks.
class PinningHand
{
public:
    PinningHand() { Hand::moveTo(aside); }

    bool open()
    {
        m_popup = browser.openPopup();
        return m_popup;
    }

    //! Clicks the pin of a drawing's tile. \return whether tile and menu have taken the state at once
    bool clickPin(int drawing)
    {
        QToolButton *pin = pinOf(drawing);
        const bool pinned = !pin->isChecked();
        const QImage picture = pin->grab().toImage();
        Hand::moveTo(pin);
        Hand::click();
        if (!waitUntil([&] { return pin->isChecked() == pinned; }))
            return false;
        const QStringList lines = browser.menuLines();
        const QString mark = QStringLiteral(" %1 pinned").arg(drawing);
        const bool menuPinned =
            std::any_of(lines.begin(), lines.end(), [&](const QString &line) { return line.endsWith(mark); });
        return menuPinned == pinned && pin->grab().toImage() != picture;
    }

    bool close()
    {
        Hand::moveTo(aside);
        Hand::key(QStringLiteral("Escape"));
        return waitUntil([this] { return m_popup.isNull(); });
    }

    //! The drawings in the order of their tiles, in the grid.
    QList<int> tileOrder() const
    {
        QMap<int, int> byPlace;
        const QList<QDialog *> tiles = RealBrowser::tiles(m_popup);
        for (const QDialog *tile : tiles)
            byPlace.insert(tile->y() * 10000 + tile->x(), drawingOf(tile));
        return byPlace.values();
    }

    RealBrowser browser{4, usualFrame};

private:
    static int drawingOf(const QDialog *tile)
    {
        // "plan 3.dwg"
        return tile->findChild<QLabel *>(QStringLiteral("title_label"))->text().midRef(5, 1).toInt();
    }

    QToolButton *pinOf(int drawing) const
    {
        const QList<QDialog *> tiles = RealBrowser::tiles(m_popup);
        const auto tile = std::find_if(tiles.begin(), tiles.end(),
                                       [&](const QDialog *each) { return drawingOf(each) == drawing; });
        return RealBrowser::button(*tile, "pinButton");
    }

    QPointer<QDialog> m_popup;
};

QStringList lines(const char *text)
{
    return QString::fromLatin1(text).split(QLatin1Char('|'));
}

} // namespace

void tst_PinsOnDesktop::pinnedDrawingComesFirstAtTheNextOpening()
{
    PinningHand hand;
    QCOMPARE(hand.browser.menuLines(), lines("-|&1 1|&2 2|&3 3|&4 4|-"));
    QVERIFY(hand.open());
    QCOMPARE(hand.browser.menuLines(), lines("-|-|&1 1|&2 2|&3 3|&4 4"));
    QVERIFY(hand.clickPin(3));
    // The order waits for the next opening.
    QCOMPARE(hand.tileOrder(), QList<int>({1, 2, 3, 4}));
    QCOMPARE(hand.browser.menuLines(), lines("-|-|&1 1|&2 2|&3 3 pinned|&4 4"));
    QVERIFY(hand.close());
    QVERIFY(hand.open());
    QCOMPARE(hand.tileOrder(), QList<int>({3, 1, 2, 4}));
    QCOMPARE(hand.browser.menuLines(), lines("-|-|&1 3 pinned|-|&2 1|&3 2|&4 4"));
    Hand::keepScreenshot(QStringLiteral("pinned-drawing-first"));
}

void tst_PinsOnDesktop::unpinnedDrawingKeepsItsPlaceInFront()
{
    PinningHand hand;
    QVERIFY(hand.open());
    QVERIFY(hand.clickPin(3));
    QVERIFY(hand.close());
    QVERIFY(hand.open());
    QVERIFY(hand.clickPin(3));
    QVERIFY(hand.close());
    QVERIFY(hand.open());
    // The menu is back in the host's order, the tiles are not, and the separator has come to stay.
    QCOMPARE(hand.browser.menuLines(), lines("-|-|-|&1 1|&2 2|&3 3|&4 4"));
    QCOMPARE(hand.tileOrder(), QList<int>({3, 1, 2, 4}));
}

void tst_PinsOnDesktop::twoPinnedDrawingsKeepTheOrderOfTheirPins()
{
    PinningHand hand;
    QVERIFY(hand.open());
    QVERIFY(hand.clickPin(4));
    QVERIFY(hand.clickPin(2));
    QVERIFY(hand.close());
    QVERIFY(hand.open());
    // The pins stand in the menu's order, whichever was clicked first.
    QCOMPARE(hand.tileOrder(), QList<int>({2, 4, 1, 3}));
    QCOMPARE(hand.browser.menuLines(), lines("-|-|&1 2 pinned|&2 4 pinned|-|&3 1|&4 3"));
    Hand::keepScreenshot(QStringLiteral("two-pinned-drawings-first"));
    QVERIFY(hand.close());
    QVERIFY(hand.open());
    // Each opening with both groups adds a separator; the older one has come to stand in front.
    QCOMPARE(hand.browser.menuLines(), lines("-|-|-|&1 2 pinned|&2 4 pinned|-|&3 1|&4 3"));
}

void tst_PinsOnDesktop::newDrawingTakesAllPinsAway()
{
    PinningHand hand;
    QVERIFY(hand.open());
    QVERIFY(hand.clickPin(2));
    QVERIFY(hand.close());
    hand.browser.host().documents().newDocument();
    QCOMPARE(hand.browser.menuLines(), lines("-|&1 1|&2 2|&3 3|&4 4|-"));
    QVERIFY(hand.open());
    QCOMPARE(hand.tileOrder(), QList<int>({1, 2, 3, 4}));
    const QList<QDialog *> tiles = RealBrowser::tiles(RealBrowser::popups().constFirst());
    for (const QDialog *tile : tiles)
        QVERIFY(!RealBrowser::button(tile, "pinButton")->isChecked());
}

QTEST_MAIN(tst_PinsOnDesktop)
#include "tst_pinsondesktop.moc"

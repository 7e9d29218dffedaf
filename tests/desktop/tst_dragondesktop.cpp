// SPDX-License-Identifier: MIT
#include "tests/support/DragScene.h"
#include "tests/support/Hand.h"
#include "tests/support/TestCase.h"

#include <QApplication>
#include <QGraphicsEffect>
#include <QLabel>

//! Tiles dragged by hand, within the popup and onto the host behind it.
class tst_DragOnDesktop : public TestCase
{
    Q_OBJECT

private slots:
    void dropOnTheHostOpensEveryHighlightedDrawing();
    void dragOutAndBackInOpensNothing();
    void escapeOutsideCountsAsADropOutside();
    void escapeInsideOpensNothing();
    void releaseInsideOpensNothing();
    void anyPartOfATileDragsTheTile_data();
    void anyPartOfATileDragsTheTile();
    void smallMoveStartsNoDrag();
    void pointerThatJumpsTheRimLeavesThePopupAtFullSize();
    void nothingHighlightedLeavesTheStripWithTheDraggedTile();
    void tileCanBeDraggedAgainAfterADropInside();
};

namespace {

//! Counts the events of a kind that a widget gets.
class Received : public QObject
{
public:
    Received(QWidget *widget, QEvent::Type type) : m_type(type) { widget->installEventFilter(this); }
    int count = 0;

protected:
    bool eventFilter(QObject * /*widget*/, QEvent *event) override
    {
        count += event->type() == m_type;
        return false;
    }

private:
    QEvent::Type m_type;
};

} // namespace

void tst_DragOnDesktop::dropOnTheHostOpensEveryHighlightedDrawing()
{
    DragScene scene(6);
    // Out of order: the drawings are opened in display order all the same.
    for (const int index : {4, 2}) {
        Hand::holdKey(QStringLiteral("ctrl"));
        Hand::moveTo(scene.tiles.at(index));
        Hand::click();
        Hand::releaseKey(QStringLiteral("ctrl"));
        QTRY_VERIFY(RealBrowser::isHighlighted(scene.tiles.at(index)));
    }
    QVERIFY(waitUntil([] { return QApplication::mouseButtons() == Qt::NoButton; }));

    scene.hand.takeHold(scene.tiles.at(2), QPoint(30, 100)); // no double-click
    scene.hand.startDrag();
    scene.hand.carryTo(scene.outside); // all the way in small steps
    scene.hand.waitFor(QStringLiteral("the popup is a strip"), [&] { return scene.isStrip(); });
    QList<int> shownOutside = {-1};
    scene.hand.justDo([&] {
        shownOutside = scene.shown();
        Hand::keepScreenshot(QStringLiteral("strip-while-a-tile-is-dragged"));
    });
    scene.hand.letGo();
    QCOMPARE(scene.hand.run(), QString());
    QCOMPARE(shownOutside, QList<int>());
    QTRY_VERIFY(!scene.popup);
    drainEvents();
    QCOMPARE(scene.opened(), scene.opening({0, 2, 4}));
    Hand::keepScreenshot(QStringLiteral("host-after-the-drop"));
}

void tst_DragOnDesktop::dragOutAndBackInOpensNothing()
{
    DragScene scene(6);
    scene.dragTile(1);
    scene.carryOut();
    scene.carryBackIn();
    QList<int> shownInside;
    scene.hand.justDo([&] {
        shownInside = scene.shown();
        Hand::keepScreenshot(QStringLiteral("full-size-while-a-tile-is-dragged"));
    });
    scene.hand.letGo();
    QCOMPARE(scene.hand.run(), QString());
    QCOMPARE(shownInside, QList<int>({0, 2, 3, 4, 5}));
    drainEvents();
    QCOMPARE(scene.whatHasChanged(), QString());
}

void tst_DragOnDesktop::escapeOutsideCountsAsADropOutside()
{
    DragScene scene(3);
    scene.dragTile(1);
    scene.carryOut();
    scene.hand.escape();
    QCOMPARE(scene.hand.run(), QString());
    QTRY_VERIFY(!scene.popup);
    drainEvents();
    QCOMPARE(scene.opened(), scene.opening({1})); // the press has highlighted it alone
}

void tst_DragOnDesktop::escapeInsideOpensNothing()
{
    DragScene scene(3);
    scene.dragTile(1);
    scene.hand.carryTo(scene.place.center());
    scene.hand.waitFor(QStringLiteral("the tile is hidden"), [&] { return !scene.tiles.at(1)->isVisible(); });
    scene.hand.escape();
    QCOMPARE(scene.hand.run(), QString());
    drainEvents();
    QCOMPARE(scene.whatHasChanged(), QString()); // this Escape was the drag's
}

void tst_DragOnDesktop::releaseInsideOpensNothing()
{
    DragScene scene(6);
    const QPoint cell = scene.tiles.at(5)->pos();
    scene.dragTile(5);
    scene.hand.carryTo(scene.place.center());
    QList<int> shownMeanwhile;
    scene.hand.waitFor(QStringLiteral("the tile is hidden"), [&] {
        shownMeanwhile = scene.shown();
        return !scene.tiles.at(5)->isVisible();
    });
    scene.hand.letGo();
    QCOMPARE(scene.hand.run(), QString());
    QCOMPARE(shownMeanwhile, QList<int>({0, 1, 2, 3, 4}));
    drainEvents();
    QCOMPARE(scene.whatHasChanged(), QString());
    QCOMPARE(scene.tiles.at(5)->pos(), cell);
}

void tst_DragOnDesktop::anyPartOfATileDragsTheTile_data()
{
    QTest::addColumn<QString>("part");
    for (const char *part : {"image_label", "title_label", "Iconlabel"})
        QTest::newRow(part) << QString::fromLatin1(part);
}

void tst_DragOnDesktop::anyPartOfATileDragsTheTile()
{
    QFETCH(QString, part);
    DragScene scene(3);
    scene.hand.takeHold(scene.tiles.at(2)->findChild<QLabel *>(part));
    scene.hand.startDrag();
    scene.hand.carryTo(scene.place.center());
    scene.hand.waitFor(QStringLiteral("the whole tile is hidden"), [&] {
        return scene.shown() == QList<int>({0, 1});
    });
    scene.carryOut();
    scene.hand.letGo();
    QCOMPARE(scene.hand.run(), QString());
    QTRY_VERIFY(!scene.popup);
    drainEvents();
    QCOMPARE(scene.opened(), scene.opening({2}));
}

void tst_DragOnDesktop::smallMoveStartsNoDrag()
{
    DragScene scene(3);
    const int distance = QApplication::startDragDistance();
    QVERIFY(distance > 2);
    scene.hand.takeHold(scene.tiles.at(1));
    const QPoint pressed = scene.tiles.at(1)->mapToGlobal(scene.tiles.at(1)->rect().center());
    const Received moves(scene.tiles.at(1), QEvent::MouseMove);
    const Received releases(scene.tiles.at(1), QEvent::MouseButtonRelease);
    scene.hand.jumpTo(pressed + QPoint(distance - 1, 0));
    scene.hand.waitFor(QStringLiteral("the tile hears of the move"), [&] { return moves.count == 1; });
    scene.hand.jumpTo(pressed - QPoint(1, distance - 2));
    scene.hand.waitFor(QStringLiteral("the tile hears of the next one"), [&] { return moves.count == 2; });
    scene.hand.step(
        QStringLiteral("the tile gets the release, which a drag would have eaten"), [] { Hand::release(); },
        [&] { return releases.count == 1; });
    QCOMPARE(scene.hand.run(), QString());
    QCOMPARE(scene.whatHasChanged(), QString());
}

void tst_DragOnDesktop::pointerThatJumpsTheRimLeavesThePopupAtFullSize()
{
    DragScene scene(3);
    scene.dragTile(1);
    scene.hand.carryTo(scene.place.center());
    scene.hand.jumpTo(scene.outside);
    scene.hand.letGo();
    QCOMPARE(scene.hand.run(), QString());
    drainEvents();
    QCOMPARE(scene.whatHasChanged(), QString()); // it has not seen the pointer leave
}

void tst_DragOnDesktop::nothingHighlightedLeavesTheStripWithTheDraggedTile()
{
    DragScene scene(3);
    scene.dragTile(1);
    scene.carryOut();
    scene.hand.justDo([&] { // no hand can take the highlight away during a drag
        scene.tiles.at(1)->graphicsEffect()->setProperty("color", QColor(Qt::white));
    });
    scene.hand.letGo();
    QCOMPARE(scene.hand.run(), QString());
    drainEvents();
    QVERIFY(scene.popup && scene.popup->isVisible());
    QTRY_VERIFY(scene.isStrip());
    QCOMPARE(scene.shown(), QList<int>({1}));
    QCOMPARE(scene.opened(), QStringList());
    Hand::keepScreenshot(QStringLiteral("strip-left-with-nothing-highlighted"));
}

void tst_DragOnDesktop::tileCanBeDraggedAgainAfterADropInside()
{
    DragScene scene(3);
    for (int i = 0; i < 2; ++i) {
        scene.hand.takeHold(scene.tiles.at(i), QPoint(20, 100));
        scene.hand.startDrag();
        scene.carryOut();
        scene.carryBackIn();
        scene.hand.letGo();
        QCOMPARE(scene.hand.run(), QString());
        drainEvents();
        QCOMPARE(scene.shown(), QList<int>({0, 1, 2}));
    }
    scene.dragTile(2);
    scene.carryOut();
    scene.hand.letGo();
    QCOMPARE(scene.hand.run(), QString());
    QTRY_VERIFY(!scene.popup);
    drainEvents();
    QCOMPARE(scene.opened(), scene.opening({2}));
}

QTEST_MAIN(tst_DragOnDesktop)
#include "tst_dragondesktop.moc"

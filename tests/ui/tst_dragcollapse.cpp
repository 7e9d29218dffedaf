// SPDX-License-Identifier: MIT
#include "tests/support/DraggedTile.h"

//! Tells when a widget is shown.
class ShowWatch : public QObject
{
    Q_OBJECT
public:
    explicit ShowWatch(QWidget *widget) : QObject(widget) { widget->installEventFilter(this); }

signals:
    void shown();

protected:
    bool eventFilter(QObject * /*widget*/, QEvent *event) override
    {
        if (event->type() == QEvent::Show)
            emit shown();
        return false;
    }
};

//! The strip that the popup becomes while a tile is dragged outside, and the way back.
class TestDragCollapse : public TestCase
{
    Q_OBJECT

private slots:
    void moveOutsideLeavesTheHeaderAlone();
    void moveBackInsideRestoresAllButTheDraggedTile();
    void moveBackInsideAlsoMovesThePopupBack();
    void draggedTileIsNeverShownMeanwhile();
    void everyMoveOutsideCollapsesAgain();
    void moveInsideAtFullSizeOnlyHidesTheDraggedTile();
    void cellsOfTheSpacersAreLeftAlone();
    void tilesOutsideTheGridAreLeftAlone();
    void leavingTheStripFormsItAgain();
    void leavingAtFullSizeChangesNothing();
};

void TestDragCollapse::moveOutsideLeavesTheHeaderAlone()
{
    DraggedTile drag(6); // two rows, the second of two tiles
    drag.dragTo(DraggedTile::outside);
    const QRect twoRowStrip(drag.popup->popupX, drag.popup->popupY, 724, 32);
    QVERIFY(drag.popup->isCollapsed);
    QCOMPARE(drag.popup->geometry(), twoRowStrip);
    QVERIFY(drag.hasStripForm());
    QCOMPARE(drag.shown(), QList<int>());
    drainEvents(); // layouts have run
    QCOMPARE(drag.popup->geometry(), twoRowStrip);
    QVERIFY(drag.popup->isVisible());
    QVERIFY(drag.popup->main_label_title->isVisible());
}

void TestDragCollapse::moveBackInsideRestoresAllButTheDraggedTile()
{
    DraggedTile drag(6);
    const QRect before = drag.popup->geometry();
    drag.dragTo(DraggedTile::outside);
    drainEvents();
    drag.dragTo(drag.popup->geometry().center());
    QVERIFY(!drag.popup->isCollapsed);
    QCOMPARE(drag.popup->geometry(), before);
    QVERIFY(drag.hasFullForm());
    QCOMPARE(drag.shown(), QList<int>({0, 2, 3, 4, 5}));
    drainEvents();
    QCOMPARE(drag.popup->geometry(), before);
    QCOMPARE(drag.tiles.at(2)->pos().y(), drag.tiles.at(0)->pos().y());
    QVERIFY(drag.tiles.at(2)->x() > drag.tiles.at(0)->x() + 2 * 161); // the cell between them is kept
}

void TestDragCollapse::moveBackInsideAlsoMovesThePopupBack()
{
    DraggedTile drag;
    drag.dragTo(DraggedTile::outside);
    drag.popup->move(100, 600);
    drag.dragTo(drag.popup->geometry().center());
    QVERIFY(!drag.popup->isCollapsed);
    QCOMPARE(drag.popup->geometry(), DraggedTile::fullSize);
}

void TestDragCollapse::draggedTileIsNeverShownMeanwhile()
{
    DraggedTile drag;
    drag.dragTo(DraggedTile::outside);
    QSignalSpy restored(new ShowWatch(drag.tiles.at(0)), &ShowWatch::shown);
    QSignalSpy flickered(new ShowWatch(drag.tiles.at(1)), &ShowWatch::shown);
    drag.dragTo(DraggedTile::strip.center());
    QCOMPARE(restored.size(), 1);
    QCOMPARE(flickered.size(), 0);
}

void TestDragCollapse::everyMoveOutsideCollapsesAgain()
{
    DraggedTile drag;
    for (int i = 0; i < 3; ++i) {
        drag.dragTo(DraggedTile::outside + QPoint(i, 0));
        QVERIFY(drag.popup->isCollapsed);
        QCOMPARE(drag.popup->geometry(), DraggedTile::strip);
        QVERIFY(drag.hasStripForm());
        QCOMPARE(drag.shown(), QList<int>());
        drag.disturb();
        for (RecentDocDialog *tile : qAsConst(drag.tiles))
            tile->show();
    }
}

void TestDragCollapse::moveInsideAtFullSizeOnlyHidesTheDraggedTile()
{
    DraggedTile drag;
    drag.tiles.at(2)->hide();
    drag.disturb();
    drag.dragTo(drag.popup->geometry().center());
    QVERIFY(drag.isStillDisturbed());
    QVERIFY(!drag.popup->isCollapsed);
    QCOMPARE(drag.shown(), QList<int>({0}));
    QCOMPARE(drag.popup->dragDialog.data(), drag.tiles.at(1));
}

void TestDragCollapse::cellsOfTheSpacersAreLeftAlone()
{
    DraggedTile drag(6); // two rows of four columns: the spacers are in row 2 and in column 5
    QGridLayout *grid = drag.popup->gridLayout;
    auto *lastVisited = new QWidget(drag.popup);
    auto *underTheTiles = new QWidget(drag.popup);
    auto *besideTheTiles = new QWidget(drag.popup);
    grid->addWidget(lastVisited, 1, 4);
    grid->addWidget(underTheTiles, 2, 1);
    grid->addWidget(besideTheTiles, 1, 5);
    for (QWidget *widget : {lastVisited, underTheTiles, besideTheTiles})
        widget->show();
    drag.dragTo(DraggedTile::outside);
    QVERIFY(!lastVisited->isVisible());
    for (QWidget *widget : {underTheTiles, besideTheTiles}) {
        QVERIFY(widget->isVisible());
        widget->hide();
    }
    drag.dragTo(drag.popup->geometry().center());
    QVERIFY(lastVisited->isVisible());
    QVERIFY(!underTheTiles->isVisible());
    QVERIFY(!besideTheTiles->isVisible());
}

void TestDragCollapse::tilesOutsideTheGridAreLeftAlone()
{
    DraggedTile drag;
    QWidget beside(drag.popup);
    beside.show();
    drag.dragTo(DraggedTile::outside);
    QVERIFY(beside.isVisible());
    beside.hide();
    drag.dragTo(DraggedTile::strip.center());
    QVERIFY(!beside.isVisible());
}

void TestDragCollapse::leavingTheStripFormsItAgain()
{
    DraggedTile drag;
    drag.dragTo(DraggedTile::outside);
    drag.popup->dragDialog = nullptr; // is not asked for
    drag.tiles.first()->show();
    drag.disturb();
    drag.dragAway();
    QVERIFY(drag.popup->isCollapsed);
    QCOMPARE(drag.popup->geometry(), DraggedTile::strip);
    QVERIFY(drag.hasStripForm());
    QCOMPARE(drag.shown(), QList<int>({0})); // no tile is hidden
    drainEvents();
    QCOMPARE(drag.popup->geometry(), DraggedTile::strip);
}

void TestDragCollapse::leavingAtFullSizeChangesNothing()
{
    DraggedTile drag;
    drag.disturb();
    QCursor::setPos(DraggedTile::outside); // quickly, without a move there
    drag.dragAway();
    QVERIFY(drag.isStillDisturbed());
    QVERIFY(!drag.popup->isCollapsed);
    QCOMPARE(drag.shown(), QList<int>({0, 1, 2}));
}

QTEST_MAIN(TestDragCollapse)
#include "tst_dragcollapse.moc"

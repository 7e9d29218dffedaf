// SPDX-License-Identifier: MIT
#include "tests/support/DraggedTile.h"

#include <QDropEvent>

using Formats = QStringList;
Q_DECLARE_METATYPE(Formats)

//! Which drags the popup tracks, where it takes the pointer to be outside, and that it takes no drop.
class TestDragEvents : public TestCase
{
    Q_OBJECT

private slots:
    void onlyTheBrowsersOwnDragsAreTracked_data();
    void onlyTheBrowsersOwnDragsAreTracked();
    void edgeOfElevenPixelsCountsAsOutside_data();
    void edgeOfElevenPixelsCountsAsOutside();
    void insideOfTheStripIsTheStripsOwn_data();
    void insideOfTheStripIsTheStripsOwn();
    void nothingHappensWithoutAHeldTile();
    void heldTileMayGoMeanwhile();
    void movesAreNeitherTakenNorRefused_data();
    void movesAreNeitherTakenNorRefused();
    void dropDoesNothing_data();
    void dropDoesNothing();
};

void TestDragEvents::onlyTheBrowsersOwnDragsAreTracked_data()
{
    QTest::addColumn<Formats>("formats");
    QTest::addColumn<bool>("accepted");
    const QString urls = QStringLiteral("text/uri-list");
    QTest::newRow("a tile") << Formats{DraggedTile::format(), urls} << true;
    QTest::newRow("the tile's format alone") << Formats{DraggedTile::format()} << true;
    QTest::newRow("a file") << Formats{urls} << false;
    QTest::newRow("text") << Formats{QStringLiteral("text/plain")} << false;
    QTest::newRow("another format of the kind")
        << Formats{urls, QStringLiteral("application/corvel.DR.Layout2")} << false;
    QTest::newRow("nothing") << Formats{} << false;
}

void TestDragEvents::onlyTheBrowsersOwnDragsAreTracked()
{
    QFETCH(Formats, formats);
    QFETCH(bool, accepted);
    DraggedTile drag(3, -1); // it is not asked whether a tile is held
    QMimeData data;
    for (const QString &format : formats)
        data.setData(format, "file:///home/u/a.dwg");
    for (const bool before : {false, true}) {
        QDragEnterEvent event(QPoint(40, 40), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                              Qt::NoModifier);
        event.setAccepted(before);
        const Qt::DropAction other =
            event.proposedAction() == Qt::CopyAction ? Qt::MoveAction : Qt::CopyAction;
        event.setDropAction(other);
        deliver(drag.popup, &event);
        QCOMPARE(event.isAccepted(), accepted);
        QCOMPARE(event.dropAction(), accepted ? event.proposedAction() : other);
    }
    QVERIFY(!drag.popup->isCollapsed);
}

void TestDragEvents::edgeOfElevenPixelsCountsAsOutside_data()
{
    QTest::addColumn<QPoint>("pointer");
    QTest::addColumn<bool>("collapses");
    const QRect inner(QPoint(299, 310), QPoint(1000, 488)); // 11 pixels inside of the first and last pixel
    QTest::newRow("in the middle") << inner.center() << false;
    QTest::newRow("upper left corner") << inner.topLeft() << false;
    QTest::newRow("lower right corner") << inner.bottomRight() << false;
    QTest::newRow("one pixel left") << inner.topLeft() - QPoint(1, 0) << true;
    QTest::newRow("one pixel up") << inner.topLeft() - QPoint(0, 1) << true;
    QTest::newRow("one pixel right") << inner.bottomRight() + QPoint(1, 0) << true;
    QTest::newRow("one pixel down") << inner.bottomRight() + QPoint(0, 1) << true;
    QTest::newRow("on the popup's first pixel") << DraggedTile::fullSize.topLeft() << true;
    QTest::newRow("far away") << DraggedTile::outside << true;
}

void TestDragEvents::edgeOfElevenPixelsCountsAsOutside()
{
    QFETCH(QPoint, pointer);
    QFETCH(bool, collapses);
    DraggedTile drag;
    QCOMPARE(drag.popup->geometry(), DraggedTile::fullSize);
    drag.dragTo(pointer);
    QCOMPARE(drag.popup->isCollapsed, collapses);
    QCOMPARE(drag.popup->geometry(), collapses ? DraggedTile::strip : DraggedTile::fullSize);
    QVERIFY(!drag.tiles.at(1)->isVisible()); // in both cases
}

void TestDragEvents::insideOfTheStripIsTheStripsOwn_data()
{
    QTest::addColumn<QPoint>("pointer");
    QTest::addColumn<bool>("restores");
    const QRect inner(QPoint(299, 310), QPoint(1000, 319));
    QTest::newRow("its upper left corner") << inner.topLeft() << true;
    QTest::newRow("its lower right corner") << inner.bottomRight() << true;
    QTest::newRow("one pixel too high") << inner.topLeft() - QPoint(0, 1) << false;
    QTest::newRow("one pixel too low") << inner.bottomRight() + QPoint(0, 1) << false;
    QTest::newRow("the middle of the full size") << DraggedTile::fullSize.center() << false;
}

void TestDragEvents::insideOfTheStripIsTheStripsOwn()
{
    QFETCH(QPoint, pointer);
    QFETCH(bool, restores);
    DraggedTile drag;
    drag.dragTo(DraggedTile::outside);
    drag.dragTo(pointer);
    QCOMPARE(drag.popup->isCollapsed, !restores);
    QCOMPARE(drag.popup->geometry(), restores ? DraggedTile::fullSize : DraggedTile::strip);
}

void TestDragEvents::nothingHappensWithoutAHeldTile()
{
    DraggedTile drag(3, -1);
    drag.dragTo(DraggedTile::outside);
    QVERIFY(!drag.popup->isCollapsed);
    QCOMPARE(drag.popup->geometry(), DraggedTile::fullSize);
    QVERIFY(drag.hasFullForm());
    QCOMPARE(drag.shown(), QList<int>({0, 1, 2}));

    drag.popup->dragDialog = drag.tiles.first();
    drag.dragTo(DraggedTile::outside);
    drag.popup->dragDialog = nullptr; // the focus has gone
    drag.dragTo(DraggedTile::strip.center());
    QVERIFY(drag.popup->isCollapsed);
    QCOMPARE(drag.popup->geometry(), DraggedTile::strip);
    QCOMPARE(drag.shown(), QList<int>());
}

void TestDragEvents::heldTileMayGoMeanwhile()
{
    DraggedTile drag;
    drag.dragTo(DraggedTile::outside);
    delete drag.tiles.takeAt(1);
    drag.dragTo(DraggedTile::strip.center());
    QVERIFY(drag.popup->isCollapsed); // as without a held tile
    drag.dragAway();
    QCOMPARE(drag.popup->geometry(), DraggedTile::strip);
}

void TestDragEvents::movesAreNeitherTakenNorRefused_data()
{
    QTest::addColumn<QPoint>("pointer");
    QTest::newRow("inside") << DraggedTile::fullSize.center();
    QTest::newRow("outside") << DraggedTile::outside;
}

void TestDragEvents::movesAreNeitherTakenNorRefused()
{
    QFETCH(QPoint, pointer);
    DraggedTile drag;
    QCursor::setPos(pointer);
    for (const bool before : {false, true}) { // as the answer to the entering was
        QDragMoveEvent event(QPoint(40, 40), Qt::CopyAction, &drag.data, Qt::LeftButton, Qt::NoModifier);
        event.setAccepted(before);
        deliver(drag.popup, &event);
        QCOMPARE(event.isAccepted(), before);
    }
}

void TestDragEvents::dropDoesNothing_data()
{
    QTest::addColumn<bool>("collapsed");
    QTest::newRow("at full size") << false;
    QTest::newRow("collapsed") << true;
}

void TestDragEvents::dropDoesNothing()
{
    QFETCH(bool, collapsed);
    DraggedTile drag;
    drag.dragTo(collapsed ? DraggedTile::outside : DraggedTile::fullSize.center());
    QDropEvent event(QPointF(20, 20), Qt::CopyAction, &drag.data, Qt::LeftButton, Qt::NoModifier);
    deliver(drag.popup, &event);
    drainEvents();
    QVERIFY(!event.isAccepted());
    QCOMPARE(drag.popup->isCollapsed, collapsed);
    QCOMPARE(drag.popup->geometry(), collapsed ? DraggedTile::strip : DraggedTile::fullSize);
    QVERIFY(!drag.tiles.at(1)->isVisible()); // only the end of the drag shows it again
    QCOMPARE(drag.browser.host.openedPaths(), QStringList());
}

QTEST_MAIN(TestDragEvents)
#include "tst_dragevents.moc"

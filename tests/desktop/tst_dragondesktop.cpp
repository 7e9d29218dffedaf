// SPDX-License-Identifier: MIT
#include "tests/desktop/Hand.h"
#include "tests/desktop/HandDragScene.h"
#include "tests/support/TestCase.h"

#include <QApplication>
#include <QLabel>

//! Tiles dragged with the real pointer, within the popup and onto the host below it.
class tst_DragOnDesktop : public TestCase
{
    Q_OBJECT

private slots:
    void dropOnTheHostOpensEveryHighlightedDrawing()
    {
        HandDragScene scene(6);
        // Out of order: the drawings are opened in display order nevertheless.
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
        scene.hand.carryTo(scene.outside); // in small steps
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

    void dragThatEndsInsideOpensNothing_data()
    {
        QTest::addColumn<QString>("part"); // any part of a tile drags the tile
        QTest::addColumn<bool>("leaves");
        QTest::addColumn<bool>("escapes");
        QTest::newRow("released") << "image_label" << false << false;
        QTest::newRow("Escape") << "title_label" << false << true;
        QTest::newRow("outside and back inside") << "Iconlabel" << true << false;
    }

    void dragThatEndsInsideOpensNothing()
    {
        QFETCH(QString, part);
        QFETCH(bool, leaves);
        QFETCH(bool, escapes);
        HandDragScene scene(6);
        const QPoint cell = scene.tiles.at(5)->pos();
        scene.hand.takeHold(scene.tiles.at(5)->findChild<QLabel *>(part));
        scene.hand.startDrag();
        if (leaves) {
            scene.carryOut();
            scene.carryBackIn();
        } else {
            scene.hand.carryTo(scene.place.center());
        }
        scene.hand.waitFor(QStringLiteral("the dragged tile alone is hidden"), [&] {
            return scene.shown() == QList<int>({0, 1, 2, 3, 4});
        });
        if (escapes)
            scene.hand.escape();
        else
            scene.hand.letGo();
        QCOMPARE(scene.hand.run(), QString());
        drainEvents();
        QCOMPARE(scene.whatHasChanged(), QString());
        QCOMPARE(scene.tiles.at(5)->pos(), cell);
        QTRY_COMPARE(HandDrag::keptDrags(), 0);

        scene.dragTile(2); // the next drag works
        scene.carryOut();
        scene.hand.letGo();
        QCOMPARE(scene.hand.run(), QString());
        QTRY_VERIFY(!scene.popup);
        drainEvents();
        QCOMPARE(scene.opened(), scene.opening({2}));
    }

    void dragThatEndsOutsideOpensTheDrawing_data()
    {
        QTest::addColumn<QPoint>("place");
        QTest::addColumn<bool>("escapes");
        QTest::newRow("on the main window") << QPoint(400, 800) << false;
        QTest::newRow("on the empty desktop") << QPoint(1650, 400) << false;
        QTest::newRow("with Escape") << QPoint(400, 800) << true;
    }

    void dragThatEndsOutsideOpensTheDrawing()
    {
        QFETCH(QPoint, place);
        QFETCH(bool, escapes);
        HandDragScene scene(3);
        scene.dragTile(1);
        scene.carryOut();
        scene.hand.jumpTo(place);
        if (escapes)
            scene.hand.escape();
        else
            scene.hand.letGo();
        QCOMPARE(scene.hand.run(), QString());
        QTRY_VERIFY(!scene.popup);
        drainEvents();
        QCOMPARE(scene.opened(), scene.opening({1})); // the press has highlighted it alone
        QTRY_COMPARE(HandDrag::keptDrags(), 0);
    }

    void pointerThatSkipsTheRimLeavesThePopupAtFullSize()
    {
        HandDragScene scene(3);
        scene.dragTile(1);
        scene.hand.carryTo(scene.place.center());
        scene.hand.jumpTo(scene.outside);
        scene.hand.letGo();
        QCOMPARE(scene.hand.run(), QString());
        drainEvents();
        QCOMPARE(scene.whatHasChanged(), QString()); // it has not received the pointer's leaving
    }
};

TEST_CLASS(tst_DragOnDesktop);
#include "tst_dragondesktop.moc"

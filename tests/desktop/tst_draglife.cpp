// SPDX-License-Identifier: MIT
#include "host/runtime/commands/CommandRunner.h"
#include "host/runtime/documents/DocumentManager.h"
#include "host/runtime/modules/ModuleManager.h"
#include "tests/desktop/HandDragScene.h"
#include "tests/support/TestCase.h"

#include <QApplication>

namespace {

//! Runs an action during a drag inside or outside the popup, waits for its outcome, and drops.
QString dragAndDo(
    HandDragScene &scene, bool outside, const std::function<void()> &action,
    const std::function<bool()> &outcome = [] { return true; })
{
    scene.dragTile(1);
    if (outside) {
        scene.carryOut();
    } else {
        scene.hand.carryTo(scene.place.center());
        scene.hand.waitFor(QStringLiteral("the popup has received the drag"),
                           [&] { return !scene.tiles.at(1)->isVisible(); });
    }
    scene.hand.step(QStringLiteral("the action during the drag"), action, outcome);
    scene.hand.letGo();
    return scene.hand.run();
}

} // namespace

//! Changes to popup and tile while a drag runs its event loop.
class tst_DragLife : public TestCase
{
    Q_OBJECT

private slots:
    void popupMayCloseDuringTheDrag_data()
    {
        QTest::addColumn<bool>("outside");
        QTest::addColumn<bool>("isDeleted");
        QTest::newRow("closed, inside") << false << false;
        QTest::newRow("closed, outside") << true << false;
        QTest::newRow("deleted, inside") << false << true;
        QTest::newRow("deleted, outside") << true << true;
    }

    void popupMayCloseDuringTheDrag()
    {
        QFETCH(bool, outside);
        QFETCH(bool, isDeleted);
        allowWarning(QStringLiteral("BadWindow")); // Qt sends the leave event to the deleted window too
        HandDragScene scene(3);
        const auto end = [&] {
            if (isDeleted)
                delete scene.popup;
            else
                scene.popup->close();
        };
        QCOMPARE(dragAndDo(scene, outside, end), QString());
        QTRY_VERIFY(!scene.popup);
        drainEvents();
        for (const auto &tile : qAsConst(scene.tiles))
            QVERIFY(!tile);
        QCOMPARE(scene.opened(), QStringList()); // no tile is highlighted any more
        scene.openPopup();                       // the next one works
        scene.dragTile(2);
        scene.carryOut();
        scene.hand.letGo();
        QCOMPARE(scene.hand.run(), QString());
        QTRY_COMPARE(scene.opened(), scene.opening({2}));
    }

    void tileMayBeDeletedDuringTheDrag()
    {
        {
            HandDragScene scene(3);
            QCOMPARE(dragAndDo(scene, false, [&] { delete scene.tiles.at(1); }), QString());
            drainEvents();
            QVERIFY(scene.popup && scene.popup->isVisible());
            QVERIFY(scene.isFull());
            QCOMPARE(scene.shown(), QList<int>({0, 2}));
            QCOMPARE(scene.opened(), QStringList());
        }
        HandDragScene scene(3);
        QCOMPARE(dragAndDo(scene, true, [&] { delete scene.tiles.at(1); }), QString());
        drainEvents();
        QCOMPARE(scene.opened(), QStringList()); // no tile is highlighted any more
    }

    void mainWindowMayBeDeletedDuringTheDrag()
    {
        HandDragScene scene(3);
        auto *frame = new QWidget; // instead of the main window, which the host watches
        scene.popup->setParent(frame, scene.popup->windowFlags());
        scene.popup->show();
        QVERIFY(waitForActive(scene.popup));
        QCOMPARE(dragAndDo(scene, true, [frame] { delete frame; }), QString());
        QVERIFY(!scene.popup);
        drainEvents();
        QCOMPARE(scene.opened(), QStringList());
    }

    void moduleIsNotUnloadedDuringTheDrag()
    {
        HandDragScene scene(3);
        fxhost::ModuleManager &modules = scene.browser.host().modules();
        bool isUnloaded = true;
        QCOMPARE(dragAndDo(scene, true, [&] { isUnloaded = modules.unload(QStringLiteral(MODULE_FILE)); }),
                 QString());
        QVERIFY(!isUnloaded);
        QTRY_COMPARE(scene.opened(), scene.opening({1})); // as without the request
        QTRY_VERIFY(!scene.popup);
        QVERIFY(modules.unload(QStringLiteral(MODULE_FILE)));
    }

    void focusMayMoveDuringTheDrag_data()
    {
        QTest::addColumn<bool>("outside");
        QTest::newRow("inside") << false;
        QTest::newRow("outside") << true;
    }

    void focusMayMoveDuringTheDrag()
    {
        QFETCH(bool, outside);
        HandDragScene scene(3);
        QWidget other;
        other.setGeometry(1500, 900, 200, 100);
        bool wasStrip = false;
        const auto takeFocus = [&] {
            other.show();
            other.activateWindow();
        };
        const auto hasFocus = [&] {
            wasStrip = scene.isStrip();
            return other.isActiveWindow();
        };
        QCOMPARE(dragAndDo(scene, outside, takeFocus, hasFocus), QString());
        QCOMPARE(wasStrip, outside); // while collapsed it does not close
        if (outside)
            QTRY_VERIFY(!scene.popup);
        drainEvents();
        QCOMPARE(scene.opened(), outside ? scene.opening({1}) : QStringList());
        if (outside)
            return;
        QVERIFY(scene.popup && scene.popup->isVisible()); // the pointer was inside
        QVERIFY(scene.isFull());
        QCOMPARE(scene.shown(), QList<int>({0, 2})); // the dragged tile stays hidden
    }

    void drawingMayBeOpenedDuringTheDrag()
    {
        HandDragScene scene(3);
        const auto open = [&] {
            OdString problem;
            scene.browser.host().documents().OpenDocument(CFxString(scene.browser.paths().at(2)), 0, 0,
                                                          problem);
        };
        QCOMPARE(dragAndDo(scene, true, open), QString());
        QTRY_VERIFY(!scene.popup);
        drainEvents();
        QCOMPARE(scene.opened(), scene.opening({2, 1}));
    }

    void anotherPopupMayOpenDuringTheDrag()
    {
        HandDragScene scene(3);
        const auto open = [&] { scene.browser.host().commands().runLine(QStringLiteral("_RECENT")); };
        QCOMPARE(dragAndDo(scene, true, open), QString());
        QTRY_VERIFY(!scene.popup);
        drainEvents();
        QCOMPARE(scene.opened(), scene.opening({0})); // the highlight is the newer popup's
    }
};

TEST_CLASS(tst_DragLife);
#include "tst_draglife.moc"

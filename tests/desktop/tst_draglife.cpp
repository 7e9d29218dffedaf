// SPDX-License-Identifier: MIT
#include "host/runtime/commands/CommandRunner.h"
#include "host/runtime/modules/ModuleManager.h"
#include "tests/desktop/HandDragScene.h"
#include "tests/support/TestCase.h"

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
        scene.hand.waitFor("the popup has received the drag",
                           [&] { return !scene.tiles.at(1)->isVisible(); });
    }
    scene.hand.step("the action during the drag", action, outcome);
    return scene.drop();
}

} // namespace

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
        allowWarning("BadWindow"); // Qt sends the leave event to the deleted window too
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
        QCOMPARE(scene.dropOutside(2), QString());
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
        QCOMPARE(dragAndDo(scene, true, [&] { isUnloaded = modules.unload(MODULE_FILE); }), QString());
        QVERIFY(!isUnloaded);
        QTRY_COMPARE(scene.opened(), scene.opening({1})); // as without the request
        QTRY_VERIFY(!scene.popup);
        QVERIFY(modules.unload(MODULE_FILE));
    }

    void focusMayMoveDuringTheDrag()
    {
        for (const bool outside : {false, true}) {
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
                continue;
            QVERIFY(scene.popup && scene.popup->isVisible()); // the pointer was inside
            QVERIFY(scene.isFull());
            QCOMPARE(scene.shown(), QList<int>({0, 2})); // the dragged tile stays hidden
        }
    }

    void drawingOrPopupMayOpenDuringTheDrag_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<QList<int>>("opened");
        QTest::newRow("a drawing") << "_OPEN %1" << QList<int>{2, 1};
        QTest::newRow("another popup, whose highlight counts") << "_RECENT" << QList<int>{0};
    }

    void drawingOrPopupMayOpenDuringTheDrag()
    {
        QFETCH(QString, command);
        QFETCH(QList<int>, opened);
        HandDragScene scene(3);
        command.replace("%1", scene.browser.paths().at(2));
        const auto run = [&] { scene.browser.host().commands().runLine(command); };
        QCOMPARE(dragAndDo(scene, true, run), QString());
        QTRY_VERIFY(!scene.popup);
        drainEvents();
        QCOMPARE(scene.opened(), scene.opening(opened));
    }
};

TEST_CLASS(tst_DragLife);
#include "tst_draglife.moc"

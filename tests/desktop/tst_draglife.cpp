// SPDX-License-Identifier: MIT
#include "host/runtime/commands/CommandRunner.h"
#include "host/runtime/modules/ModuleManager.h"
#include "tests/support/DocumentListener.h"
#include "tests/support/DragScene.h"
#include "tests/support/TestCase.h"

#include <QApplication>
#include <QEventLoop>
#include <QTimer>

//! What may happen to popup and tile while a drag runs its event loop, and when its end opens drawings.
class tst_DragLife : public TestCase
{
    Q_OBJECT

private slots:
    void popupMayGoDuringTheDrag_data();
    void popupMayGoDuringTheDrag();
    void tileMayGoDuringTheDragInside();
    void tileMayGoDuringTheDragOutside();
    void mainWindowMayGoDuringTheDrag();
    void theModuleMayNotGoDuringTheDrag();
    void focusMayGoDuringTheDragInside();
    void focusMayGoDuringTheDragOutside();
    void aDrawingMayBeOpenedDuringTheDrag();
    void anotherPopupMayComeDuringTheDrag();
    void openingMayDeleteThePopup();
    void openingMayRunEvents();
};

namespace {

//! Lets go of a drag that is inside or outside the popup, after something was done there.
QString dragAndDo(DragScene &scene, bool outside, const std::function<void()> &action)
{
    scene.dragTile(1);
    if (outside) {
        scene.carryOut();
    } else {
        scene.hand.carryTo(scene.place.center());
        scene.hand.waitFor(QStringLiteral("the popup has seen the drag"),
                           [&] { return !scene.tiles.at(1)->isVisible(); });
    }
    scene.hand.justDo(action);
    scene.hand.letGo();
    return scene.hand.run();
}

//! A window of another program's kind that takes the focus, far from the popup.
struct OtherWindow
{
    OtherWindow() { window.setGeometry(1500, 900, 200, 100); }
    void takeFocus()
    {
        window.show();
        window.activateWindow();
    }
    QWidget window;
};

} // namespace

void tst_DragLife::popupMayGoDuringTheDrag_data()
{
    QTest::addColumn<bool>("outside");
    QTest::addColumn<bool>("isDeleted");
    QTest::newRow("closed, inside") << false << false;
    QTest::newRow("closed, outside") << true << false;
    QTest::newRow("deleted, inside") << false << true;
    QTest::newRow("deleted, outside") << true << true;
}

void tst_DragLife::popupMayGoDuringTheDrag()
{
    QFETCH(bool, outside);
    QFETCH(bool, isDeleted);
    allowWarning(QStringLiteral("BadWindow")); // Qt tells the window of the drag's leaving, gone or not
    DragScene scene(3);
    const auto go = [&] {
        if (isDeleted)
            delete scene.popup;
        else
            scene.popup->close();
    };
    QCOMPARE(dragAndDo(scene, outside, go), QString());
    QTRY_VERIFY(!scene.popup);
    drainEvents();
    for (const auto &tile : qAsConst(scene.tiles))
        QVERIFY(!tile);
    QCOMPARE(scene.opened(), QStringList()); // there is nothing highlighted any more
    scene.openPopup();                       // the next one works
    scene.dragTile(2);
    scene.carryOut();
    scene.hand.letGo();
    QCOMPARE(scene.hand.run(), QString());
    QTRY_COMPARE(scene.opened(), scene.opening({2}));
}

void tst_DragLife::tileMayGoDuringTheDragInside()
{
    DragScene scene(3);
    QCOMPARE(dragAndDo(scene, false, [&] { delete scene.tiles.at(1); }), QString());
    drainEvents();
    QVERIFY(scene.popup && scene.popup->isVisible());
    QVERIFY(scene.isFull());
    QCOMPARE(scene.shown(), QList<int>({0, 2}));
    QCOMPARE(scene.opened(), QStringList());
}

void tst_DragLife::tileMayGoDuringTheDragOutside()
{
    DragScene scene(3);
    QCOMPARE(dragAndDo(scene, true, [&] { delete scene.tiles.at(1); }), QString());
    drainEvents();
    QCOMPARE(scene.opened(), QStringList()); // what was highlighted has gone
}

void tst_DragLife::mainWindowMayGoDuringTheDrag()
{
    DragScene scene(3);
    auto *frame = new QWidget; // in the place of the main window, whose end the host would hear of
    scene.popup->setParent(frame, scene.popup->windowFlags());
    scene.popup->show();
    QVERIFY(waitForActive(scene.popup));
    QCOMPARE(dragAndDo(scene, true, [frame] { delete frame; }), QString());
    QVERIFY(!scene.popup);
    drainEvents();
    QCOMPARE(scene.opened(), QStringList());
}

void tst_DragLife::theModuleMayNotGoDuringTheDrag()
{
    DragScene scene(3);
    fxhost::ModuleManager &modules = scene.browser.host().modules();
    bool isUnloaded = true;
    QCOMPARE(dragAndDo(scene, true, [&] { isUnloaded = modules.unload(QStringLiteral(MODULE_FILE)); }),
             QString());
    QVERIFY(!isUnloaded);
    QTRY_COMPARE(scene.opened(), scene.opening({1})); // as if nobody had asked
    QTRY_VERIFY(!scene.popup);
    QVERIFY(modules.unload(QStringLiteral(MODULE_FILE)));
}

void tst_DragLife::focusMayGoDuringTheDragInside()
{
    DragScene scene(3);
    OtherWindow other;
    scene.dragTile(1);
    scene.hand.carryTo(scene.place.center());
    scene.hand.step(
        QStringLiteral("another window gets the focus"), [&] { other.takeFocus(); },
        [&] { return other.window.isActiveWindow(); });
    scene.hand.letGo();
    QCOMPARE(scene.hand.run(), QString());
    drainEvents();
    QVERIFY(scene.popup && scene.popup->isVisible()); // the pointer was inside
    QVERIFY(scene.isFull());
    QCOMPARE(scene.shown(), QList<int>({0, 2})); // no tile is held any more that could be shown
    QCOMPARE(scene.opened(), QStringList());
}

void tst_DragLife::focusMayGoDuringTheDragOutside()
{
    DragScene scene(3);
    OtherWindow other;
    scene.dragTile(1);
    scene.carryOut();
    scene.hand.step(
        QStringLiteral("another window gets the focus"), [&] { other.takeFocus(); },
        [&] { return other.window.isActiveWindow(); });
    bool wasStrip = false;
    scene.hand.justDo([&] { wasStrip = scene.isStrip(); });
    scene.hand.letGo();
    QCOMPARE(scene.hand.run(), QString());
    QVERIFY(wasStrip); // while collapsed it does not close
    QTRY_VERIFY(!scene.popup);
    drainEvents();
    QCOMPARE(scene.opened(), scene.opening({1}));
}

void tst_DragLife::aDrawingMayBeOpenedDuringTheDrag()
{
    DragScene scene(3);
    const auto open = [&] {
        OdString problem;
        scene.browser.host().documents().OpenDocument(CFxString(scene.browser.paths().at(2)), 0, 0, problem);
    };
    QCOMPARE(dragAndDo(scene, true, open), QString());
    QTRY_VERIFY(!scene.popup);
    drainEvents();
    QCOMPARE(scene.opened(), scene.opening({2, 1}));
}

void tst_DragLife::anotherPopupMayComeDuringTheDrag()
{
    DragScene scene(3);
    const auto open = [&] { scene.browser.host().commands().runLine(QStringLiteral("_RECENT")); };
    QCOMPARE(dragAndDo(scene, true, open), QString());
    QTRY_VERIFY(!scene.popup);
    drainEvents();
    QCOMPARE(scene.opened(), scene.opening({0})); // highlighted is what the newer popup highlights
}

void tst_DragLife::openingMayDeleteThePopup()
{
    DragScene scene(3);
    DocumentListener listener(scene.browser.host());
    scene.dragTile(1);
    listener.on(QStringLiteral("Created"), [&](CFxDocument * /*document*/) { delete scene.popup; });
    scene.carryOut();
    scene.hand.letGo();
    QCOMPARE(scene.hand.run(), QString());
    QVERIFY(!scene.popup);
    drainEvents();
    QCOMPARE(scene.opened(), scene.opening({1}));
}

void tst_DragLife::openingMayRunEvents()
{
    DragScene scene(3);
    DocumentListener listener(scene.browser.host());
    bool wasDeleted = false;
    listener.on(QStringLiteral("Created"), [&](CFxDocument * /*document*/) {
        QEventLoop loop; // a progress dialog, say
        QTimer::singleShot(0, &loop, &QEventLoop::quit);
        loop.exec();
        drainEvents();
        wasDeleted = !scene.popup;
    });
    scene.dragTile(1);
    scene.carryOut();
    scene.hand.letGo();
    QCOMPARE(scene.hand.run(), QString());
    QVERIFY(wasDeleted); // while its drag was still returning
    QCOMPARE(scene.opened(), scene.opening({1}));
}

QTEST_MAIN(tst_DragLife)
#include "tst_draglife.moc"

// SPDX-License-Identifier: MIT
#include "tests/support/Keys.h"
#include "tests/support/OpenGrid.h"

#include <QPushButton>
#include <QSignalSpy>

Q_DECLARE_METATYPE(Qt::KeyboardModifiers)

//! Keys where there is nothing to move, while a tile is held, and in the older of two popups.
class tst_KeyEdges : public TestCase
{
    Q_OBJECT

private slots:
    void withoutTilesNothingHappens_data();
    void withoutTilesNothingHappens();
    void withoutAHighlightNothingHappens_data();
    void withoutAHighlightNothingHappens();
    void baseDialogGetsKeysOnlyWhileATileIsHeld_data();
    void baseDialogGetsKeysOnlyWhileATileIsHeld();
    void baseDialogNeverGetsEnter_data();
    void baseDialogNeverGetsEnter();
    void escapeEndsTwiceWhileATileIsHeld();
    void keysInTheOlderPopupMoveTheNewersHighlight();
    void rowMovesInTheOlderPopupGoByItsOwnGrid();
    void enterInTheOlderPopupClosesItAndOpensTheNewersHighlight();
};

void tst_KeyEdges::withoutTilesNothingHappens_data()
{
    QTest::addColumn<bool>("hasList");
    QTest::newRow("no documents") << true;
    QTest::newRow("the host keeps no list") << false;
}

void tst_KeyEdges::withoutTilesNothingHappens()
{
    QFETCH(bool, hasList);
    Browser browser;
    browser.host.hasRecentFileList = hasList;
    const QPointer<RecentDocMainWindow> popup = browser.openPopup();
    QCOMPARE(popup->gridLayout != nullptr, hasList);
    for (const int key : everyKey) {
        for (const auto modifiers : allModifiers)
            pressKey(popup, key, modifiers);
    }
    drainEvents();
    QVERIFY(popup && popup->isVisible());
    QVERIFY(!popup->forwardSelectionActive);
    QVERIFY(!popup->backwardSelectionActive);
    QCOMPARE(popup->main_label_path->text(), QString());
    QCOMPARE(browser.host.openedPaths(), QStringList());
}

void tst_KeyEdges::withoutAHighlightNothingHappens_data()
{
    QTest::addColumn<int>("documents");
    QTest::addColumn<Indices>("withoutTile");
    QTest::newRow("one tile") << 1 << Indices();
    QTest::newRow("ten tiles") << 10 << Indices();
    QTest::newRow("documents, none of which has a tile") << 5 << Indices({0, 1, 2, 3, 4});
}

void tst_KeyEdges::withoutAHighlightNothingHappens()
{
    QFETCH(int, documents);
    QFETCH(Indices, withoutTile);
    OpenGrid grid(documents, 4, withoutTile);
    QCOMPARE(grid.tiles.size(), documents - withoutTile.size());
    grid.highlight({});
    for (const int key : everyKey) {
        for (const auto modifiers : allModifiers) {
            QVERIFY(grid.press(key, modifiers));
            QCOMPARE(grid.highlighted(), Indices());
        }
    }
    drainEvents();
    QVERIFY(grid.popup && grid.popup->isVisible());
    QVERIFY(!grid.popup->forwardSelectionActive);
    QVERIFY(!grid.popup->backwardSelectionActive);
    QCOMPARE(grid.line(), OpenGrid::asItWas());
    QCOMPARE(grid.browser.host.openedPaths(), QStringList());
}

void tst_KeyEdges::baseDialogGetsKeysOnlyWhileATileIsHeld_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<Indices>("after");
    const Qt::KeyboardModifiers none;
    const Qt::KeyboardModifiers shift = Qt::ShiftModifier;
    QTest::newRow("Tab") << int(Qt::Key_Tab) << none << Indices({6});
    QTest::newRow("Backtab") << int(Qt::Key_Backtab) << shift << Indices({5});
    QTest::newRow("Right") << int(Qt::Key_Right) << none << Indices({6});
    QTest::newRow("Shift+Left") << int(Qt::Key_Left) << shift << Indices({4, 5});
    QTest::newRow("Up") << int(Qt::Key_Up) << none << Indices({1});
    QTest::newRow("Shift+Up") << int(Qt::Key_Up) << shift << Indices({5});
    QTest::newRow("a letter") << int(Qt::Key_A) << none << Indices({5});
}

void tst_KeyEdges::baseDialogGetsKeysOnlyWhileATileIsHeld()
{
    QFETCH(int, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(Indices, after);
    OpenGrid grid(10);
    for (const bool held : {false, true, false}) {
        grid.highlight({5});
        grid.popup->forwardSelectionActive = false;
        grid.popup->backwardSelectionActive = false;
        grid.popup->dragDialog = held ? grid.tiles.at(2) : nullptr;
        QCOMPARE(grid.press(key, modifiers), !held); // a base dialog leaves what it has no use for
        QCOMPARE(grid.highlighted(), after);
    }
}

void tst_KeyEdges::baseDialogNeverGetsEnter_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Return") << int(Qt::Key_Return);
    QTest::newRow("Enter") << int(Qt::Key_Enter);
}

void tst_KeyEdges::baseDialogNeverGetsEnter()
{
    QFETCH(int, key);
    OpenGrid grid(4);
    auto *button = new QPushButton(grid.popup); // which a base dialog would click
    button->setDefault(true);
    button->show();
    const QSignalSpy clicked(button, &QPushButton::clicked);
    grid.highlight({});
    grid.popup->dragDialog = grid.tiles.at(2);
    QVERIFY(grid.press(key));
    QCOMPARE(clicked.count(), 0);
    grid.highlight({1});
    QVERIFY(grid.press(key, Qt::ShiftModifier)); // and this it would leave
    QCOMPARE(clicked.count(), 0);
    QCOMPARE(grid.browser.host.openedPaths(), QStringList(grid.browser.path(1)));
}

void tst_KeyEdges::escapeEndsTwiceWhileATileIsHeld()
{
    OpenGrid grid(4);
    grid.popup->dragDialog = grid.tiles.at(2);
    QStringList ends;
    connect(grid.popup, &QDialog::finished,
            [&ends](int result) { ends.append(QStringLiteral("finished %1").arg(result)); });
    connect(grid.popup, &QDialog::rejected, [&ends] { ends.append(QStringLiteral("rejected")); });
    grid.press(Qt::Key_Escape);
    // Once from the popup, once from the base dialog, which is asked to reject.
    QCOMPARE(ends.filter(QStringLiteral("finished")),
             QStringList({QStringLiteral("finished 0"), QStringLiteral("finished 0")}));
    drainEvents();
    QVERIFY(!grid.popup);
    QCOMPARE(grid.browser.host.openedPaths(), QStringList());
}

void tst_KeyEdges::keysInTheOlderPopupMoveTheNewersHighlight()
{
    TwoPopups two(10);
    QVERIFY(two.older.popup && two.newer);
    two.older.press(Qt::Key_Right);
    QCOMPARE(highlightedIn(two.newerTiles), Indices({1}));
    QCOMPARE(two.newer->main_label_path->text(), two.older.browser.path(1));
    two.older.press(Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(highlightedIn(two.newerTiles), Indices({1, 2}));
    QVERIFY(two.older.popup->forwardSelectionActive); // the direction is each popup's own
    QVERIFY(!two.newer->forwardSelectionActive);
    two.older.press(Qt::Key_Left);
    QCOMPARE(highlightedIn(two.newerTiles), Indices({0}));
    QCOMPARE(two.older.highlighted(), Indices({0}));
    QCOMPARE(two.older.line(), two.older.browser.path(0));
}

void tst_KeyEdges::rowMovesInTheOlderPopupGoByItsOwnGrid()
{
    TwoPopups two(10);
    QVERIFY(two.older.popup && two.newer);
    two.older.press(Qt::Key_Right); // the newer's second tile
    two.older.press(Qt::Key_Down);
    // The tile of that path in the grid of the popup that got the key, and the one below it.
    QCOMPARE(two.older.highlighted(), Indices({0, 5}));
    QCOMPARE(highlightedIn(two.newerTiles), Indices({1}));
    QCOMPARE(two.newer->main_label_path->text(), two.older.browser.path(5));
}

void tst_KeyEdges::enterInTheOlderPopupClosesItAndOpensTheNewersHighlight()
{
    TwoPopups two(10);
    QVERIFY(two.older.popup && two.newer);
    pressKey(two.newer, Qt::Key_Down);
    QCOMPARE(highlightedIn(two.newerTiles), Indices({4}));
    two.older.press(Qt::Key_Return);
    QCOMPARE(two.older.browser.host.openedPaths(), QStringList(two.older.browser.path(4)));
    drainEvents();
    QVERIFY(!two.older.popup);
    QVERIFY(two.newer);
}

QTEST_MAIN(tst_KeyEdges)
#include "tst_keyedges.moc"

// SPDX-License-Identifier: MIT
#include "tests/support/GridMoves.h"
#include "tests/support/OpenGrid.h"

namespace {

void go(RecentDocMainWindow *popup, Move move)
{
    switch (move) {
    case Move::Next:
        popup->gotoNextDialog();
        break;
    case Move::Previous:
        popup->gotoPreviousDialog();
        break;
    case Move::Down:
        popup->goDownNextDialog();
        break;
    case Move::Up:
        popup->goUpPreviousDialog();
        break;
    }
}

} // namespace

Q_DECLARE_METATYPE(Move)

//! Where the four moves lead.
class tst_KeyMoves : public TestCase
{
    Q_OBJECT

private slots:
    void fromEveryTile_data();
    void fromEveryTile();
    void roundTheEnds_data();
    void roundTheEnds();
    void overRowsWithoutTiles_data();
    void overRowsWithoutTiles();
    void listMovesWithSeveralHighlighted_data();
    void listMovesWithSeveralHighlighted();
    void rowMovesWithSeveralHighlighted_data();
    void rowMovesWithSeveralHighlighted();
    void theLeftTileKeepsItsEffectAndTheNewOneGetsItsOwn_data();
    void theLeftTileKeepsItsEffectAndTheNewOneGetsItsOwn();
    void aMoveOntoItselfHighlightsAnew_data();
    void aMoveOntoItselfHighlightsAnew();
    void aHighlightedTargetOfARowMoveIsLeftAlone();
    void twoTilesOfOnePath_data();
    void twoTilesOfOnePath();
    void aColourThatDiffersInItsAlphaIsNoHighlight();
};

void tst_KeyMoves::fromEveryTile_data()
{
    QTest::addColumn<int>("tiles");
    QTest::addColumn<int>("columns");
    QTest::addColumn<Move>("move");
    for (const int tiles : {1, 4, 5, 10, 23}) {
        for (const int columns : {4, 2}) {
            for (const auto &move : moves)
                QTest::addRow("%d tiles in %d columns, %s", tiles, columns, move.second)
                    << tiles << columns << move.first;
        }
    }
}

void tst_KeyMoves::fromEveryTile()
{
    QFETCH(int, tiles);
    QFETCH(int, columns);
    QFETCH(Move, move);
    OpenGrid grid(tiles, columns);
    QCOMPARE(grid.tiles.size(), tiles);
    for (int from = 0; from < tiles; ++from) {
        const int to = target(move, from, tiles, columns);
        const QByteArray name = QByteArray("from ") + QByteArray::number(from);
        grid.highlight({from});
        go(grid.popup, move);
        QVERIFY2(grid.highlighted() == Indices({to}), name);
        QVERIFY2(grid.line() == grid.lineOf(to), name);
    }
}

void tst_KeyMoves::roundTheEnds_data()
{
    QTest::addColumn<int>("tiles");
    QTest::addColumn<int>("columns");
    QTest::addColumn<int>("from");
    QTest::addColumn<Move>("move");
    QTest::addColumn<int>("to");
    QTest::newRow("Right on the last of ten") << 10 << 4 << 9 << Move::Next << 0;
    QTest::newRow("Left on the first of ten") << 10 << 4 << 0 << Move::Previous << 9;
    QTest::newRow("Right at the end of a row") << 10 << 4 << 3 << Move::Next << 4;
    QTest::newRow("Left at the start of a row") << 10 << 4 << 4 << Move::Previous << 3;
    QTest::newRow("Down where the last row has no tile") << 10 << 4 << 7 << Move::Down << 3;
    QTest::newRow("Up where the last row has no tile") << 10 << 4 << 3 << Move::Up << 7;
    QTest::newRow("Up where the last row has one") << 10 << 4 << 1 << Move::Up << 9;
    QTest::newRow("Down from the last row") << 10 << 4 << 8 << Move::Down << 0;
    QTest::newRow("Down into the last row") << 10 << 4 << 5 << Move::Down << 9;
    QTest::newRow("Down in two full columns") << 10 << 2 << 9 << Move::Down << 1;
    QTest::newRow("Up in two full columns") << 10 << 2 << 1 << Move::Up << 9;
    QTest::newRow("23 in 4, Up in the column the last row lacks") << 23 << 4 << 3 << Move::Up << 19;
    QTest::newRow("23 in 4, Down in the column the last row lacks") << 23 << 4 << 19 << Move::Down << 3;
    QTest::newRow("23 in 4, Up in the last that it has") << 23 << 4 << 2 << Move::Up << 22;
    QTest::newRow("23 in 2, Up in the first column") << 23 << 2 << 0 << Move::Up << 22;
    QTest::newRow("23 in 2, Up in the second") << 23 << 2 << 1 << Move::Up << 21;
    QTest::newRow("23 in 2, Down in the second") << 23 << 2 << 21 << Move::Down << 1;
}

void tst_KeyMoves::roundTheEnds()
{
    QFETCH(int, tiles);
    QFETCH(int, columns);
    QFETCH(int, from);
    QFETCH(Move, move);
    QFETCH(int, to);
    OpenGrid grid(tiles, columns);
    grid.highlight({from});
    go(grid.popup, move);
    QCOMPARE(grid.highlighted(), Indices({to}));
    QCOMPARE(grid.line(), grid.lineOf(to));
}

void tst_KeyMoves::overRowsWithoutTiles_data()
{
    QTest::addColumn<int>("documents");
    QTest::addColumn<int>("tiles");
    QTest::addColumn<int>("columns");
    QTest::newRow("one row of three") << 10 << 4 << 4;
    QTest::newRow("one tile of three rows") << 10 << 1 << 4;
    QTest::newRow("a row and a half of three") << 12 << 6 << 4;
    QTest::newRow("a row and a half of six") << 23 << 6 << 4;
    QTest::newRow("two full rows of six") << 23 << 8 << 4;
    QTest::newRow("all but the last row") << 10 << 8 << 4;
    QTest::newRow("five tiles of twelve rows") << 23 << 5 << 2;
    QTest::newRow("one tile of twelve rows") << 23 << 1 << 2;
}

void tst_KeyMoves::overRowsWithoutTiles()
{
    QFETCH(int, documents);
    QFETCH(int, tiles);
    QFETCH(int, columns);
    // The documents without a tile come from everywhere in the list: the tiles close up.
    Indices without;
    for (int i = 0; without.size() < documents - tiles; ++i)
        without.append((i * 7 + 1) % documents);
    OpenGrid grid(documents, columns, without);
    QCOMPARE(grid.tiles.size(), tiles);
    QCOMPARE(grid.popup->tileRows, (documents + columns - 1) / columns);
    for (const auto &move : moves) {
        for (int from = 0; from < tiles; ++from) {
            const int to = target(move.first, from, tiles, columns);
            const QByteArray name = QByteArray(move.second) + " from " + QByteArray::number(from);
            grid.highlight({from});
            go(grid.popup, move.first);
            QVERIFY2(grid.highlighted() == Indices({to}), name);
            QVERIFY2(grid.line() == grid.lineOf(to), name);
        }
    }
}

void tst_KeyMoves::listMovesWithSeveralHighlighted_data()
{
    QTest::addColumn<int>("tiles");
    QTest::addColumn<Indices>("before");
    QTest::addColumn<Move>("move");
    QTest::addColumn<Indices>("after");
    QTest::addColumn<int>("shown");
    const auto next = [](const char *name, int tiles, const Indices &before, const Indices &after,
                         int shown) {
        QTest::addRow("on: %s", name) << tiles << before << Move::Next << after << shown;
    };
    const auto previous = [](const char *name, int tiles, const Indices &before, const Indices &after,
                             int shown) {
        QTest::addRow("back: %s", name) << tiles << before << Move::Previous << after << shown;
    };
    next("a run becomes the tile behind it", 5, {1, 2, 3}, {4}, 4);
    next("a run at the start", 5, {0, 1}, {2}, 2);
    next("a run at the end becomes the first tile", 5, {3, 4}, {0}, 0);
    next("all become the first tile", 5, {0, 1, 2, 3, 4}, {0}, 0);
    next("both of two become the first", 2, {0, 1}, {0}, 0);
    next("the first of two runs alone moves", 5, {0, 2}, {1, 2}, 1);
    next("the second run waits", 5, {0, 1, 4}, {2, 4}, 2);
    next("the first run meets the second", 5, {1, 3, 4}, {2, 3, 4}, 2);
    next("first and last are two runs", 5, {0, 4}, {1, 4}, 1);
    next("none", 5, {}, {}, -1);
    previous("a run becomes the tile before it", 5, {1, 2, 3}, {0}, 0);
    previous("a run at the end", 5, {3, 4}, {2}, 2);
    previous("a run at the start becomes the last tile", 5, {0, 1}, {4}, 4);
    previous("all become the last tile", 5, {0, 1, 2, 3, 4}, {4}, 4);
    previous("both of two become the second", 2, {0, 1}, {1}, 1);
    previous("the last of two runs alone moves", 5, {0, 2}, {0, 1}, 1);
    previous("the first run waits", 5, {0, 3, 4}, {0, 2}, 2);
    previous("the last run meets the first", 5, {0, 1, 3}, {0, 1, 2}, 2);
    previous("first and last are two runs", 5, {0, 4}, {0, 3}, 3);
    previous("none", 5, {}, {}, -1);
}

void tst_KeyMoves::listMovesWithSeveralHighlighted()
{
    QFETCH(int, tiles);
    QFETCH(Indices, before);
    QFETCH(Move, move);
    QFETCH(Indices, after);
    QFETCH(int, shown);
    OpenGrid grid(tiles);
    grid.highlight(before);
    go(grid.popup, move);
    QCOMPARE(grid.highlighted(), after);
    QCOMPARE(grid.line(), grid.lineOf(shown));
}

void tst_KeyMoves::rowMovesWithSeveralHighlighted_data()
{
    QTest::addColumn<Indices>("before");
    QTest::addColumn<Move>("move");
    QTest::addColumn<Indices>("after");
    QTest::addColumn<int>("shown");
    QTest::newRow("Down moves the first alone")
        << Indices({0, 1, 2}) << Move::Down << Indices({1, 2, 4}) << 4;
    QTest::newRow("Up moves the first alone") << Indices({5, 6, 7}) << Move::Up << Indices({1, 6, 7}) << 1;
    QTest::newRow("Down onto a highlighted tile") << Indices({0, 4}) << Move::Down << Indices({4}) << -1;
    QTest::newRow("Up onto a highlighted tile") << Indices({0, 8}) << Move::Up << Indices({8}) << -1;
    QTest::newRow("Up from the top, past a highlighted one")
        << Indices({1, 5}) << Move::Up << Indices({5, 9}) << 9;
    QTest::newRow("Down round the end") << Indices({8, 9}) << Move::Down << Indices({0, 9}) << 0;
    QTest::newRow("none, Down") << Indices() << Move::Down << Indices() << -1;
    QTest::newRow("none, Up") << Indices() << Move::Up << Indices() << -1;
}

void tst_KeyMoves::rowMovesWithSeveralHighlighted()
{
    QFETCH(Indices, before);
    QFETCH(Move, move);
    QFETCH(Indices, after);
    QFETCH(int, shown);
    OpenGrid grid(10);
    grid.highlight(before);
    go(grid.popup, move);
    QCOMPARE(grid.highlighted(), after);
    QCOMPARE(grid.line(), grid.lineOf(shown));
}

void tst_KeyMoves::theLeftTileKeepsItsEffectAndTheNewOneGetsItsOwn_data()
{
    QTest::addColumn<Move>("move");
    QTest::addColumn<int>("to");
    QTest::newRow("Right") << Move::Next << 6;
    QTest::newRow("Left") << Move::Previous << 4;
    QTest::newRow("Down") << Move::Down << 9;
    QTest::newRow("Up") << Move::Up << 1;
}

void tst_KeyMoves::theLeftTileKeepsItsEffectAndTheNewOneGetsItsOwn()
{
    QFETCH(Move, move);
    QFETCH(int, to);
    OpenGrid grid(10);
    grid.highlight({5});
    const QPointer<QGraphicsEffect> left = grid.tiles.at(5)->graphicsEffect();
    go(grid.popup, move);
    QVERIFY(left);
    QCOMPARE(grid.tiles.at(5)->graphicsEffect(), left.data());
    QCOMPARE(left->property("color").value<QColor>(), QColor(248, 248, 248, 255));
    const QPointer<QGraphicsEffect> entered = grid.tiles.at(to)->graphicsEffect();
    QVERIFY(entered);
    QCOMPARE(entered->property("offset").toPointF(), QPointF(2.5, 2.5));
    QCOMPARE(grid.highlighted(), Indices({to}));

    grid.highlight({5});
    go(grid.popup, move); // again: a former effect, of the resting colour, gives way
    QVERIFY(!entered);
    QCOMPARE(grid.highlighted(), Indices({to}));
}

void tst_KeyMoves::aMoveOntoItselfHighlightsAnew_data()
{
    QTest::addColumn<int>("tiles");
    QTest::addColumn<int>("from");
    QTest::addColumn<Move>("move");
    for (const auto &move : moves)
        QTest::addRow("%s on the only tile", move.second) << 1 << 0 << move.first;
    QTest::newRow("Down in the only row") << 4 << 2 << Move::Down;
    QTest::newRow("Up in the only row") << 4 << 2 << Move::Up;
    QTest::newRow("Down in a column of one") << 5 << 2 << Move::Down;
    QTest::newRow("Up in a column of one") << 5 << 2 << Move::Up;
}

void tst_KeyMoves::aMoveOntoItselfHighlightsAnew()
{
    QFETCH(int, tiles);
    QFETCH(int, from);
    QFETCH(Move, move);
    OpenGrid grid(tiles);
    grid.highlight({from});
    const QPointer<QGraphicsEffect> former = grid.tiles.at(from)->graphicsEffect();
    go(grid.popup, move);
    QVERIFY(!former);
    QCOMPARE(grid.highlighted(), Indices({from}));
    QCOMPARE(grid.line(), grid.lineOf(from));
}

void tst_KeyMoves::aHighlightedTargetOfARowMoveIsLeftAlone()
{
    OpenGrid grid(10);
    grid.highlight({0, 4});
    const QPointer<QGraphicsEffect> effect = grid.tiles.at(4)->graphicsEffect();
    grid.popup->goDownNextDialog();
    QVERIFY(effect);
    QCOMPARE(grid.highlighted(), Indices({4}));
}

void tst_KeyMoves::twoTilesOfOnePath_data()
{
    QTest::addColumn<Indices>("before");
    QTest::addColumn<Move>("move");
    QTest::addColumn<Indices>("after");
    QTest::addColumn<int>("shown");
    // Nine tiles in rows of 4, 4 and 1. Tiles 0 and 8 have one path, and so have 1 and 6. A row move goes by
    // the path, so it starts from whichever of the two comes first, and leaves the other as it is.
    QTest::newRow("Down from the second") << Indices({8}) << Move::Down << Indices({4, 8}) << 4;
    QTest::newRow("Up from the second, onto it") << Indices({8}) << Move::Up << Indices({8}) << -1;
    QTest::newRow("Down from the second in another column")
        << Indices({6}) << Move::Down << Indices({5, 6}) << 5;
    QTest::newRow("Up from the second in another column") << Indices({6}) << Move::Up << Indices({5, 6}) << 5;
    QTest::newRow("Down from the first") << Indices({1}) << Move::Down << Indices({5}) << 5;
    QTest::newRow("Right goes by the tile") << Indices({6}) << Move::Next << Indices({7}) << 7;
    QTest::newRow("Right from the second round the end") << Indices({8}) << Move::Next << Indices({0}) << 0;
    QTest::newRow("Left from the first round the end") << Indices({0}) << Move::Previous << Indices({8}) << 8;
}

void tst_KeyMoves::twoTilesOfOnePath()
{
    QFETCH(Indices, before);
    QFETCH(Move, move);
    QFETCH(Indices, after);
    QFETCH(int, shown);
    OpenGrid grid(9, {0, 1, 2, 3, 4, 5, 1, 7, 0});
    QCOMPARE(grid.tiles.size(), 9);
    QCOMPARE(grid.tiles.at(8)->path(), grid.tiles.at(0)->path());
    QCOMPARE(grid.tiles.at(6)->path(), grid.tiles.at(1)->path());
    grid.highlight(before);
    go(grid.popup, move);
    QCOMPARE(grid.highlighted(), after);
    QCOMPARE(grid.line(), grid.lineOf(shown));
}

void tst_KeyMoves::aColourThatDiffersInItsAlphaIsNoHighlight()
{
    OpenGrid grid(10);
    grid.highlight({1, 5});
    grid.tiles.at(1)->graphicsEffect()->setProperty("color", QColor(0, 0, 150, 101));
    grid.popup->gotoNextDialog();
    QCOMPARE(grid.highlighted(), Indices({6}));
    grid.highlight({5});
    grid.tiles.at(9)->highlight();
    grid.tiles.at(9)->graphicsEffect()->setProperty("color", QColor(0, 0, 150, 99));
    grid.popup->goDownNextDialog();
    QCOMPARE(grid.highlighted(), Indices({9}));
}

QTEST_MAIN(tst_KeyMoves)
#include "tst_keymoves.moc"

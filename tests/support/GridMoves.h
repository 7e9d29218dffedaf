// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QPair>

//! A step of the highlight in a grid of tiles.
enum class Move { Next, Previous, Down, Up };
inline const QList<QPair<Move, const char *>> moves = {
    {Move::Next, "Right"}, {Move::Previous, "Left"}, {Move::Down, "Down"}, {Move::Up, "Up"}};

//! Where a move leads on a ring of tiles: the row of all tiles, or one column from its top to its lowest.
inline int onRing(const QList<int> &ring, int from, int step)
{
    return ring.at((ring.indexOf(from) + step + ring.size()) % ring.size());
}

//! Where a step from a tile leads, when the tiles fill the grid row by row.
inline int target(Move move, int from, int tiles, int columns)
{
    QList<int> all;
    QList<int> column;
    for (int i = 0; i < tiles; ++i) {
        all.append(i);
        if (i % columns == from % columns)
            column.append(i);
    }
    switch (move) {
    case Move::Next:
        return onRing(all, from, 1);
    case Move::Previous:
        return onRing(all, from, -1);
    case Move::Down:
        return onRing(column, from, 1);
    case Move::Up:
        return onRing(column, from, -1);
    }
    return -1;
}

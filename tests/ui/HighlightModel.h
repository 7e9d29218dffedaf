// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QVector>

//! The popup's highlight without the popup: which tiles are highlighted, which tile's path the path line
//! shows and which way a selection by keys last grew. Tiles are numbers in display order, from 0. Predicts
//! what keys, and mouse buttons on tiles, do in the popup. It works with numbers and runs of highlighted
//! tiles, whereas the popup iterates over its widgets.
class HighlightModel
{
public:
    //! A popup that has just opened.
    //! \param columns tiles in a row of the grid, 1 or more
    HighlightModel(int tiles, int columns) : m_tiles(tiles, false), m_columns(columns)
    {
        if (tiles > 0)
            highlightAndShow(0);
    }

    // A closed popup ignores everything.
    void key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        if (m_isClosed)
            return;
        const bool selects = isShiftOrControlAlone(modifiers);
        if (key == Qt::Key_Return || key == Qt::Key_Enter)
            open();
        else if (key == Qt::Key_Escape)
            m_isClosed = true;
        else if (key == Qt::Key_Right && selects)
            selectForward();
        else if (key == Qt::Key_Left && selects)
            selectBackward();
        else if (key == Qt::Key_Tab || key == Qt::Key_Right)
            goToNext();
        else if (key == Qt::Key_Left)
            goToPrevious();
        else if (key == Qt::Key_Up && !selects)
            moveInColumn(-1);
        else if (key == Qt::Key_Down && !selects)
            moveInColumn(1);
    }

    void press(int tile, Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
    {
        if (m_isClosed || button == Qt::RightButton)
            return;
        if (!m_tiles.at(tile)) {
            if (!isShiftOrControlAlone(modifiers))
                m_tiles.fill(false);
            m_tiles[tile] = true; // the path line follows keys and the pointer, not what is selected
        }
        if (modifiers == Qt::ShiftModifier)
            fillRange();
    }

    //! Of any button.
    void release(int tile, Qt::KeyboardModifiers modifiers)
    {
        if (m_isClosed || highlighted().size() < 2 || !m_tiles.at(tile) || isShiftOrControlAlone(modifiers))
            return;
        m_tiles.fill(false);
        m_tiles[tile] = true;
    }

    //! Changes a tile's highlight as other code may.
    void toggle(int tile) { m_tiles[tile] = !m_tiles.at(tile); }

    QList<int> highlighted() const
    {
        QList<int> tiles;
        for (int tile = nextHighlighted(0); tile < m_tiles.size(); tile = nextHighlighted(tile + 1))
            tiles.append(tile);
        return tiles;
    }
    int pathLine() const { return m_pathLine; } //!< the tile whose path it shows; none before there is any
    bool isClosed() const { return m_isClosed; }
    QList<int> opened() const { return m_opened; } //!< in the order of opening

    static constexpr int none = -1;

private:
    //! Highlighted neighbours, both ends included.
    struct Run
    {
        int first;
        int last;
    };

    //! Shift or Control, without any other modifier, the keypad's included.
    static bool isShiftOrControlAlone(Qt::KeyboardModifiers modifiers)
    {
        return modifiers == Qt::ShiftModifier || modifiers == Qt::ControlModifier;
    }

    void highlightAndShow(int tile)
    {
        m_tiles[tile] = true;
        m_pathLine = tile;
    }

    //! \return the first highlighted tile that is not before from; the number of tiles when there is none
    int nextHighlighted(int from) const
    {
        const int found = m_tiles.indexOf(true, from);
        return found < 0 ? m_tiles.size() : found;
    }

    // Something must be highlighted.
    Run firstRun() const
    {
        const int first = nextHighlighted(0);
        const int end = m_tiles.indexOf(false, first);
        return {first, end < 0 ? m_tiles.size() - 1 : end - 1};
    }
    Run lastRun() const
    {
        const int last = m_tiles.lastIndexOf(true);
        return {m_tiles.lastIndexOf(false, last) + 1, last};
    }

    void replaceByOne(Run run, int tile)
    {
        for (int old = run.first; old <= run.last; ++old)
            m_tiles[old] = false;
        highlightAndShow(tile);
    }
    void goToNext()
    {
        if (!highlighted().isEmpty())
            replaceByOne(firstRun(), (firstRun().last + 1) % m_tiles.size());
    }
    void goToPrevious()
    {
        if (!highlighted().isEmpty())
            replaceByOne(lastRun(), (lastRun().first + m_tiles.size() - 1) % m_tiles.size());
    }

    //! Wraps around in the first highlighted tile's column. Other highlighted tiles stay so; if the target is
    //! one of them, the path line does not change.
    void moveInColumn(int step)
    {
        if (highlighted().isEmpty())
            return;
        const int from = firstRun().first;
        QList<int> column;
        for (int tile = from % m_columns; tile < m_tiles.size(); tile += m_columns)
            column.append(tile);
        const int to = column.at((column.indexOf(from) + step + column.size()) % column.size());
        m_tiles[from] = false;
        if (!m_tiles.at(to))
            highlightAndShow(to);
    }

    void selectForward()
    {
        m_backward = false;
        if (highlighted().isEmpty())
            return;
        const Run run = firstRun();
        if (run.first < run.last && !m_forward) {
            m_tiles[run.first] = false;
        } else if (run.last + 1 < m_tiles.size()) {
            m_forward = true;
            highlightAndShow(run.last + 1);
        }
    }
    void selectBackward()
    {
        m_forward = false;
        if (highlighted().isEmpty())
            return;
        const Run run = lastRun();
        if (run.first < run.last && !m_backward) {
            m_tiles[run.last] = false;
        } else if (run.first > 0) {
            m_backward = true;
            highlightAndShow(run.first - 1);
        }
    }

    void open()
    {
        m_opened = highlighted();
        m_isClosed = !m_opened.isEmpty();
    }

    //! From the first highlighted tile to the second, which need not be the clicked one; without a second, to
    //! the end.
    void fillRange()
    {
        const int first = nextHighlighted(0);
        const int end = nextHighlighted(first + 1);
        for (int tile = first; tile < end; ++tile)
            m_tiles[tile] = true;
    }

    QVector<bool> m_tiles;
    int m_columns;
    int m_pathLine = none;
    bool m_forward = false;
    bool m_backward = false;
    bool m_isClosed = false;
    QList<int> m_opened;
};

// SPDX-License-Identifier: MIT
#pragma once

#include <Qt>

#include <vector>

//! The popup's highlight without the popup: which tiles are highlighted, which tile's path the path line
//! shows and which way a selection by keys last grew. Tiles are numbers in display order, from 0. Says what
//! must come of keys and of mouse buttons on tiles, for the popup to be measured against; it thinks in runs
//! of highlighted tiles and in numbers, where the popup walks its widgets.
class HighlightModel
{
public:
    //! A popup that has just opened.
    //! \param columns tiles in a row of the grid, 1 or more
    HighlightModel(int tiles, int columns);

    //! A closed popup answers to nothing any more.
    void key(int key, Qt::KeyboardModifiers modifiers);
    void press(int tile, Qt::MouseButton button, Qt::KeyboardModifiers modifiers);
    void release(int tile, Qt::KeyboardModifiers modifiers); //!< of whichever button

    std::vector<int> highlighted() const;
    int pathLine() const { return m_pathLine; } //!< the tile whose path it shows; none when there is no tile
    bool isClosed() const { return m_isClosed; }
    const std::vector<int> &opened() const { return m_opened; } //!< in the order of opening

    static constexpr int none = -1;

private:
    //! Highlighted neighbours, both ends included.
    struct Run
    {
        int first;
        int last;
    };

    int count() const { return static_cast<int>(m_tiles.size()); }
    bool isHighlighted(int tile) const { return m_tiles.at(static_cast<std::size_t>(tile)); }
    void mark(int tile, bool isOn) { m_tiles.at(static_cast<std::size_t>(tile)) = isOn; }
    void markAll(Run run, bool isOn);
    void highlightAndShow(int tile);

    Run firstRun() const;
    Run lastRun() const;
    int nextHighlighted(int from) const;

    void goToNext();
    void goToPrevious();
    void goDown();
    void goUp();
    void moveInColumn(int from, int to);
    void selectForward();
    void selectBackward();
    void open();
    void fillRange();

    std::vector<bool> m_tiles;
    int m_columns;
    int m_pathLine = none;
    bool m_forward = false;
    bool m_backward = false;
    bool m_isClosed = false;
    std::vector<int> m_opened;
};

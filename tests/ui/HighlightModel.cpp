// SPDX-License-Identifier: MIT
#include "tests/ui/HighlightModel.h"

namespace {

//! Shift or Control, and no other bit beside it, that of the keypad included.
bool isShiftOrControlAlone(Qt::KeyboardModifiers modifiers)
{
    return modifiers == Qt::ShiftModifier || modifiers == Qt::ControlModifier;
}

} // namespace

HighlightModel::HighlightModel(int tiles, int columns)
    : m_tiles(static_cast<std::size_t>(tiles), false), m_columns(columns)
{
    if (tiles > 0)
        highlightAndShow(0);
}

void HighlightModel::key(int key, Qt::KeyboardModifiers modifiers)
{
    if (m_isClosed)
        return;
    const bool selects = isShiftOrControlAlone(modifiers);
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        open();
    } else if (key == Qt::Key_Escape) {
        m_isClosed = true;
    } else if (key == Qt::Key_Right && selects) {
        selectForward();
        m_backward = false;
    } else if (key == Qt::Key_Left && selects) {
        selectBackward();
        m_forward = false;
    } else if (key == Qt::Key_Tab || key == Qt::Key_Right) {
        goToNext();
    } else if (key == Qt::Key_Left) {
        goToPrevious();
    } else if (key == Qt::Key_Up && !selects) {
        goUp();
    } else if (key == Qt::Key_Down && !selects) {
        goDown();
    }
}

void HighlightModel::press(int tile, Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    if (m_isClosed || button == Qt::RightButton)
        return;
    if (!isHighlighted(tile)) {
        if (!isShiftOrControlAlone(modifiers))
            markAll({0, count() - 1}, false);
        mark(tile, true); // the path line follows keys and the pointer, not what is selected
    }
    if (modifiers == Qt::ShiftModifier)
        fillRange();
}

void HighlightModel::release(int tile, Qt::KeyboardModifiers modifiers)
{
    if (m_isClosed || highlighted().size() < 2 || !isHighlighted(tile) || isShiftOrControlAlone(modifiers))
        return;
    markAll({0, count() - 1}, false);
    mark(tile, true);
}

std::vector<int> HighlightModel::highlighted() const
{
    std::vector<int> tiles;
    for (int tile = nextHighlighted(0); tile < count(); tile = nextHighlighted(tile + 1))
        tiles.push_back(tile);
    return tiles;
}

void HighlightModel::markAll(Run run, bool isOn)
{
    for (int tile = run.first; tile <= run.last; ++tile)
        mark(tile, isOn);
}

void HighlightModel::highlightAndShow(int tile)
{
    mark(tile, true);
    m_pathLine = tile;
}

//! \return the first highlighted tile that is not before from; count() when there is none
int HighlightModel::nextHighlighted(int from) const
{
    int tile = from;
    while (tile < count() && !isHighlighted(tile))
        ++tile;
    return tile;
}

//! Something must be highlighted.
HighlightModel::Run HighlightModel::firstRun() const
{
    Run run{nextHighlighted(0), nextHighlighted(0)};
    while (run.last + 1 < count() && isHighlighted(run.last + 1))
        ++run.last;
    return run;
}

//! Something must be highlighted.
HighlightModel::Run HighlightModel::lastRun() const
{
    const int last = highlighted().back();
    Run run{last, last};
    while (run.first > 0 && isHighlighted(run.first - 1))
        --run.first;
    return run;
}

void HighlightModel::goToNext()
{
    if (highlighted().empty())
        return;
    const Run run = firstRun();
    markAll(run, false);
    highlightAndShow((run.last + 1) % count());
}

void HighlightModel::goToPrevious()
{
    if (highlighted().empty())
        return;
    const Run run = lastRun();
    markAll(run, false);
    highlightAndShow((run.first + count() - 1) % count());
}

void HighlightModel::goDown()
{
    if (highlighted().empty())
        return;
    const int from = firstRun().first;
    const int below = from + m_columns;
    moveInColumn(from, below < count() ? below : from % m_columns);
}

void HighlightModel::goUp()
{
    if (highlighted().empty())
        return;
    const int from = firstRun().first;
    int to = from - m_columns;
    if (to < 0) { // from the top row to the column's lowest tile, however many cells are empty below it
        to = from;
        while (to + m_columns < count())
            to += m_columns;
    }
    moveInColumn(from, to);
}

//! Other highlighted tiles stay so, and to, when it is one of them, is not shown anew.
void HighlightModel::moveInColumn(int from, int to)
{
    mark(from, false);
    if (!isHighlighted(to))
        highlightAndShow(to);
}

void HighlightModel::selectForward()
{
    if (highlighted().empty())
        return;
    const Run run = firstRun();
    if (run.first < run.last && !m_forward) {
        mark(run.first, false);
    } else if (run.last + 1 < count()) {
        m_forward = true;
        highlightAndShow(run.last + 1);
    }
}

void HighlightModel::selectBackward()
{
    if (highlighted().empty())
        return;
    const Run run = lastRun();
    if (run.first < run.last && !m_backward) {
        mark(run.last, false);
    } else if (run.first > 0) {
        m_backward = true;
        highlightAndShow(run.first - 1);
    }
}

void HighlightModel::open()
{
    if (highlighted().empty())
        return;
    m_isClosed = true;
    m_opened = highlighted();
}

//! From the first highlighted tile to the second, which need not be the clicked one; without a second, to
//! the end.
void HighlightModel::fillRange()
{
    const int first = nextHighlighted(0);
    if (first < count())
        markAll({first, nextHighlighted(first + 1) - 1}, true);
}

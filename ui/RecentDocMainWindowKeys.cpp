// SPDX-License-Identifier: MIT
#include "ui/RecentDocMainWindow.h"

#include "module/HostAccess.h"
#include "module/RecentDocumentBrowser.h"
#include "state/TileOwner.h"
#include "ui/Accessibility.h"
#include "ui/RecentDocDialog.h"

#include <QGridLayout>
#include <QKeyEvent>

#include <algorithm>

// The popup's keys. The tiles store the highlight; the popup stores only the direction in which the keyboard
// last changed the highlighted run.

namespace {

void highlightTile(RecentDocDialog *tile)
{
    tile->highlight();
    tile->setMainWindowDocPathLabel(tile->path());
    Accessibility::highlightMovedTo(tile);
}

void clearTile(RecentDocDialog *tile)
{
    tile->clearHighlight();
    tile->update();
}

//! Clears the first run of highlighted tiles, in the given order, and highlights the tile that follows it.
//! The first tile follows the last one.
void moveHighlight(const QList<RecentDocDialog *> &tiles)
{
    for (int i = 0; i < tiles.size(); ++i) {
        if (!tiles.at(i)->isHighlighted())
            continue;
        clearTile(tiles.at(i));
        RecentDocDialog *neighbour = tiles.at((i + 1) % tiles.size());
        if (!neighbour->isHighlighted()) {
            highlightTile(neighbour);
            return;
        }
    }
}

//! Extends the first run of highlighted tiles by the tile after it.
//! \param growing whether the previous step had the same direction. If not, the run's first tile is cleared
//! instead, unless it is the run's only tile
//! \return true if a tile was added
bool extendRun(const QList<RecentDocDialog *> &tiles, bool growing)
{
    for (int i = 0; i + 1 < tiles.size(); ++i) {
        if (!tiles.at(i)->isHighlighted())
            continue;
        RecentDocDialog *next = tiles.at(i + 1);
        if (!next->isHighlighted()) {
            highlightTile(next);
            return true;
        }
        if (!growing) {
            clearTile(tiles.at(i));
            Accessibility::highlightMovedTo(next);
            return false;
        }
    }
    return false;
}

QList<RecentDocDialog *> reversed(QList<RecentDocDialog *> tiles)
{
    std::reverse(tiles.begin(), tiles.end());
    return tiles;
}

} // namespace

void RecentDocMainWindow::keyPressEvent(QKeyEvent *event)
{
    haveTilesListed();
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        multiDocumentOpen();
        return;
    }
    const QPointer<RecentDocMainWindow> self(this); // closing may delete the popup, and dragDialog with it
    // The keypad's arrow keys have a modifier of their own, so they always move and never select.
    const bool selects = event->modifiers() == Qt::ShiftModifier || event->modifiers() == Qt::ControlModifier;
    switch (event->key()) {
    case Qt::Key_Escape:
        done(0);
        break;
    case Qt::Key_Tab:
        gotoNextDialog();
        break;
    case Qt::Key_Right:
        if (selects) {
            selectForwardMultiDoc();
            backwardSelectionActive = false;
        } else {
            gotoNextDialog();
        }
        break;
    case Qt::Key_Left:
        if (selects) {
            selectBackwardMultiDoc();
            forwardSelectionActive = false;
        } else {
            gotoPreviousDialog();
        }
        break;
    case Qt::Key_Up:
        if (!selects)
            goUpPreviousDialog();
        break;
    case Qt::Key_Down:
        if (!selects)
            goDownNextDialog();
        break;
    default:
        break;
    }
    if (self && dragDialog)
        QDialog::keyPressEvent(event);
}

void RecentDocMainWindow::gotoNextDialog()
{
    moveHighlight(TileOwner::livingTiles());
}

void RecentDocMainWindow::gotoPreviousDialog()
{
    moveHighlight(reversed(TileOwner::livingTiles()));
}

RecentDocDialog *RecentDocMainWindow::tileAt(int row, int column) const
{
    QLayoutItem *item = gridLayout->itemAtPosition(row, column);
    return item ? qobject_cast<RecentDocDialog *>(item->widget()) : nullptr;
}

//! Moves the first highlighted tile's highlight to the next tile of its column, wrapping around and skipping
//! empty cells of the last row. Other tiles stay highlighted.
//! \param step 1 for down, -1 for up
void RecentDocMainWindow::moveAlongColumn(int step)
{
    const RecentDocDialog *highlighted = RecentDocumentBrowser::getHighlightedRecentDoc();
    if (!highlighted || !gridLayout)
        return;
    for (int cell = 0; cell < tileRows * tileColumns; ++cell) {
        const int row = cell / tileColumns;
        const int column = cell % tileColumns;
        RecentDocDialog *tile = tileAt(row, column);
        if (!tile || tile->path() != highlighted->path())
            continue;
        clearTile(tile);
        int target = row;
        do {
            target = (target + step + tileRows) % tileRows;
        } while (!tileAt(target, column));
        if (tileAt(target, column)->isHighlighted())
            Accessibility::highlightMovedTo(tileAt(target, column));
        else
            highlightTile(tileAt(target, column));
        return;
    }
}

void RecentDocMainWindow::goDownNextDialog()
{
    moveAlongColumn(1);
}

void RecentDocMainWindow::goUpPreviousDialog()
{
    moveAlongColumn(-1);
}

void RecentDocMainWindow::selectForwardMultiDoc()
{
    if (extendRun(TileOwner::livingTiles(), forwardSelectionActive))
        forwardSelectionActive = true;
}

void RecentDocMainWindow::selectBackwardMultiDoc()
{
    if (extendRun(reversed(TileOwner::livingTiles()), backwardSelectionActive))
        backwardSelectionActive = true;
}

void RecentDocMainWindow::multiDocumentOpen()
{
    const QList<QString> paths = RecentDocumentBrowser::getHighlightedRecentDocPathList();
    if (paths.isEmpty())
        return;
    done(0);
    for (const QString &path : paths) {
        if (!path.isEmpty())
            HostAccess::openDocument(path);
    }
}

// SPDX-License-Identifier: MIT
#include "ui/RecentDocDialog.h"

#include "module/HostAccess.h"
#include "module/RecentDocumentBrowser.h"
#include "state/TileOwner.h"
#include "ui/Accessibility.h"

#include <QKeyEvent>
#include <QMouseEvent>

// A tile's mouse and key events. The tile passes events that it does not handle to the popup, by ignoring
// them and setting the focus to the popup.

namespace {

//! Only Shift or only Control. Any other combination counts as a plain click.
bool extendsSelection(const QMouseEvent *event)
{
    return event->modifiers() == Qt::ShiftModifier || event->modifiers() == Qt::ControlModifier;
}

} // namespace

void RecentDocDialog::mousePressEvent(QMouseEvent *event)
{
    haveTilesListed();
    if (event->button() == Qt::RightButton) {
        giveFocusToPopup();
        event->ignore();
        return;
    }
    if (!isHighlighted()) {
        if (!extendsSelection(event)) {
            const QList<RecentDocDialog *> tiles = RecentDocumentBrowser::getHighlightedRecentDocList();
            for (RecentDocDialog *tile : tiles)
                tile->clearHighlight();
        }
        highlight();
    }
    Accessibility::highlightMovedTo(this);
    giveFocusToPopup();
    event->ignore();
    if (event->modifiers() == Qt::ShiftModifier)
        selectMultiDocByShiftAndMouseCombination();
    QWidget::mousePressEvent(event);
}

//! A press on one of several highlighted tiles keeps all of them highlighted, so that they can be dragged
//! together. The release highlights only that one.
void RecentDocDialog::mouseReleaseEvent(QMouseEvent *event)
{
    haveTilesListed();
    const QList<RecentDocDialog *> tiles = RecentDocumentBrowser::getHighlightedRecentDocList();
    if (tiles.size() >= 2 && isHighlighted()) {
        if (!extendsSelection(event)) {
            for (RecentDocDialog *tile : tiles) {
                tile->clearHighlight();
                tile->update();
            }
        }
        if (!isHighlighted()) {
            highlight();
            giveFocusToPopup();
        }
    }
    QWidget::mouseReleaseEvent(event);
}

void RecentDocDialog::mouseDoubleClickEvent(QMouseEvent * /*event*/)
{
    const QString document = m_path; // closing the popup and opening the drawing may delete this tile
    if (auto *popup = qobject_cast<QDialog *>(parentWidget()))
        popup->done(0);
    HostAccess::openDocument(document);
}

void RecentDocDialog::keyPressEvent(QKeyEvent *event)
{
    event->ignore();
}

void RecentDocDialog::selectMultiDocByShiftAndMouseCombination()
{
    const QList<RecentDocDialog *> tiles = TileOwner::livingTiles();
    bool runStarted = false;
    for (RecentDocDialog *tile : tiles) {
        if (tile->isHighlighted()) {
            if (runStarted)
                return;
            runStarted = true;
        } else if (runStarted) {
            tile->highlight();
        }
    }
}

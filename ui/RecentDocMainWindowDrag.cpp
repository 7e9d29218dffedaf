// SPDX-License-Identifier: MIT
#include "ui/RecentDocMainWindow.h"

#include "ui/RecentDocDialog.h"

#include <QApplication>
#include <QCursor>
#include <QDataStream>
#include <QDrag>
#include <QDragEnterEvent>
#include <QGridLayout>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>

// Dragging a tile out of the popup. While the pointer is outside, the popup is a strip, so that the user can
// drop on the drawing behind it. A drag that ends outside opens the highlighted documents.

namespace {

//! MIME type of the browser's drags. The data are the tile's picture (QPixmap) and the position of the
//! pointer in it (QPoint, pixels from its upper left corner), written by QDataStream.
QString tileFormat()
{
    // Not a QStringLiteral, whose characters are unloaded with the library, while the drag's data may outlive
    // it.
    return QString::fromLatin1("application/corvel.DR.Layout");
}

//! A pointer this close to the popup's edge counts as outside, in pixels. Only the window under the pointer
//! receives the moves of a drag, so without this rim the popup would not detect that the pointer leaves it.
constexpr int rim = 11;
//! The height of the popup while the pointer is outside, in pixels: its header.
constexpr int stripHeight = 32;

QString tileName()
{
    return QStringLiteral("RecentDocDialog");
}

//! Runs a drag of the tile in an event loop, until the drag ends. tile may be deleted meanwhile.
//! \param grabOffset position of the pointer in the tile, in pixels from its upper left corner
void runDrag(RecentDocDialog *tile, const QPoint &grabOffset)
{
    const QPixmap picture = tile->grab();
    QByteArray layout;
    QDataStream stream(&layout, QIODevice::WriteOnly);
    stream << picture << grabOffset;

    auto *payload = new QMimeData;
    payload->setData(tileFormat(), layout);
    payload->setUrls({QUrl(QStringLiteral("file:///") + tile->path(), QUrl::TolerantMode)});

    const QPointer<QDrag> drag(new QDrag(tile));
    // The drag continues if its tile is deleted, and Qt needs the drag object until it ends.
    QObject::connect(tile, &QObject::destroyed, drag,
                     [drag] { drag->setParent(QCoreApplication::instance()); });
    drag->setMimeData(payload);
    drag->setHotSpot(grabOffset);
    drag->setPixmap(picture);
    drag->exec(Qt::CopyAction);
    // Another program requests the data after the drop, when tile and popup may have been deleted.
    if (drag)
        drag->setParent(QCoreApplication::instance());
}

} // namespace

void RecentDocMainWindow::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        pressPoint = event->pos();
    QWidget *widget = childAt(event->pos());
    // A press on a tile's label or button counts as a press on the tile.
    if (widget && widget->parentWidget()->objectName() == tileName())
        widget = widget->parentWidget();
    dragDialog =
        widget && widget->objectName() == tileName() ? qobject_cast<RecentDocDialog *>(widget) : nullptr;
    if (dragDialog)
        QWidget::mousePressEvent(event);
}

void RecentDocMainWindow::mouseMoveEvent(QMouseEvent *event)
{
    if (!dragDialog || !(event->buttons() & Qt::LeftButton))
        return;
    if ((event->pos() - pressPoint).manhattanLength() < QApplication::startDragDistance())
        return;
    // The drag runs an event loop, in which the popup and the tile may be deleted.
    const QPointer<RecentDocMainWindow> self(this);
    runDrag(dragDialog, event->pos() - dragDialog->pos());
    if (self && isCollapsed) {
        haveTilesListed();
        multiDocumentOpen();
    }
    if (self && dragDialog) {
        dragDialog->show();
        QWidget::mouseMoveEvent(event);
    }
}

void RecentDocMainWindow::dragEnterEvent(QDragEnterEvent *event)
{
    if (event->mimeData()->hasFormat(tileFormat()))
        event->acceptProposedAction();
    else
        event->ignore();
}

void RecentDocMainWindow::dragMoveEvent(QDragMoveEvent * /*event*/)
{
    if (!dragDialog)
        return;
    if (geometry().adjusted(rim, rim, -rim, -rim).contains(QCursor::pos()))
        restore();
    else
        collapse();
    dragDialog->hide(); // its cell stays empty until the drag ends
}

void RecentDocMainWindow::dragLeaveEvent(QDragLeaveEvent * /*event*/)
{
    if (isCollapsed)
        formStrip();
}

void RecentDocMainWindow::collapse()
{
    isCollapsed = true;
    const QList<QWidget *> widgets = widgetsInGrid();
    for (QWidget *widget : widgets)
        widget->hide();
    formStrip();
}

void RecentDocMainWindow::restore()
{
    if (!isCollapsed)
        return;
    setMinimumHeight(m_leastHeight);
    setGeometry(popupX, popupY, popupWidth, popupHeight);
    const QList<QWidget *> widgets = widgetsInGrid();
    for (QWidget *widget : widgets) {
        if (widget != dragDialog)
            widget->show();
    }
    resize(popupWidth, popupHeight);
    setGridSpace(gridMargin, horizontalSpace, verticalSpace);
    isCollapsed = false;
}

void RecentDocMainWindow::formStrip()
{
    setGridSpace(0, QSize(0, 0), QSize(0, 0));
    setMinimumHeight(0);
    resize(popupWidth, stripHeight);
    setGeometry(popupX, popupY, popupWidth, stripHeight);
}

void RecentDocMainWindow::setGridSpace(int margin, const QSize &horizontal, const QSize &vertical) const
{
    gridLayout->setContentsMargins(margin, margin, margin, margin);
    verticalSpacer->changeSize(vertical.width(), vertical.height(), QSizePolicy::Minimum,
                               QSizePolicy::Expanding);
    horizontalSpacer->changeSize(horizontal.width(), horizontal.height(), QSizePolicy::Expanding,
                                 QSizePolicy::Minimum);
}

//! All widgets of the grid. The last row and column contain only the spacers.
QList<QWidget *> RecentDocMainWindow::widgetsInGrid() const
{
    QList<QWidget *> widgets;
    for (int row = 0; row < gridLayout->rowCount() - 1; ++row) {
        for (int column = 0; column < gridLayout->columnCount() - 1; ++column) {
            QLayoutItem *item = gridLayout->itemAtPosition(row, column);
            if (item && item->widget())
                widgets.append(item->widget());
        }
    }
    return widgets;
}

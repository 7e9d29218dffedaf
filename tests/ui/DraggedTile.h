// SPDX-License-Identifier: MIT
#pragma once

#include "tests/ui/MousedPopup.h"

#include <QCursor>
#include <QDragMoveEvent>
#include <QGridLayout>
#include <QMimeData>
#include <QSpacerItem>

//! Delivers an event of a drag to the popup itself: QApplication would look for the drag it belongs to.
inline void deliver(QObject *receiver, QEvent *event)
{
    receiver->event(event);
}

//! A popup over which one of its tiles is dragged, event by event. Three tiles are in one row, in the middle
//! of 1300 x 800.
class DraggedTile : public MousedPopup
{
public:
    // The popup's rectangle with one row of four columns, and when it is collapsed.
    static constexpr QRect fullSize{288, 299, 724, 201};
    static constexpr QRect strip{288, 299, 724, 32};
    static constexpr QPoint outside{5, 5};

    //! \param held the tile that is dragged; -1 for none
    explicit DraggedTile(int documents = 3, int held = 1) : MousedPopup(documents)
    {
        if (held >= 0)
            popup->dragDialog = tiles.at(held);
        data.setData(format(), "tile");
    }

    //! The format of the browser's own drags.
    static QString format() { return QStringLiteral("application/corvel.DR.Layout"); }
    //! A move of the drag with the pointer there, in global coordinates.
    void dragTo(const QPoint &global)
    {
        QCursor::setPos(global);
        QDragMoveEvent event(popup->mapFromGlobal(global), Qt::CopyAction, &data, Qt::LeftButton,
                             Qt::NoModifier);
        deliver(popup, &event);
    }
    void dragAway()
    {
        QDragLeaveEvent event;
        deliver(popup, &event);
    }

    bool hasFullForm() const
    {
        return popup->gridLayout->contentsMargins() == QMargins(11, 11, 11, 11) &&
               hasSpacers(QSize(40, 20), QSize(20, 40));
    }
    bool hasStripForm() const
    {
        return popup->gridLayout->contentsMargins() == QMargins() && hasSpacers(QSize(0, 0), QSize(0, 0));
    }
    //! The tiles that are not hidden, by their place in the list.
    QList<int> shown() const
    {
        QList<int> indices;
        for (int i = 0; i < tiles.size(); ++i) {
            if (tiles.at(i)->isVisible())
                indices.append(i);
        }
        return indices;
    }
    //! Changes everything that collapsing and restoring set.
    void disturb()
    {
        popup->setGeometry(disturbed);
        popup->gridLayout->setContentsMargins(1, 2, 3, 4);
        popup->horizontalSpacer->changeSize(5, 6, QSizePolicy::Fixed, QSizePolicy::Fixed);
        popup->verticalSpacer->changeSize(7, 8, QSizePolicy::Fixed, QSizePolicy::Fixed);
    }
    bool isStillDisturbed() const
    {
        return popup->geometry() == disturbed &&
               popup->gridLayout->contentsMargins() == QMargins(1, 2, 3, 4) &&
               popup->horizontalSpacer->sizeHint() == QSize(5, 6) &&
               popup->verticalSpacer->sizeHint() == QSize(7, 8);
    }

    QMimeData data;

private:
    bool hasSpacers(const QSize &horizontal, const QSize &vertical) const
    {
        const auto policy = [](const QSpacerItem *spacer) { return spacer->sizePolicy(); };
        return popup->horizontalSpacer->sizeHint() == horizontal &&
               policy(popup->horizontalSpacer) == QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum) &&
               popup->verticalSpacer->sizeHint() == vertical &&
               policy(popup->verticalSpacer) == QSizePolicy(QSizePolicy::Minimum, QSizePolicy::Expanding);
    }

    const QRect disturbed{200, 100, 400, 300};
};

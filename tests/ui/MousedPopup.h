// SPDX-License-Identifier: MIT
#pragma once

#include "tests/ui/OpenGrid.h"

#include <QMouseEvent>

//! A shown popup that receives mouse events one by one. Positions are in its own coordinates.
class MousedPopup : public UnshownPopup
{
public:
    //! \param documents how many, or the names of their files
    template<class Documents>
    explicit MousedPopup(const Documents &documents) : UnshownPopup(documents)
    {
        popup->show();
        drainEvents(); // layouts have run
    }

    //! \return whether the popup accepted the event; its base class ignores mouse events
    bool press(const QPointF &position, Qt::MouseButton button = Qt::LeftButton) const
    {
        return send(QEvent::MouseButtonPress, position, button, button);
    }
    bool move(const QPointF &position, Qt::MouseButtons buttons = Qt::LeftButton) const
    {
        return send(QEvent::MouseMove, position, Qt::NoButton, buttons);
    }
    //! The middle of a widget inside the popup.
    QPoint middleOf(const QWidget *widget) const { return widget->mapTo(popup, widget->rect().center()); }
    //! A place between the tiles.
    QPoint gap() const { return tiles.first()->geometry().topRight() + QPoint(5, 20); }

private:
    bool send(QEvent::Type type, const QPointF &position, Qt::MouseButton button,
              Qt::MouseButtons buttons) const
    {
        QMouseEvent event(type, position, popup->mapToGlobal(QPoint()) + position, button, buttons,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(popup, &event);
        return event.isAccepted();
    }
};

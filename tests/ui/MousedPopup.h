// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/TestCase.h"
#include "tests/support/fake/FakeBrowser.h"
#include "ui/RecentDocDialog.h"
#include "ui/RecentDocMainWindow.h"

#include <QMouseEvent>
#include <QPointer>

//! A shown popup that receives mouse events one by one. Positions are in its own coordinates.
class MousedPopup
{
public:
    //! Shows the popup of so many drawings, laid out.
    explicit MousedPopup(int documents) : browser(documents) { show(); }
    //! The same with files of these names.
    explicit MousedPopup(const QStringList &names) : browser(names) { show(); }

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

    FakeBrowser browser;
    QPointer<RecentDocMainWindow> popup;
    QList<RecentDocDialog *> tiles;

private:
    void show()
    {
        browser.createDocument();
        popup = browser.openPopup();
        tiles = browser.tiles();
        drainEvents(); // layouts have run
    }

    bool send(QEvent::Type type, const QPointF &position, Qt::MouseButton button,
              Qt::MouseButtons buttons) const
    {
        QMouseEvent event(type, position, popup->mapToGlobal(QPoint()) + position, button, buttons,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(popup, &event);
        return event.isAccepted();
    }
};

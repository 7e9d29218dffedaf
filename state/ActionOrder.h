// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QSet>

#include <list>

class QAction;
class QMenu;

//! An order of a menu's actions that is planned first and applied with the fewest moves: a menu takes the
//! widget of an entry that moves out and polishes it anew, which takes longer than all the planning. Owns
//! nothing. Only separators and inserted actions move: QMenu removes the connections from an action that
//! moves out to the menu, and those of others are the host's. GUI thread.
class ActionOrder
{
public:
    //! The menu's present order.
    explicit ActionOrder(const QMenu &menu);

    //! As QWidget::insertAction(): an action that is already there moves. \param before null, or not there:
    //! the action moves to the end
    void insert(QAction *before, QAction *action);
    //! Puts the menu's actions into this order. \param menu the one that this was made from, unchanged since
    void applyTo(QMenu &menu) const;

private:
    using Order = std::list<QAction *>;

    Order m_order;
    QHash<const QAction *, Order::iterator> m_places;
    QSet<const QAction *> m_inserted;
};

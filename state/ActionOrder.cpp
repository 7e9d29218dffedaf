// SPDX-License-Identifier: MIT
#include "state/ActionOrder.h"

#include <QMenu>
#include <QVector>

#include <algorithm>

namespace {

//! The most numbers that are in ascending order already, as indices into numbers. Negative numbers do not
//! count.
QSet<int> longestAscent(const QVector<int> &numbers)
{
    QVector<int> ends; // ends[n]: the index of the lowest end of an ascent of n + 1 numbers
    QVector<int> predecessors(numbers.size()); // in the ascent that ends at an index
    for (int i = 0; i < numbers.size(); ++i) {
        if (numbers.at(i) < 0)
            continue;
        auto *const end =
            std::lower_bound(ends.begin(), ends.end(), numbers.at(i),
                             [&numbers](int index, int number) { return numbers.at(index) < number; });
        predecessors[i] = end == ends.begin() ? -1 : *(end - 1);
        if (end == ends.end())
            ends.append(i);
        else
            *end = i;
    }
    QSet<int> ascent;
    for (int i = ends.isEmpty() ? -1 : ends.last(); i >= 0; i = predecessors.at(i))
        ascent.insert(i);
    return ascent;
}

} // namespace

ActionOrder::ActionOrder(const QMenu &menu)
{
    const QList<QAction *> actions = menu.actions();
    for (QAction *action : actions)
        m_places.insert(action, m_order.insert(m_order.end(), action));
}

void ActionOrder::insert(QAction *before, QAction *action)
{
    const auto old = m_places.constFind(action);
    if (old != m_places.constEnd()) {
        m_order.erase(*old);
        m_places.erase(old);
    }
    m_inserted.insert(action);
    const Order::iterator place = m_places.value(before, m_order.end());
    m_places.insert(action, m_order.insert(place, action));
}

void ActionOrder::applyTo(QMenu &menu) const
{
    QHash<const QAction *, int> present;
    const QList<QAction *> actions = menu.actions();
    for (int i = 0; i < actions.size(); ++i)
        present.insert(actions.at(i), i);
    QVector<int> numbers;
    QVector<int> fixed; // indices into numbers
    for (const QAction *action : m_order) {
        if (!action->isSeparator() && !m_inserted.contains(action))
            fixed.append(numbers.size());
        numbers.append(present.value(action, -1));
    }
    // What is now on the other side of an action that may not move cannot stay.
    fixed.append(numbers.size());
    int begin = 0;
    int lowest = -1;
    for (const int end : qAsConst(fixed)) {
        const int highest = numbers.value(end, present.size());
        for (int i = begin; i < end; ++i) {
            if (numbers.at(i) < lowest || numbers.at(i) > highest)
                numbers[i] = -1;
        }
        begin = end + 1;
        lowest = highest;
    }

    const QSet<int> staying = longestAscent(numbers);
    QAction *successor = nullptr;
    int i = numbers.size();
    for (auto action = m_order.rbegin(); action != m_order.rend(); ++action) {
        if (!staying.contains(--i))
            menu.insertAction(successor, *action);
        successor = *action;
    }
}

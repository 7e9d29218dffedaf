// SPDX-License-Identifier: MIT
#pragma once

#include <QGridLayout>
#include <QStringList>
#include <QWidget>

//! The items of a layout: a widget's name, "spacer", or a layout with its name, its spacing
//! and its own items. Those of a grid begin with row and column.
// NOLINTNEXTLINE(misc-no-recursion): no deeper than the form
inline QString formText(QLayoutItem *item)
{
    if (const QWidget *widget = item->widget())
        return widget->objectName();
    QLayout *layout = item->layout();
    if (!layout)
        return QStringLiteral("spacer");
    const auto *grid = qobject_cast<const QGridLayout *>(layout);
    QStringList items;
    for (int i = 0; i < layout->count(); ++i) {
        int row = 0;
        int column = 0;
        int span = 0;
        if (grid)
            grid->getItemPosition(i, &row, &column, &span, &span);
        items.append((grid ? QStringLiteral("%1:%2 ").arg(row).arg(column) : QString()) +
                     formText(layout->itemAt(i)));
    }
    const int spacing = grid ? grid->spacing() : layout->spacing();
    return QStringLiteral("%1 %2 (%3)")
        .arg(layout->objectName(), QString::number(spacing), items.join(QStringLiteral(", ")));
}

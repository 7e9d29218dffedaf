// SPDX-License-Identifier: MIT
#pragma once

#include <QFocusEvent>
#include <QList>
#include <QObject>
#include <QWidget>

//! Records the reasons with which a widget gets the focus.
class FocusReasons : public QObject
{
public:
    explicit FocusReasons(QWidget &widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == QEvent::FocusIn)
            reasons.append(static_cast<QFocusEvent *>(event)->reason());
        return false;
    }
    QList<Qt::FocusReason> reasons;
};

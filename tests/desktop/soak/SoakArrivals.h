// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QMouseEvent>
#include <QObject>
#include <QPoint>

//! What has come of the person's input to the program's windows. Nothing comes here of a drag, which keeps
//! all of it to itself. GUI thread.
class SoakArrivals : public QObject
{
public:
    SoakArrivals() { QCoreApplication::instance()->installEventFilter(this); }

    QPoint pointer() const { return m_pointer; } //!< where it was last, in global pixels
    int releases() const { return m_releases; }  //!< of buttons and keys, which come last of a click or a key

protected:
    bool eventFilter(QObject *receiver, QEvent *event) override
    {
        if (!receiver->isWindowType())
            return false; // it has come to the widget's window before
        if (event->type() == QEvent::MouseMove)
            m_pointer = static_cast<const QMouseEvent *>(event)->globalPos();
        m_releases += event->type() == QEvent::MouseButtonRelease || event->type() == QEvent::KeyRelease;
        return false;
    }

private:
    QPoint m_pointer;
    int m_releases = 0;
};

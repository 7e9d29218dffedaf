// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QEventLoop>
#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QString>
#include <QTimer>

#include <deque>
#include <functional>

class QWidget;

//! The hand at the display, for drags. A drag runs an event loop of its own until the button is let go, so
//! what the hand does is laid down before, step by step, and carried out by a timer that goes on inside that
//! loop. Each step waits for its outcome before the next one begins; one whose outcome does not come ends the
//! drag, and all.
class HandDrag : public QObject
{
    Q_OBJECT
public:
    HandDrag();

    //! Does something and waits until outcome is true. Neither may run events: the drag would begin inside.
    void step(const QString &what, std::function<void()> action, std::function<bool()> outcome);
    void waitFor(const QString &what, std::function<bool()> outcome);
    void justDo(std::function<void()> action);

    //! Moves the pointer to a place of the widget and presses the left button.
    void takeHold(QWidget *widget, const QPoint &local);
    void takeHold(QWidget *widget);
    //! Moves the pointer the shortest way that starts a drag, and waits until it runs. Follows takeHold().
    void startDrag();
    //! Moves the pointer along a line, a few pixels a time as a person does. The places are global.
    void carryTo(const QPoint &place);
    //! Moves the pointer there at once. A drag follows before the next step.
    void jumpTo(const QPoint &place);
    //! Lets the button go, and waits until the drag is over.
    void letGo();
    //! Cancels the drag with Escape, and lets the button go then.
    void escape();

    //! Carries out all steps. \return what did not come about; empty when all is well
    QString run();

    //! Whether a drag of this program is under way: its picture hangs at the pointer.
    static bool isDragging();
    //! Where that picture is, in global pixels.
    static QPoint pictureAt();
    //! How many drags the application keeps, since whoever took them may still fetch the data.
    static int keptDrags();
    //! The longest way that carryTo() moves at once: half of the popup's rim, in pixels.
    static constexpr int stride = 5;

private:
    struct Step
    {
        QString what;
        std::function<void()> action;
        std::function<bool()> outcome;
    };

    void goOn();
    void giveUp();

    std::deque<Step> m_steps;
    bool m_hasBegun = false; //!< the first of m_steps has been done; its outcome is still to come
    QElapsedTimer m_sinceStep;
    QString m_failure;
    QTimer m_timer;
    QEventLoop m_loop;
    QPointer<QWidget> m_held;
    QPoint m_place;   //!< where the pointer will be after the steps laid down so far
    QPoint m_hotSpot; //!< of the drag's picture; known once the drag runs
};

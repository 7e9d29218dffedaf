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

//! The user's drags. A drag runs an event loop of its own until the button is released, so the steps are
//! planned before and run by a timer inside that loop. Each step waits for its outcome before the next one
//! begins; one whose outcome does not happen ends the drag and the run.
class HandDrag : public QObject
{
    Q_OBJECT
public:
    HandDrag();

    //! Runs action and waits until outcome is true. Neither may run events: the drag would begin inside.
    void step(const QString &what, std::function<void()> action, std::function<bool()> outcome);
    void waitFor(const QString &what, std::function<bool()> outcome);
    void justDo(std::function<void()> action);

    //! Moves the pointer to a position in the widget and presses the left button.
    void takeHold(QWidget *widget, const QPoint &local);
    //! Moves the pointer the shortest way that starts a drag, and waits until it runs. Follows takeHold().
    void startDrag();
    //! Moves the pointer along a line, a few pixels at a time as a user does. Global positions.
    void carryTo(const QPoint &place);
    //! Moves the pointer there in one step, and waits until a drag has followed.
    void jumpTo(const QPoint &place);
    //! Releases the button, and waits until the drag is over.
    void letGo();
    //! Cancels the drag with Escape, and releases the button then.
    void escape();

    //! Runs all steps. \return the one that failed; empty when all succeeded
    QString run();

    //! Whether a drag of this program runs: its picture is on screen.
    static bool isDragging();
    //! Where that picture is, in global pixels.
    static QPoint pictureAt();
    //! The number of drags that the application keeps, since the drop's target may still fetch the data.
    static int keptDrags();
    //! The longest distance that carryTo() moves at once: half of the popup's rim, in pixels.
    static constexpr int stride = 5;

private:
    struct Step
    {
        QString what;
        std::function<void()> action;
        std::function<bool()> outcome;
    };

    void goOn();

    std::deque<Step> m_steps;
    bool m_hasBegun = false; //!< the first of m_steps has run; its outcome is awaited
    QElapsedTimer m_sinceStep;
    QString m_failure;
    QTimer m_timer;
    QEventLoop m_loop;
    QPointer<QWidget> m_held;
    QPoint m_place;   //!< the pointer's position after the steps planned so far
    QPoint m_hotSpot; //!< of the drag's picture; set when the drag begins
};

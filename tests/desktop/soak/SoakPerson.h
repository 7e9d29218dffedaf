// SPDX-License-Identifier: MIT
#pragma once

#include "tests/desktop/soak/SoakArrivals.h"
#include "tests/desktop/soak/SoakHost.h"
#include "tests/desktop/soak/SoakPlan.h"
#include "tests/support/Patience.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QStringList>
#include <QThread>

#include <functional>

//! The person at the display: does what the plan says, and looks at what must hold after each step. In a
//! thread of its own, because a drag keeps the GUI thread in its own loop.
class SoakPerson : public QThread
{
public:
    SoakPerson(SoakHost &soak, quint32 seed) : m_soak(soak), m_plan(seed) {}

    int seconds = 0;   //!< after which the day ends; 0 for no such end
    int mostSteps = 0; //!< the same in steps

    int steps = 0;
    int events = 0; //!< of input: keys, buttons and moves
    int drags = 0;
    int openings = 0; //!< of drawings, refused ones too
    int screens = 0;  //!< changes of their size
    int unheard = 0;  //!< input that no window of the program got; the window manager may have had it
    QString problem;

protected:
    void run() override;

private:
    //! Runs something on the GUI thread, between its events, and waits for it.
    template<class Work>
    static void gui(Work work)
    {
        QMetaObject::invokeMethod(qApp, work, Qt::BlockingQueuedConnection);
    }
    //! The same until it says true. \param limit for how long, in milliseconds
    //! \return whether it did
    static bool guiUntil(const std::function<bool()> &condition, int limit = patience);
    //! The same for a moment only, for what may not come at all; a drag gets every move.
    void awaitInput(const std::function<bool()> &arrived);
    //! Waits until the GUI thread has done what was laid down for later.
    static void settle();
    //! Moves the pointer, and waits until the program has heard of it, a drag included.
    void moveTo(const QPoint &place);
    //! Does something that ends with so many releases of buttons and keys, and waits until they have come.
    void input(int releases, const std::function<void()> &action);
    //! Waits until a popup that has just come has the keyboard, or is gone again.
    void welcomePopup();

    QPoint place(double x, double y) const;
    void perform(const SoakStep &step);
    void key(int choice);
    void click(const SoakStep &step);
    void clickTwice(const SoakStep &step);
    void drag(const SoakStep &step);
    void command(int choice);
    void file(int choice) const;
    void screen(int choice);
    //! Looks at what the host was asked to open in this step.
    void checkOpened();
    //! Tells the log what is about to be done.
    void say(const QString &text);
    //! A press at the same place a moment after another one may open a tile; it is a double-click.
    void expectDoubleClick(const QPoint &place);
    bool popupHasTheKeyboard();

    SoakHost &m_soak;
    SoakPlan m_plan;
    SoakArrivals m_arrivals;
    QPoint m_hotSpot; //!< of the picture that is dragged, once it is
    bool m_isDragging = false;
    QPoint m_lastPress;
    QElapsedTimer m_sincePress;
    QFile m_log;
    QStringList m_mayOpen;     //!< what this step may open, in this order
    bool m_mustOpen = false;   //!< all of it
    bool m_mayOpenAny = false; //!< or any one of it
};

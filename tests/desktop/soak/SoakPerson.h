// SPDX-License-Identifier: MIT
#pragma once

#include "tests/desktop/soak/SoakHost.h"
#include "tests/desktop/soak/SoakPlan.h"

#include <QCoreApplication>
#include <QStringList>
#include <QThread>

#include <functional>

//! The person at the display: does what the plan says, and looks at what must hold after each step. In a
//! thread of its own, because a drag keeps the GUI thread in its own loop.
class SoakPerson : public QThread
{
public:
    SoakPerson(SoakHost &soak, quint32 seed) : m_soak(soak), m_plan(seed) {}

    int seconds = 0;
    int mostSteps = 0;

    int steps = 0;
    int events = 0; //!< of input: keys, buttons and moves
    int drags = 0;
    int openings = 0; //!< of drawings, refused ones too
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
    //! The same until it says true. \return whether it did within the time that a busy machine may take
    static bool guiUntil(const std::function<bool()> &condition);
    //! Waits until the GUI thread has had what the display has.
    static void settle();
    //! Waits until a popup that has just come has the keyboard, or is gone again.
    void welcomePopup();

    QPoint place(double x, double y) const;
    void perform(const SoakStep &step);
    void key(int choice);
    void click(const SoakStep &step);
    void drag(const SoakStep &step);
    void command(int choice);
    void file(int choice) const;
    void screen(int choice);
    void pressed(int count) { events += count; }
    bool popupHasTheKeyboard();

    SoakHost &m_soak;
    SoakPlan m_plan;
    QStringList m_mayOpen;     //!< what this step may open, in this order
    bool m_mustOpen = false;   //!< all of it
    bool m_mayOpenAny = false; //!< or any one of it
};

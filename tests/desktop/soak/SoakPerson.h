// SPDX-License-Identifier: MIT
#pragma once

#include "tests/desktop/soak/SoakHost.h"
#include "tests/support/Patience.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QMouseEvent>
#include <QRandomGenerator>
#include <QStringList>
#include <QThread>

#include <functional>

//! What has come of the input to the program's windows. Nothing comes here of a drag, which keeps all of it
//! to itself. GUI thread.
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

//! The random numbers of one thing that happens on a long day.
struct SoakStep
{
    int choice; //!< of the many that there are: which key, which command and of which drawing
    // Places, from 0 to 1 across and down: in the popup where there is one, else in the main window.
    double x;
    double y;
    double toX; //!< across and down the main window
    double toY;
};

//! The user at the display: does what comes next by chance, and looks at what must hold after each step. The
//! same seed gives the same steps, whatever comes of them. In a thread of its own, because a drag keeps the
//! GUI thread in its own loop.
class SoakPerson : public QThread
{
public:
    SoakPerson(SoakHost &soak, quint32 seed) : m_soak(soak), m_random(seed) {}

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
    struct Deed
    {
        const char *name;
        int weight; //!< how often it happens, out of the sum
        void (SoakPerson::*act)(const SoakStep &step);
    };
    static const Deed deeds[];

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

    const Deed &nextDeed();
    SoakStep nextStep();
    QPoint place(const SoakStep &step) const;
    void key(const SoakStep &step);
    void click(const SoakStep &step);
    void clickTwice(const SoakStep &step);
    void hover(const SoakStep &step) { moveTo(place(step)); }
    void drag(const SoakStep &step);
    void command(const SoakStep &step);
    void file(const SoakStep &step); //!< what becomes of which drawing's file
    void module(const SoakStep & /*step*/);
    void screen(const SoakStep &step);
    //! Looks at what the host was asked to open in this step.
    void checkOpened();
    //! Tells the log what is about to be done.
    void say(const QString &text);
    //! A press at the same place a moment after another one may open a tile; it is a double-click.
    void expectDoubleClick(const QPoint &place);
    bool popupHasTheKeyboard();

    SoakHost &m_soak;
    QRandomGenerator m_random;
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

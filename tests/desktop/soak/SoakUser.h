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

//! The input that the program's windows received, except during a drag. GUI thread.
class SoakArrivals : public QObject
{
public:
    SoakArrivals() { QCoreApplication::instance()->installEventFilter(this); }

    QPoint pointer() const { return m_pointer; } //!< its last position, in global pixels
    int releases() const { return m_releases; }  //!< of buttons and keys, the last events of a click or a key

protected:
    bool eventFilter(QObject *receiver, QEvent *event) override
    {
        if (!receiver->isWindowType())
            return false; // the widget's window has received it before
        if (event->type() == QEvent::MouseMove)
            m_pointer = static_cast<const QMouseEvent *>(event)->globalPos();
        m_releases += event->type() == QEvent::MouseButtonRelease || event->type() == QEvent::KeyRelease;
        return false;
    }

private:
    QPoint m_pointer;
    int m_releases = 0;
};

//! The random numbers of one action.
struct SoakStep
{
    int choice; //!< selects the key, the command, the drawing
    // Positions from 0 to 1 across and down: in the popup, or in the main window without one.
    double x;
    double y;
    double toX; //!< across and down the main window
    double toY;
};

//! The user at the display: performs random actions, and checks after each one what must hold. The same seed
//! gives the same actions, whatever their outcome. In a thread of its own, since a drag blocks the GUI thread
//! in its loop.
class SoakUser : public QThread
{
public:
    SoakUser(SoakHost &soak, quint32 seed) : m_soak(soak), m_random(seed) {}

    int seconds = 0;   //!< after which it ends; 0 for no limit
    int mostSteps = 0; //!< after which it ends; 0 for no limit

    int steps = 0;
    int events = 0; //!< of input: keys, buttons and moves
    int drags = 0;
    int openings = 0;   //!< of drawings, refused ones too
    int screens = 0;    //!< changes of their size
    int unreceived = 0; //!< input that no window of the program got; the window manager may have used it
    QString problem;

protected:
    void run() override;

private:
    struct Action
    {
        const char *name;
        int weight; //!< its frequency, relative to the sum
        void (SoakUser::*run)(const SoakStep &step);
    };
    static const Action actions[];

    //! Runs work on the GUI thread, between its events, and waits for it.
    template<class Work>
    static void gui(Work work)
    {
        QMetaObject::invokeMethod(qApp, work, Qt::BlockingQueuedConnection);
    }
    //! Repeats it until it returns true. \param limit for how long, in milliseconds
    //! \return whether it did
    static bool guiUntil(const std::function<bool()> &condition, int limit = patience);
    //! Waits a moment only, since input may not arrive at all; a drag receives every move.
    void awaitInput(const std::function<bool()> &arrived);
    //! Waits until the GUI thread has handled its posted events.
    static void settle();
    //! Moves the pointer, and waits until the program or its drag has received the move.
    void moveTo(const QPoint &place);
    //! Runs an action that ends with this number of releases of buttons and keys, and waits until they
    //! arrive.
    void input(int releases, const std::function<void()> &action);
    //! Waits until a new popup has the keyboard, or is closed again.
    void awaitPopup();

    const Action &nextAction();
    SoakStep nextStep();
    QPoint place(const SoakStep &step) const;
    void key(const SoakStep &step);
    void click(const SoakStep &step);
    void clickTwice(const SoakStep &step);
    void hover(const SoakStep &step) { moveTo(place(step)); }
    void drag(const SoakStep &step);
    void command(const SoakStep &step);
    void file(const SoakStep &step); //!< replaces a drawing's file
    void module(const SoakStep & /*step*/);
    void screen(const SoakStep &step);
    //! Checks what the host was asked to open in this step.
    void checkOpened();
    void writeLog(const QString &text);
    //! A press at the same position a moment after another one is a double-click, which may open a tile.
    void expectDoubleClick(const QPoint &place);
    bool popupHasTheKeyboard();

    SoakHost &m_soak;
    QRandomGenerator m_random;
    SoakArrivals m_arrivals;
    QPoint m_hotSpot; //!< of the dragged picture, during a drag
    bool m_isDragging = false;
    QPoint m_lastPress;
    QElapsedTimer m_sincePress;
    QFile m_log;
    QStringList m_mayOpen;     //!< the paths that this step may open, in this order
    bool m_mustOpen = false;   //!< all of it
    bool m_mayOpenAny = false; //!< or any one of it
};

// SPDX-License-Identifier: MIT
#pragma once

#include <QRandomGenerator>
#include <QString>

//! One thing that happens on a long day.
struct SoakStep
{
    enum class Kind {
        Key,        //!< choice: which one
        Click,      //!< choice: button and modifier; at a place
        ClickTwice, //!< at a place
        Hover,      //!< over a place
        Drag,       //!< choice: which tile; from a place in it to another
        Command,    //!< choice: which command, and of which drawing
        File,       //!< choice: what becomes of which drawing's file
        Module,     //!< is unloaded or loaded
        Screen,     //!< choice: its size
    };

    Kind kind;
    int choice;
    // Places, from 0 to 1 across and down: in the popup where there is one, else in the main window.
    double x;
    double y;
    double toX; //!< across and down the main window
    double toY;

    //! For the log, which tells what to look at when a day has ended badly.
    QString text() const;
};

//! What is done, step by step. The same seed gives the same steps, whatever comes of them.
class SoakPlan
{
public:
    explicit SoakPlan(quint32 seed) : m_random(seed) {}
    SoakStep next();

private:
    QRandomGenerator m_random;
};

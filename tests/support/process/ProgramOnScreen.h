// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/process/ProgramHome.h"

#include <QProcess>
#include <QRect>
#include <QWidget>

//! The program as a user starts it, on the display, over drawings that exist. Its log and the windows on
//! screen show what it does.
class ProgramOnScreen
{
public:
    //! Makes drawings of these names, the first as the most recent, for start() to list.
    //! \param folder their folder, below the temporary directory
    explicit ProgramOnScreen(const QStringList &names, const QString &folder = {});
    //! Makes this number of the sample drawings.
    explicit ProgramOnScreen(int samples);
    ~ProgramOnScreen();

    //! The program's option; empty for the saved geometry.
    QString geometry = "1300x900+60+60";
    //! Starts the program with its own profile.
    //! \param script commands that are run after the drawings are listed
    //! \param around a program that runs the program, with its arguments; may be empty
    //! \return whether it has started, run the script and got the keyboard
    bool start(const QStringList &script, const QStringList &around = {});
    //! What to run it in for a session of its own, without running services and the user's settings. Its home
    //! is a folder of that name in the working directory; it is not removed, since services that other
    //! programs have started may still write there.
    static QStringList freshSession(const QString &name);
    QProcess &process() { return m_process; }
    //! Types a command and Enter, for the window that has the keyboard.
    static void type(const QString &command);
    //! Types the command that ends the program. \return whether it ended with success
    bool quit();

    QString path(const QString &name) const { return m_home.path(name); }
    QStringList paths() const { return m_paths; }
    QStringList log() const { return m_home.logOf({}); }
    //! The paths that were opened, in order.
    QStringList opened() const;

    //! The popup on screen; 0 when there is none.
    static WId popup();
    //! Waits until the popup has the keyboard, or is closed. \return whether that happened
    static bool popupOpens();
    static bool popupCloses();
    //! The window whose title matches the pattern; 0 when there is none on screen.
    static WId findWindow(const QString &pattern);
    //! The title of the window that the window manager calls active; empty when there is none.
    static QString activeTitle();

    //! The place of the popup's window over the main window with up to four drawings, in global pixels.
    static constexpr QRect popupPlace{288, 349, 724, 201};
    //! On the folder button of the popup's first tile: right of the name, left of the pin. In global pixels.
    static constexpr QPoint folderButton{popupPlace.x() + 138, popupPlace.y() + 83};

private:
    //! Leads a process group, so that its child processes end with it.
    class Group : public QProcess
    {
    protected:
        void setupChildProcess() override;
    };

    ProgramHome m_home{"xcb"};
    QStringList m_paths;
    Group m_process;
};

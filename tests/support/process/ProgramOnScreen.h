// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/process/ProgramHome.h"

#include <QProcess>
#include <QRect>
#include <QWidget>

//! The program as a user starts it, on the display, over drawings that exist. What it does is read from its
//! log and from the windows on screen.
class ProgramOnScreen
{
public:
    //! Makes drawings of these names, the first as the most recent, for start() to list.
    //! \param folder where in the program's home they lie
    explicit ProgramOnScreen(const QStringList &names, const QString &folder = {});
    //! Makes the first so many of the sample drawings.
    explicit ProgramOnScreen(int samples);
    ~ProgramOnScreen();

    //! The main window's size and place, as the program takes them; empty: as they were left.
    QString geometry = QStringLiteral("1300x900+60+60");
    //! Runs the program on a profile of its own.
    //! \param script commands, a line each, run once the drawings are listed
    //! \param around a program that runs the program, with its arguments; may be empty
    //! \return whether it has come up, run the script and got the keyboard
    bool start(const QStringList &script, const QStringList &around = {});
    //! What to run it in for a session of its own, so that neither a running service nor anybody's settings
    //! come in. Its home is a folder of that name in the working directory; it stays behind, since services
    //! that other programs have started may still write there.
    static QStringList freshSession(const QString &name);
    QProcess &process() { return m_process; }
    //! Types a command and Enter, for the window that has the keyboard.
    static void type(const QString &command);
    //! Types the command that ends the program. \return whether it ended well
    bool quit();

    QString path(const QString &name) const { return m_home.path(name); }
    QStringList paths() const { return m_paths; }
    QStringList log() const { return m_home.logOf({}); }
    //! The paths that were opened, in order.
    QStringList opened() const;

    //! The popup on screen; 0 when there is none.
    static WId popup();
    //! Waits for the popup to have the keyboard, or to be gone. \return whether it came about
    static bool popupComes();
    static bool popupGoes();
    //! The window whose title matches the pattern; 0 when there is none on screen.
    static WId findWindow(const QString &pattern);
    //! The title of the window that the window manager calls active; empty when there is none.
    static QString activeTitle();

    //! The place of the popup's window over the main window with up to four drawings, in global pixels.
    static constexpr QRect popupPlace{288, 349, 724, 201};
    //! On the folder button of the popup's first tile: right of the name, left of the pin. In global pixels.
    static constexpr QPoint folderButton{popupPlace.x() + 138, popupPlace.y() + 83};

private:
    //! Leads a process group, so that what it has started ends with it.
    class Group : public QProcess
    {
    protected:
        void setupChildProcess() override;
    };

    ProgramHome m_home{QStringLiteral("xcb")};
    QStringList m_paths;
    Group m_process;
};

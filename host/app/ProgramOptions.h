// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QStringList>

#include <optional>

namespace fxhost {

//! The smallest useful size of the main window, in device-independent pixels.
constexpr QSize smallestMainWindow(400, 300);

//! The options that the program is started with. A value type.
struct ProgramOptions
{
    //! Libraries to load, in this order; unset: the browser.
    std::optional<QStringList> modules;
    //! Folder of the settings and the recent-file list; empty: the desktop's default.
    QString profileDir;
    //! File with commands to run after the window is shown; empty: none.
    QString scriptFile;
    //! File to which a line is written for each request to the program; empty: none.
    QString logFile;
    //! Whether the program starts with a new drawing.
    bool newDocument = true;
    //! Whether the drawings are opened in an instance of their own: on request, or because there are options
    //! that a running instance cannot apply.
    bool newInstance = false;
    //! Size of the main window; unset: the last size.
    std::optional<QSize> windowSize;
    //! Position of the main window's top left corner; unset: the last position, or chosen by the desktop.
    std::optional<QPoint> windowPosition;
    //! Paths of the drawings to open, as given on the command line.
    QStringList drawings;
};

//! The result of reading a command line.
struct ProgramStart
{
    enum class Wish {
        Start,       //!< start with the options
        PrintAndEnd, //!< print text to the standard output; the exit code is 0
        Refuse,      //!< print text to the standard error stream; the exit code is usageError
    };

    //! The exit code for incorrect arguments.
    static constexpr int usageError = 2;

    Wish wish = Wish::Refuse;
    QString text;
    ProgramOptions options;
};

//! Reads a command line and checks it without accessing the file system. Requires an application object,
//! whose name and version are used in the texts.
//! \param arguments includes the program's name as the first argument
ProgramStart readProgramOptions(const QStringList &arguments);

} // namespace fxhost

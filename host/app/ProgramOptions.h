// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QStringList>

#include <optional>

namespace fxhost {

//! The smallest main window that is still of use, in device-independent pixels.
constexpr QSize smallestMainWindow(400, 300);

//! How the program is to be started. A value type.
struct ProgramOptions
{
    //! Libraries to load, in this order; unset: the one that stands beside the program.
    std::optional<QStringList> modules;
    //! Where settings and the recent-file list live; empty: the place the desktop has for them.
    QString profileDir;
    //! File of commands to run once the window stands; empty: none.
    QString scriptFile;
    //! File that receives a line for each thing the program is asked to do; empty: none.
    QString logFile;
    //! Whether the program starts with a new drawing.
    bool newDocument = true;
    //! Size of the main window; unset: as it was left.
    std::optional<QSize> windowSize;
    //! Place of the main window's top left corner; unset: as it was left, or where the desktop puts it.
    std::optional<QPoint> windowPosition;
    //! Paths of the drawings to open, as they were given.
    QStringList drawings;
};

//! What became of reading a command line.
struct ProgramStart
{
    enum class Wish {
        Start,       //!< start with the options
        PrintAndEnd, //!< print text to the standard output; the exit code is 0
        Refuse,      //!< print text to the standard error stream; the exit code is usageError
    };

    //! The exit code that says that the program was called wrongly.
    static constexpr int usageError = 2;

    Wish wish = Wish::Refuse;
    QString text;
    ProgramOptions options;
};

//! Reads a command line and checks what can be checked without touching the file system. Needs an application
//! object, whose name and version appear in the texts.
//! \param arguments the program's name first
ProgramStart readProgramOptions(const QStringList &arguments);

} // namespace fxhost

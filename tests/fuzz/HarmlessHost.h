// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/commands/CommandRunner.h"
#include "host/runtime/commands/CommandSet.h"
#include "host/runtime/commands/CommandStack.h"
#include "host/runtime/editor/Editor.h"
#include "host/runtime/log/HostLog.h"
#include "tests/fuzz/MemoryFile.h"

#include <QPair>
#include <QString>
#include <QStringList>
#include <QVector>

namespace fuzz {

//! A command's global name and its argument.
using CommandLine = QPair<QString, QString>;

//! As much of a host as it takes to run commands, and commands that do no harm:
//! - ECHO, FAIL and THROW end well, badly and with an exception;
//! - NEST asks for the line that is its argument;
//! - WAIT runs the macros that are left, as a person may while a command waits, until it is cancelled;
//! - STOP stops the runner.
class HarmlessHost
{
public:
    //! \param macros left to be run
    explicit HarmlessHost(const QStringList &macros = {});
    ~HarmlessHost();

    //! Runs the next macro. \return false if there was none
    bool runNextMacro();

    //! Holds what has run against what the lines say. They are read by another hand than the runner's, which
    //! knows ASCII alone; of other lines, and where commands ran others, less is said. \param lines what was
    //! to run, in order; nothing is running any more
    void check(const QStringList &lines) const;

    fxhost::CommandRunner &runner() { return m_runner; }

    HarmlessHost(const HarmlessHost &) = delete;
    HarmlessHost &operator=(const HarmlessHost &) = delete;

private:
    MemoryFile m_logFile;
    fxhost::HostLog m_log{m_logFile.path()};
    fxhost::CommandStack m_stack;
    fxhost::CommandSet m_set{m_stack};
    fxhost::Editor m_editor{[](const QString &) {}};
    QStringList m_macros;
    QVector<CommandLine> m_started;
    int m_ended = 0;
    int m_complaints = 0;     //!< that the person hears
    bool m_isStraight = true; //!< no command has run others, so that all ran in the lines' order
    fxhost::CommandRunner m_runner;
};

} // namespace fuzz

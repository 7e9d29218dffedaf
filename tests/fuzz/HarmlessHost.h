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

//! The parts of a host that run commands, with harmless commands:
//! - ECHO, FAIL and THROW succeed, fail and throw;
//! - NEST runs its argument as a line;
//! - WAIT runs the remaining macros, as the user may while a command waits, until it is cancelled;
//! - STOP stops the runner.
class HarmlessHost
{
public:
    //! \param macros to run
    explicit HarmlessHost(const QStringList &macros = {});
    ~HarmlessHost();

    //! Runs the next macro. \return false if there is none
    bool runNextMacro();

    //! Compares the commands that have run with lines. A separate parser reads these; it supports only ASCII,
    //! so that less is checked of other lines, and where commands ran others. \param lines in order; nothing
    //! is running any more
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
    int m_messages = 0;       //!< to the user
    bool m_isStraight = true; //!< no command has run others, so that all ran in the lines' order
    fxhost::CommandRunner m_runner;
};

} // namespace fuzz

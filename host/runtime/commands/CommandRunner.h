// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"
#include "host/runtime/commands/CommandRun.h"

#include <sdkhost/MessageSink.h>

#include <QObject>

#include <deque>

class OdEdCommand;

namespace fxhost {

class HostLog;

//! Runs commands, one at a time, in the order in which they were requested. A command may run an event loop;
//! commands that are requested meanwhile wait until it has ended. GUI thread.
class FXHOST_API CommandRunner : public QObject
{
    Q_OBJECT
public:
    //! All arguments must outlive the runner.
    //! \param report receives a message for each unknown command, and the commands' exceptions
    CommandRunner(const CommandStack &commands, const Editor &editor, HostLog &log, MessageSink report,
                  QObject *parent = nullptr);
    ~CommandRunner() override;

    //! Runs a command, immediately or after the running one and those that wait have ended.
    //! \param name a global or local name in any case, with or without the leading underscore
    //! \param argument passed on unchanged
    //! \return a reference that the caller owns and releases; null after stop()
    CommandRun *run(const QString &name, const QString &argument = {});
    //! Runs a line that the user typed: a name, blanks, the argument. The argument is passed on without
    //! leading and trailing blanks. A leading `^C` cancels the running command. An empty line does nothing.
    void runLine(const QString &line);
    //! Runs a menu's macro: lines that are separated by `;` or line ends.
    void runMacro(const QString &macro);

    //! Cancels the running command. Does nothing if none is running.
    void cancel();
    //! Cancels the running command, discards those that wait and accepts no more.
    void stop();

    //! True between a command's start and end.
    bool isRunning() const { return m_context != nullptr; }
    //! The running command, or null.
    const OdEdCommand *running() const { return m_running; }
    //! True while no command runs or waits.
    bool isIdle() const { return !m_draining; }

signals:
    //! \param name the command's global name
    void commandStarted(const QString &name, const QString &argument);
    void commandEnded(const QString &name, int result);
    //! A command that runs an event loop must leave it.
    void cancelRequested();
    //! The last command has ended, and none waits.
    void idle();

private:
    void drain();
    void runNow(CommandRun &run);
    int execute(OdEdCommand &command, const QString &name, CommandContext &context) const;
    OdEdCommand *find(const QString &name) const;

    const CommandStack &m_commands;
    const Editor &m_editor;
    HostLog &m_log;
    MessageSink m_report;
    std::deque<CommandRun *> m_waiting; // owns a reference to each
    OdEdCommand *m_running = nullptr;
    CommandContext *m_context = nullptr; // of the running command
    bool m_draining = false;
    bool m_stopped = false;
};

} // namespace fxhost

// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"
#include "host/runtime/MessageSink.h"
#include "host/runtime/commands/CommandRun.h"

#include <QObject>

#include <deque>

class OdEdCommand;

namespace fxhost {

class CommandContext;
class CommandStack;
class Editor;
class HostLog;

//! Runs commands, one at a time, in the order in which they were asked for. A command may run an event loop;
//! what is asked for meanwhile waits until it has ended. GUI thread.
class FXHOST_API CommandRunner : public QObject
{
    Q_OBJECT
public:
    //! Everything that is passed in must outlive the runner.
    //! \param report gets unknown commands and what commands throw
    CommandRunner(const CommandStack &commands, const Editor &editor, HostLog &log, MessageSink report,
                  QObject *parent = nullptr);
    ~CommandRunner() override;

    //! Runs a command, now, or once the running one and those that wait have ended.
    //! \param name a global or local name in any case, with or without the leading underscore
    //! \param argument passed on as it is
    //! \return owned by the caller; null after stop()
    CommandRun *run(const QString &name, const QString &argument = {});
    //! Runs what the user typed: a name, blanks, the argument. Blanks around the argument are dropped and it
    //! is passed on verbatim. Leading `^C` cancel the running command. An empty line does nothing.
    void runLine(const QString &line);
    //! Runs a menu's macro: as a line, but `;` and line ends separate several of them.
    void runMacro(const QString &macro);

    //! Asks the running command to end. Without one nothing happens.
    void cancel();
    //! Cancels the running command, drops what waits and takes nothing more.
    void stop();

    //! True between a command's start and end.
    bool isRunning() const { return m_context != nullptr; }
    //! The command that is running, or null.
    const OdEdCommand *running() const { return m_running; }
    //! True while nothing runs or waits.
    bool isIdle() const { return !m_draining; }

signals:
    //! \param name the command's global name
    void commandStarted(const QString &name, const QString &argument);
    void commandEnded(const QString &name, int result);
    //! A command that waits in an event loop of its own leaves it now.
    void cancelRequested();
    //! Nothing runs or waits any more.
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
    std::deque<CommandRun *> m_waiting; // one reference each
    OdEdCommand *m_running = nullptr;
    CommandContext *m_context = nullptr; // of the running command
    bool m_draining = false;
    bool m_stopped = false;
};

} // namespace fxhost

// SPDX-License-Identifier: MIT
#include "host/runtime/commands/CommandRunner.h"

#include "host/runtime/commands/NearestName.h"
#include "host/runtime/log/HostLog.h"

#include <CFxCommand.h>
#include <sdkhost/CommandContext.h>
#include <sdkhost/CommandStack.h>
#include <sdkhost/Editor.h>
#include <sdkhost/GuiThread.h>
#include <sdkhost/Outcome.h>
#include <sdkhost/Strings.h>

#include <QRegularExpression>

#include <memory>
#include <utility>

namespace fxhost {

namespace {

struct Release
{
    void operator()(OdEdCommand *command) const { command->release(); }
};

} // namespace

CommandRunner::CommandRunner(const CommandStack &commands, const Editor &editor, HostLog &log,
                             MessageSink report, QObject *parent)
    : QObject(parent), m_commands(commands), m_editor(editor), m_log(log), m_report(std::move(report))
{
}

CommandRunner::~CommandRunner() = default;

CommandRun *CommandRunner::run(const QString &name, const QString &argument)
{
    SDKHOST_ASSERT_GUI_THREAD();
    if (m_stopped)
        return nullptr;
    auto *run = new CommandRun(name, argument);
    run->addRef(); // for the queue
    m_waiting.push_back(run);
    drain();
    return run;
}

void CommandRunner::runLine(const QString &line)
{
    static const QRegularExpression cancels(QStringLiteral("^(\\s*\\^C)+"),
                                            QRegularExpression::CaseInsensitiveOption);
    QString text = line;
    text.remove(cancels);
    if (text.size() != line.size())
        cancel();
    text = text.trimmed();
    if (text.isEmpty())
        return;
    static const QRegularExpression blank(QStringLiteral("\\s"));
    const int end = text.indexOf(blank);
    const QString name = text.left(end); // the whole text if there is no blank
    const QString argument = end < 0 ? QString() : text.mid(end).trimmed();
    if (CommandRun *started = run(name, argument))
        started->release();
}

void CommandRunner::runMacro(const QString &macro)
{
    static const QRegularExpression separators(QStringLiteral("[;\\r\\n]"));
    const QStringList lines = macro.split(separators);
    for (const QString &line : lines)
        runLine(line);
}

void CommandRunner::cancel()
{
    SDKHOST_ASSERT_GUI_THREAD();
    if (!m_context)
        return;
    m_context->cancel();
    emit cancelRequested();
}

void CommandRunner::stop()
{
    m_stopped = true;
    for (CommandRun *dropped : std::exchange(m_waiting, {}))
        dropped->release();
    cancel();
}

void CommandRunner::drain()
{
    if (m_draining)
        return; // the running loop continues with it
    m_draining = true;
    while (!m_waiting.empty()) {
        CommandRun *const next = m_waiting.front();
        m_waiting.pop_front();
        try {
            runNow(*next);
        } catch (...) { // a module's command threw in globalName()
            m_context = nullptr;
            m_running = nullptr;
            next->m_result = CFxCommand::failed;
            m_log.command(next->name(), next->m_result);
            m_report(tr("The command %1 failed.").arg(next->name()));
        }
        next->release();
    }
    m_draining = false;
    emit idle();
}

void CommandRunner::runNow(CommandRun &run)
{
    std::unique_ptr<OdEdCommand, Release> command(find(run.name()));
    if (!command) {
        m_log.unknownCommand(run.name());
        const QString meant = nearestName(run.name(), m_commands.names());
        const QString report = tr("There is no command \"%1\".").arg(run.name());
        m_report(meant.isEmpty() ? report : report + QLatin1Char(' ') + tr("Did you mean %1?").arg(meant));
        return;
    }
    const OdString globalName = command->globalName();
    const QString name = fromOdString(globalName);
    CommandContext context(run.argument());
    m_context = &context;
    m_running = command.get();
    m_editor.reactors().notify(&OdEditorReactor::commandWillStart, globalName);
    emit commandStarted(name, run.argument());

    run.m_result = execute(*command, name, context);

    m_context = nullptr;
    m_running = nullptr;
    command.reset(); // now, because a reactor may unload the command's module
    m_log.command(name, run.m_result);
    m_editor.reactors().notify(&OdEditorReactor::commandEnded, globalName, run.m_result);
    emit commandEnded(name, run.m_result);
}

int CommandRunner::execute(OdEdCommand &command, const QString &name, CommandContext &context) const
{
    const Outcome executed = Outcome::of([&] { command.execute(&context); });
    if (executed)
        return context.result();
    m_report(tr("The command %1 failed: %2").arg(name, executed.reason()));
    return CFxCommand::failed;
}

//! A reference owned by the caller, or null.
OdEdCommand *CommandRunner::find(const QString &name) const
{
    // The engine's names end at the first null character, and the part before it may be another command.
    if (name.contains(QChar::Null))
        return nullptr;
    const QString other = name.startsWith(QLatin1Char('_')) ? name.mid(1) : QLatin1Char('_') + name;
    constexpr int bothNames = OdEdCommandStack::GlobalNames | OdEdCommandStack::LocalNames;
    OdEdCommand *found = m_commands.lookupCommand(toOdString(name), bothNames, {});
    return found ? found : m_commands.lookupCommand(toOdString(other), bothNames, {});
}

} // namespace fxhost

// SPDX-License-Identifier: MIT
#include "tests/fuzz/HarmlessHost.h"

#include "tests/fuzz/Target.h"

#include <CFxCommand.h>

#include <algorithm>
#include <stdexcept>

namespace fuzz {

namespace {

bool isBlank(QChar c)
{
    return c == QLatin1Char(' ') || (c >= QLatin1Char('\t') && c <= QLatin1Char('\r'));
}

//! The rest of text after its first count characters and the blanks that follow.
QString rest(const QString &text, int count)
{
    while (count < text.size() && isBlank(text.at(count)))
        ++count;
    return text.mid(count);
}

//! The line without its leading `^C`, as in the runner's contract: name, blanks, argument.
CommandLine commandLine(const QString &line)
{
    QString text = rest(line, 0);
    while (text.startsWith(QLatin1String("^C"), Qt::CaseInsensitive))
        text = rest(text, 2);
    while (!text.isEmpty() && isBlank(text.back()))
        text.chop(1);
    int nameSize = 0;
    while (nameSize < text.size() && !isBlank(text.at(nameSize)))
        ++nameSize;
    return {text.left(nameSize), rest(text, nameSize)};
}

//! The global name of a typed one; empty if there is no such command.
QString globalName(const QString &typed)
{
    for (const char *name : {"ECHO", "FAIL", "THROW", "NEST", "WAIT", "STOP"}) {
        const QString local = QString::fromLatin1(name);
        const QString global = QLatin1Char('_') + local;
        for (const QString &spelling : {local, global, QLatin1Char('_') + global}) {
            if (typed.compare(spelling, Qt::CaseInsensitive) == 0)
                return global;
        }
    }
    return {};
}

bool isAscii(const QString &text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
}

} // namespace

HarmlessHost::HarmlessHost(const QStringList &macros)
    : m_macros(macros), m_runner(m_stack, m_editor, m_log, [this](const QString &) { ++m_messages; })
{
    const auto add = [this](const char *name, const fxhost::CommandSet::Function &function) {
        m_set.add(QString::fromLatin1(name), function);
    };
    add("ECHO", [](const CFxCommandContext &) { return CFxCommand::normalCompletion; });
    add("FAIL", [](const CFxCommandContext &) { return CFxCommand::failed; });
    add("THROW", [](const CFxCommandContext &) -> int { throw std::runtime_error("no paper"); });
    add("NEST", [this](const CFxCommandContext &context) {
        m_isStraight = false;
        m_runner.runLine(context.argument());
        return CFxCommand::normalCompletion;
    });
    add("WAIT", [this](const CFxCommandContext &context) {
        m_isStraight = false;
        while (!context.isCancelled() && runNextMacro()) {}
        return context.isCancelled() ? CFxCommand::cancelled : CFxCommand::normalCompletion;
    });
    add("STOP", [this](const CFxCommandContext &) {
        m_isStraight = false;
        m_runner.stop();
        return CFxCommand::normalCompletion;
    });
    QObject::connect(&m_runner, &fxhost::CommandRunner::commandStarted, &m_runner,
                     [this](const QString &name, const QString &argument) {
                         require(m_started.size() == m_ended, "one command runs at a time");
                         m_started.append({name, argument});
                     });
    QObject::connect(&m_runner, &fxhost::CommandRunner::commandEnded, &m_runner, [this] { ++m_ended; });
}

HarmlessHost::~HarmlessHost() = default;

bool HarmlessHost::runNextMacro()
{
    if (m_macros.isEmpty())
        return false;
    m_runner.runMacro(m_macros.takeFirst());
    return true;
}

void HarmlessHost::check(const QStringList &lines) const
{
    require(m_runner.isIdle() && !m_runner.isRunning(), "nothing is left to run");
    require(m_started.size() == m_ended, "what has started has ended");
    for (const CommandLine &run : m_started)
        require(run.second == run.second.trimmed(), "an argument has no blanks around it");
    if (!m_isStraight || !std::all_of(lines.begin(), lines.end(), isAscii))
        return;

    QVector<CommandLine> known;
    int unknown = 0;
    int thrown = 0;
    for (const QString &line : lines) {
        const CommandLine wanted = commandLine(line);
        const QString name = globalName(wanted.first);
        if (!name.isEmpty())
            known.append({name, wanted.second});
        else if (!wanted.first.isEmpty())
            ++unknown;
        thrown += name == QLatin1String("_THROW") ? 1 : 0;
    }
    require(m_started == known, "each line's command has run, in order, with its argument");
    require(m_messages == unknown + thrown,
            "the user is notified of commands that do not exist, and of those that throw");
    require(m_logFile.read().count('\n') == known.size() + unknown, "the log has a line for each");
}

} // namespace fuzz

// SPDX-License-Identifier: MIT
// Input: commands, which are run as macros and as a script file. A zero byte ends a macro; the next one is
// run while a command waits, or after it. Macros are UTF-8, or UTF-16 after a byte order mark.
#include "host/app/ScriptRunner.h"
#include "host/runtime/commands/CommandRunner.h"
#include "host/runtime/commands/CommandSet.h"
#include "host/runtime/log/HostLog.h"
#include "tests/fuzz/MemoryFile.h"
#include "tests/fuzz/Target.h"

#include <CFxCommand.h>
#include <sdkhost/CommandStack.h>
#include <sdkhost/Editor.h>

#include <QCoreApplication>
#include <QVector>

#include <algorithm>
#include <stdexcept>

using fuzz::require;

namespace {

//! A command's global name and its argument.
using CommandLine = QPair<QString, QString>;

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

//! The parts of a host that run commands, with harmless commands:
//! - ECHO, FAIL and THROW succeed, fail and throw;
//! - NEST runs its argument as a line;
//! - WAIT runs the remaining macros, as the user may while a command waits, until it is cancelled;
//! - STOP stops the runner.
class HarmlessHost
{
public:
    //! \param macros to run
    explicit HarmlessHost(const QStringList &macros = {}) : m_macros(macros)
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

    //! Runs the next macro. \return false if there is none
    bool runNextMacro()
    {
        if (m_macros.isEmpty())
            return false;
        m_runner.runMacro(m_macros.takeFirst());
        return true;
    }

    //! Compares the commands that have run with lines. A separate parser reads these; it supports only ASCII,
    //! so that less is checked of other lines, and where commands ran others. \param lines in order; nothing
    //! is running any more
    void check(const QStringList &lines) const
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

    fxhost::CommandRunner &runner() { return m_runner; }

private:
    fuzz::MemoryFile m_logFile;
    fxhost::HostLog m_log{m_logFile.path()};
    fxhost::CommandStack m_stack;
    fxhost::CommandSet m_set{m_stack};
    fxhost::Editor m_editor{[](const QString &) {}};
    QStringList m_macros;
    QVector<CommandLine> m_started;
    int m_ended = 0;
    int m_messages = 0;       //!< to the user
    bool m_isStraight = true; //!< no command has run others, so that all ran in the lines' order
    fxhost::CommandRunner m_runner{m_stack, m_editor, m_log, [this](const QString &) { ++m_messages; }};
};

QString textOf(const QByteArray &bytes)
{
    if (!bytes.startsWith("\xFF\xFE"))
        return QString::fromUtf8(bytes.constData(), bytes.size()); // not up to the first zero
    // Qt's decoder would replace halves of surrogate pairs, which a module may pass.
    QString text;
    for (int at = 2; at + 1 < bytes.size(); at += 2)
        text.append(QChar(static_cast<uchar>(bytes.at(at)), static_cast<uchar>(bytes.at(at + 1))));
    return text;
}

//! The lines of a macro: `;` and line ends separate them.
QStringList linesOfMacro(QString macro)
{
    for (const char separator : {';', '\r'})
        macro.replace(QLatin1Char(separator), QLatin1Char('\n'));
    return macro.split(QLatin1Char('\n'));
}

//! The commands of a plain script.
QStringList linesOfScript(const QByteArray &script)
{
    QStringList lines;
    const QList<QByteArray> all = script.split('\n');
    for (const QByteArray &line : all) {
        const QByteArray command = line.trimmed();
        if (!command.isEmpty() && !command.startsWith('#'))
            lines.append(QString::fromLatin1(command.constData(), command.size()));
    }
    return lines;
}

bool isPlain(const QByteArray &script)
{
    return std::all_of(script.begin(), script.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80 && c != '\r'; });
}

void checkLines(const QStringList &lines, const QByteArray &script)
{
    for (const QString &line : lines) {
        require(!line.isEmpty() && line == line.trimmed() && !line.startsWith(QLatin1Char('#')) &&
                    !line.contains(QLatin1Char('\n')),
                "a line is a command without blanks around it");
    }
    require(!isPlain(script) || lines == linesOfScript(script), "every line with a command is one");
}

void runMacros(const QByteArray &bytes)
{
    const QStringList macros = textOf(bytes).split(QChar::Null);
    HarmlessHost host(macros);
    while (host.runNextMacro()) {}
    QStringList lines;
    for (const QString &macro : macros)
        lines += linesOfMacro(macro);
    host.check(lines);
}

void runScript(const QString &path, const QByteArray &bytes)
{
    HarmlessHost host;
    fxhost::ScriptRunner script(host.runner());
    require(bool(script.load(path)), "the file can be read");
    const QStringList lines = script.lines();
    checkLines(lines, bytes);

    emit host.runner().idle(); // starts the next line
    for (int turns = lines.size(); turns > 0; --turns)
        QCoreApplication::processEvents();
    require(script.lines().isEmpty(), "every line is run");
    host.check(lines);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static int argumentCount = 1;
    static char name[] = "fuzz_commands";
    static char *arguments[] = {name, nullptr};
    static const QCoreApplication application(argumentCount, arguments); // has the event loop
    static fuzz::MemoryFile file;

    const QByteArray bytes = fuzz::bytesOf(data, size);
    file.write(bytes);
    fuzz::runWithinLimits([&] { runMacros(bytes); });
    fuzz::runWithinLimits([&] { runScript(file.path(), bytes); });
    return 0;
}

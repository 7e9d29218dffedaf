// SPDX-License-Identifier: MIT
// Input: a script file, whose commands are run.
#include "host/app/ScriptRunner.h"
#include "tests/fuzz/Costs.h"
#include "tests/fuzz/HarmlessHost.h"
#include "tests/fuzz/MemoryFile.h"
#include "tests/fuzz/Target.h"

#include <QCoreApplication>

using fuzz::require;

namespace {

//! The commands of a plain script.
QStringList linesOf(const QByteArray &script)
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

void check(const QStringList &lines, const QByteArray &script)
{
    for (const QString &line : lines) {
        require(!line.isEmpty() && line == line.trimmed() && !line.startsWith(QLatin1Char('#')) &&
                    !line.contains(QLatin1Char('\n')),
                "a line is a command without blanks around it");
    }
    require(!isPlain(script) || lines == linesOf(script), "every line with a command is one");
}

void runScript(const QString &path, const QByteArray &bytes)
{
    fuzz::HarmlessHost host;
    fxhost::ScriptRunner script(host.runner());
    require(bool(script.load(path)), "the file can be read");
    const QStringList lines = script.lines();
    check(lines, bytes);

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
    static char name[] = "fuzz_script";
    static char *arguments[] = {name, nullptr};
    static const QCoreApplication application(argumentCount, arguments); // has the event loop
    static fuzz::MemoryFile file;

    const QByteArray bytes = fuzz::bytesOf(data, size);
    file.write(bytes);
    fuzz::runWithinLimits([&] { runScript(file.path(), bytes); });
    return 0;
}

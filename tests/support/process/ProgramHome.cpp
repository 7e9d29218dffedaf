// SPDX-License-Identifier: MIT
#include "tests/support/process/ProgramHome.h"

#include "tests/support/Patience.h"
#include "tests/support/bytes/BytesOfPreview.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>

ProgramHome::ProgramHome(const QString &platform) : m_platform(platform)
{
    const QDir dir(m_dir.path());
    for (const char *folder : {"home", "caches"})
        dir.mkdir(QLatin1String(folder));
    QFile::setPermissions(path("caches"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

QStringList ProgramHome::recent() const
{
    return pathsIn(linesOf(recentFile()).join('\n'));
}

QStringList ProgramHome::pathsIn(const QString &content)
{
    QStringList paths = content.split('\n', Qt::SkipEmptyParts).mid(1); // after the header
    for (QString &line : paths)
        line = line.section(' ', 2); // after a word and a time
    return paths;
}

QString ProgramHome::write(const QString &name, const QByteArray &bytes) const
{
    QDir().mkpath(QFileInfo(path(name)).path());
    return testbytes::writeFile(path(name), bytes);
}

QString ProgramHome::drawing(const QString &name) const
{
    return write(name, testbytes::DrawingBytes().bytes());
}

QStringList ProgramHome::filesInHome() const
{
    QStringList files;
    QDirIterator walk(path("home"), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                      QDirIterator::Subdirectories);
    while (walk.hasNext())
        files << walk.next();
    return files;
}

//! The arguments of every run. Writes the script, if there is one, and removes the log of a former run.
QStringList ProgramHome::arguments(const QString &name, const QStringList &script) const
{
    const QString log = path(name + "log.txt");
    QFile::remove(log);
    QStringList all{"--profile", profile(), "--log", log};
    if (!script.isEmpty())
        all << "--script" << write(name + "script.txt", (script.join('\n') + QLatin1Char('\n')).toUtf8());
    return all;
}

void ProgramHome::startBare(QProcess &process, const QStringList &arguments, const QStringList &around) const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("HOME", path("home"));
    for (const char *name :
         {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME"}) // then they are below HOME
        environment.remove(QLatin1String(name));
    // For the font library's cache, which is not the program's.
    for (const char *name : {"XDG_CACHE_HOME", "XDG_RUNTIME_DIR"})
        environment.insert(QLatin1String(name), path("caches"));
    environment.insert("LC_ALL", "C.UTF-8");
    environment.insert("QT_QPA_PLATFORM", m_platform);
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(m_dir.path());
    const QStringList command = around + QStringList(FXHOST_PROGRAM) + arguments;
    process.start(command.constFirst(), command.mid(1));
}

ProgramRun ProgramHome::run(const QStringList &script, const QStringList &more) const
{
    ProgramRun result = runBare(arguments(QString(), script) + more);
    result.log = logOf(QString());
    return result;
}

ProgramRun ProgramHome::runBare(const QStringList &arguments) const
{
    QProcess process;
    startBare(process, arguments);
    ProgramRun result;
    const bool ended = process.waitForFinished(patience);
    if (ended && process.exitStatus() == QProcess::NormalExit)
        result.exitCode = process.exitCode();
    if (!ended) {
        process.kill();
        process.waitForFinished();
    }
    result.output = QString::fromUtf8(process.readAllStandardOutput());
    result.errors = QString::fromUtf8(process.readAllStandardError());
    return result;
}

void ProgramHome::start(QProcess &process, const QString &name, const QStringList &script,
                        const QStringList &more, const QStringList &around) const
{
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    startBare(process, arguments(name, script) + more, around);
}

QStringList ProgramHome::logOf(const QString &name) const
{
    return linesOf(path(name + "log.txt"));
}

QStringList linesOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QStringList lines = QString::fromUtf8(file.readAll()).split('\n');
    lines.removeLast(); // after the last line end: empty, or an incomplete line
    return lines;
}

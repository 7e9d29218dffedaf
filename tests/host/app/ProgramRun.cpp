// SPDX-License-Identifier: MIT
#include "tests/host/app/ProgramRun.h"

#include "tests/support/Patience.h"
#include "tests/support/PreviewBytes.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QProcess>

ProgramHome::ProgramHome() : m_environment(QProcessEnvironment::systemEnvironment())
{
    QDir dir(m_dir.path());
    dir.mkdir(QStringLiteral("home"));
    dir.mkdir(QStringLiteral("caches"));
    const QString home = path(QStringLiteral("home"));
    m_environment.insert(QStringLiteral("HOME"), home);
    m_environment.insert(QStringLiteral("XDG_CONFIG_HOME"), home + QStringLiteral("/.config"));
    m_environment.insert(QStringLiteral("XDG_DATA_HOME"), home + QStringLiteral("/.local/share"));
    m_environment.insert(QStringLiteral("XDG_STATE_HOME"), home + QStringLiteral("/.local/state"));
    // The font library keeps its cache there; it is none of the program's.
    m_environment.insert(QStringLiteral("XDG_CACHE_HOME"), path(QStringLiteral("caches")));
    m_environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), path(QStringLiteral("caches")));
    QFile::setPermissions(path(QStringLiteral("caches")),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    m_environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    m_environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
}

void ProgramHome::loseDisplay()
{
    m_environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("none"));
}

QString ProgramHome::path(const QString &name) const
{
    return m_dir.filePath(name);
}

QString ProgramHome::drawing(const QString &name) const
{
    testbytes::DrawingBytes drawing;
    return testbytes::writeFile(path(name), drawing.bytes());
}

QStringList ProgramHome::filesInHome() const
{
    QStringList files;
    QDirIterator walk(path(QStringLiteral("home")), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                      QDirIterator::Subdirectories);
    while (walk.hasNext())
        files << walk.next();
    return files;
}

//! Those that every run gets. Writes the script, if there is one, and removes the log of a former run.
QStringList ProgramHome::arguments(const QString &name, const QStringList &script) const
{
    const QString log = path(name + QStringLiteral("log.txt"));
    QFile::remove(log);
    QStringList all{QStringLiteral("--profile"), profile(), QStringLiteral("--log"), log};
    if (!script.isEmpty()) {
        const QString file = path(name + QStringLiteral("script.txt"));
        testbytes::writeFile(file, (script.join(QLatin1Char('\n')) + QLatin1Char('\n')).toUtf8());
        all << QStringLiteral("--script") << file;
    }
    return all;
}

void ProgramHome::start(QProcess &process, const QStringList &arguments) const
{
    process.setProcessEnvironment(m_environment);
    process.setWorkingDirectory(m_dir.path());
    process.start(QStringLiteral(FXHOST_PROGRAM), arguments);
}

ProgramRun ProgramHome::run(const QStringList &script, const QStringList &more) const
{
    ProgramRun result = runBare(arguments(QString(), script) + more);
    result.log = logOf(QString());
    return result;
}

std::unique_ptr<QProcess> ProgramHome::start(const QString &name, const QStringList &script,
                                             const QStringList &more) const
{
    auto process = std::make_unique<QProcess>();
    process->setProcessChannelMode(QProcess::ForwardedChannels);
    start(*process, arguments(name, script) + more);
    return process;
}

QStringList ProgramHome::logOf(const QString &name) const
{
    return linesOf(path(name + QStringLiteral("log.txt")));
}

ProgramRun ProgramHome::runBare(const QStringList &arguments) const
{
    QProcess process;
    start(process, arguments);
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

QStringList linesOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    lines.removeLast(); // what stands behind the last line end: nothing
    return lines;
}

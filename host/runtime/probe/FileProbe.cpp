// SPDX-License-Identifier: MIT
#include "host/runtime/probe/FileProbe.h"

#include "host/runtime/Paths.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>

#include <algorithm>
#include <vector>

#include <dlfcn.h>

namespace fxhost {

namespace {

constexpr char helperName[] = "fxprobe";
//! What the machine itself may take, being busy, until a file is looked at, in milliseconds; and the helper's
//! start from a disk that was asleep.
constexpr int machinesTime = 5000;

//! Those that could not end. To delete one would wait for it, so nobody ever does.
std::vector<QProcess *> &leftBehind()
{
    static auto *const helpers = new std::vector<QProcess *>;
    return *helpers;
}

//! The helper stands beside this library.
QString helperPath()
{
    Dl_info library;
    if (dladdr(reinterpret_cast<const void *>(&helperPath), &library) == 0)
        return {};
    return QFileInfo(pathFromBytes(library.dli_fname)).absoluteDir().filePath(QLatin1String(helperName));
}

} // namespace

FileProbe::FileProbe(const QString &helper) : m_program(helper.isEmpty() ? helperPath() : helper)
{
    m_clock.start();
}

FileProbe::~FileProbe()
{
    if (!m_helper)
        return;
    m_helper->closeWriteChannel();
    m_helper->kill();
    if (m_helper->waitForFinished(deadline))
        delete m_helper;
    else
        leftBehind().push_back(m_helper);
}

bool FileProbe::isRunning() const
{
    return m_helper && m_helper->state() == QProcess::Running;
}

bool FileProbe::startHelper()
{
    m_asked.clear();
    m_silent.clear();
    if (!m_helper)
        m_helper = new QProcess;
    // One that is left behind must not hold on to what is the host's: a pipe that somebody reads to its end,
    // or a directory.
    m_helper->setStandardErrorFile(QProcess::nullDevice());
    m_helper->setWorkingDirectory(QDir::rootPath());
    m_helper->start(m_program, QStringList());
    // The first start may take its time; whoever waits for files later does not wait for this.
    const QString noFile;
    if (m_helper->waitForStarted(machinesTime)) {
        ask(noFile);
        waitFor({noFile}, machinesTime);
        if (!m_silent.contains(noFile))
            return true;
    }
    m_failedAt = m_clock.elapsed();
    m_problem = QCoreApplication::translate("fxhost::FileProbe", "The program %1 does not work: %2.")
                    .arg(m_program, m_helper->errorString());
    return false;
}

void FileProbe::askFor(const QStringList &paths)
{
    const qint64 now = m_clock.elapsed();
    for (const QString &path : paths) {
        // A path of no file answers by itself; one with a zero byte is none that a system call can be told.
        const bool needsNoFile = path.isEmpty() || path.contains(QChar::Null);
        if (needsNoFile || m_answered.contains(path))
            continue;
        const auto silence = m_silent.constFind(path);
        const bool isNew = silence == m_silent.constEnd();
        if (isNew || (silence->since &&
                      now - silence->askedAt >=
                          qBound<qint64>(firstRepeat, silence->askedAt - *silence->since, lastRepeat)))
            ask(path);
    }
}

void FileProbe::ask(const QString &path)
{
    const int number = ++m_lastNumber;
    m_asked.insert(number, {path, false});
    m_silent[path].askedAt = m_clock.elapsed();
    m_helper->write(QByteArray::number(number) + ' ' + pathBytes(path) + '\0');
}

void FileProbe::hear()
{
    while (m_helper->canReadLine()) {
        const auto question = m_asked.find(m_helper->readLine().trimmed().toInt());
        if (question == m_asked.end())
            continue;
        const auto silence = m_silent.find(question->path);
        if (!question->hasBegun) {
            question->hasBegun = true;
            if (silence != m_silent.end() && !silence->since)
                silence->since = m_clock.elapsed();
            continue;
        }
        if (silence != m_silent.end()) {
            m_silent.erase(silence);
            m_answered.insert(question->path, m_clock.elapsed());
        }
        m_asked.erase(question);
    }
}

void FileProbe::waitFor(const QStringList &paths, int patience)
{
    for (;;) {
        hear();
        qint64 end = 0;
        for (const QString &path : paths) {
            const auto silence = m_silent.constFind(path);
            if (silence != m_silent.constEnd())
                end = std::max(end,
                               silence->since ? *silence->since + patience : silence->askedAt + machinesTime);
        }
        const qint64 left = end - m_clock.elapsed();
        if (left <= 0 || !isRunning())
            return;
        m_helper->waitForReadyRead(int(left));
    }
}

void FileProbe::forgetAnswersBefore(qint64 time)
{
    for (auto it = m_answered.begin(); it != m_answered.end();)
        it = *it > time ? std::next(it) : m_answered.erase(it);
}

QStringList FileProbe::silent(const QStringList &paths, int freshFor, int patience)
{
    const bool hasJustFailed = !m_problem.isEmpty() && m_clock.elapsed() - m_failedAt < lastRepeat;
    if (paths.isEmpty() || hasJustFailed)
        return {};
    m_problem.clear();
    // The helper may have died since it was last heard of, or die of these very paths.
    for (int helpers = 0; helpers < 2; ++helpers) {
        if (!isRunning() && !startHelper())
            return {};
        // What is heard only now may have been said long ago: it ends a silence, and no more.
        const QHash<QString, qint64> answered = m_answered;
        do {
            hear();
        } while (m_helper->waitForReadyRead(0));
        m_answered = answered;
        forgetAnswersBefore(m_clock.elapsed() - freshFor);
        askFor(paths);
        waitFor(paths, patience);
        if (isRunning())
            break;
        m_silent.clear();
    }
    QStringList silentPaths;
    for (const QString &path : paths) {
        if (m_silent.contains(path))
            silentPaths.append(path);
    }
    return silentPaths;
}

} // namespace fxhost

// SPDX-License-Identifier: MIT
#include "host/runtime/probe/FileProbe.h"

#include "host/runtime/Paths.h"

#include <sdkhost/GuiThread.h>

#include <QDir>
#include <QFileInfo>
#include <QProcess>

#include <algorithm>
#include <vector>

#include <dlfcn.h>

namespace fxhost {

namespace {

constexpr char helperName[] = "fxprobe";
//! How long a busy machine may take until a file is accessed, or a sleeping disk until the helper is started.
constexpr std::chrono::milliseconds machineTime{5000};

//! Helpers that could not end. They are never deleted, because that would wait for them.
std::vector<QProcess *> &leftBehind()
{
    static auto *const helpers = new std::vector<QProcess *>;
    return *helpers;
}

//! The helper is in the folder of this library.
QString helperPath()
{
    Dl_info library;
    if (dladdr(reinterpret_cast<const void *>(&helperPath), &library) == 0)
        return {};
    return QFileInfo(pathFromBytes(library.dli_fname)).absoluteDir().filePath(QLatin1String(helperName));
}

} // namespace

FileProbe::FileProbe(const QString &helper) : m_program(helper.isEmpty() ? helperPath() : helper) {}

FileProbe::~FileProbe()
{
    if (!m_helper)
        return;
    m_helper->closeWriteChannel();
    m_helper->kill();
    if (m_helper->waitForFinished(int(ProbeWait().deadline.count())))
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
    m_requests.clear();
    m_waiting.clear();
    if (!m_helper)
        m_helper = new QProcess;
    // A helper that is left running must not keep the host's error pipe open or its working directory in use.
    m_helper->setStandardErrorFile(QProcess::nullDevice());
    m_helper->setWorkingDirectory(QDir::rootPath());
    m_helper->start(m_program, QStringList());
    // The start may take long. Wait for it here, so that the deadlines of files do not include it.
    const QString noFile;
    if (m_helper->waitForStarted(int(machineTime.count()))) {
        request(noFile);
        waitFor({noFile}, machineTime);
        if (!m_waiting.contains(noFile))
            return true;
    }
    m_failedAt = Clock::now();
    m_outcome =
        Outcome::failed(tr("The program %1 does not work: %2.").arg(m_program, m_helper->errorString()));
    return false;
}

void FileProbe::requestMissing(const QStringList &paths)
{
    const Clock::time_point now = Clock::now();
    for (const QString &path : paths) {
        // An empty path is no file, and system calls do not support zero bytes in paths.
        const bool needsNoFile = path.isEmpty() || path.contains(QChar::Null);
        if (needsNoFile || m_responded.contains(path))
            continue;
        const auto waiting = m_waiting.constFind(path);
        const bool isNew = waiting == m_waiting.constEnd();
        if (isNew ||
            (waiting->since &&
             now - waiting->requestedAt >=
                 std::clamp<Clock::duration>(waiting->requestedAt - *waiting->since, firstRetry, lastRetry)))
            request(path);
    }
}

void FileProbe::request(const QString &path)
{
    const int number = ++m_lastNumber;
    m_requests.insert(number, {path, false});
    m_waiting[path].requestedAt = Clock::now();
    m_helper->write(QByteArray::number(number) + ' ' + pathBytes(path) + '\0');
}

void FileProbe::readResponses()
{
    while (m_helper->canReadLine()) {
        const auto request = m_requests.find(m_helper->readLine().trimmed().toInt());
        if (request == m_requests.end())
            continue;
        const auto waiting = m_waiting.find(request->path);
        if (!request->hasBegun) {
            request->hasBegun = true;
            if (waiting != m_waiting.end() && !waiting->since)
                waiting->since = Clock::now();
            continue;
        }
        if (waiting != m_waiting.end()) {
            m_waiting.erase(waiting);
            m_responded.insert(request->path, Clock::now());
        }
        m_requests.erase(request);
    }
}

void FileProbe::waitFor(const QStringList &paths, std::chrono::milliseconds deadline)
{
    for (;;) {
        readResponses();
        Clock::time_point end;
        for (const QString &path : paths) {
            const auto waiting = m_waiting.constFind(path);
            if (waiting != m_waiting.constEnd())
                end = std::max(end, waiting->since ? *waiting->since + deadline
                                                   : waiting->requestedAt + machineTime);
        }
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now());
        if (left.count() <= 0 || !isRunning())
            return;
        m_helper->waitForReadyRead(int(left.count()));
    }
}

void FileProbe::forgetResponsesBefore(Clock::time_point time)
{
    for (auto it = m_responded.begin(); it != m_responded.end();)
        it = *it > time ? std::next(it) : m_responded.erase(it);
}

QStringList FileProbe::unresponsive(const QStringList &paths, const ProbeWait &wait)
{
    SDKHOST_ASSERT_GUI_THREAD();
    const bool hasJustFailed = !m_outcome && Clock::now() - m_failedAt < lastRetry;
    if (paths.isEmpty() || hasJustFailed)
        return {};
    m_outcome = {};
    // The helper may have ended since its last response, or may end now.
    for (int helpers = 0; helpers < 2; ++helpers) {
        if (!isRunning() && !startHelper())
            return {};
        // A response that is read only now may be old. It ends the wait for the file, but is not a new
        // response.
        const QHash<QString, Clock::time_point> responded = m_responded;
        do {
            readResponses();
        } while (m_helper->waitForReadyRead(0));
        m_responded = responded;
        forgetResponsesBefore(Clock::now() - wait.responsesGoodFor);
        requestMissing(paths);
        waitFor(paths, wait.deadline);
        if (isRunning())
            break;
        m_waiting.clear();
    }
    QStringList missing;
    for (const QString &path : paths) {
        if (m_waiting.contains(path))
            missing.append(path);
    }
    return missing;
}

} // namespace fxhost

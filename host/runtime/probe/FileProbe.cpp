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
//! What a request of no file may take on a busy machine, in milliseconds; and the helper's start from a disk
//! that was asleep.
constexpr int patience = 5000;

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
    m_unanswered.clear();
    if (!m_helper)
        m_helper = new QProcess;
    m_helper->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_helper->start(m_program, QStringList());
    // The first start may take its time; whoever waits for files later does not wait for this.
    const int hello = m_helper->waitForStarted(patience) ? ask(QString()) : 0;
    if (hello && waitUntil([&] { return !m_asked.contains(hello); }, patience))
        return true;
    m_problem = QCoreApplication::translate("fxhost::FileProbe", "The program %1 does not work: %2.")
                    .arg(m_program, m_helper->errorString());
    return false;
}

int FileProbe::ask(const QString &path)
{
    const int number = ++m_lastNumber;
    m_asked.insert(number, path);
    if (!path.isEmpty())
        m_unanswered.insert(path, number);
    m_helper->write(QByteArray::number(number) + ' ' + pathBytes(path) + '\0');
    return number;
}

void FileProbe::hear()
{
    while (m_helper && m_helper->canReadLine()) {
        const QString path = m_asked.take(m_helper->readLine().trimmed().toInt());
        if (m_unanswered.remove(path) > 0)
            m_answered.insert(path, m_clock.elapsed());
    }
}

//! \return whether the condition holds after so many milliseconds at the latest
template<class Condition>
bool FileProbe::waitUntil(Condition condition, int longest)
{
    QElapsedTimer waiting;
    waiting.start();
    for (hear(); !condition(); hear()) {
        const auto left = int(longest - waiting.elapsed());
        if (left <= 0 || !isRunning())
            return false;
        m_helper->waitForReadyRead(left);
    }
    return true;
}

QStringList FileProbe::silent(const QStringList &paths, int freshFor)
{
    if (paths.isEmpty() || !m_problem.isEmpty())
        return {};
    if (!isRunning() && !startHelper())
        return {};
    do {
        hear(); // what has been answered since
    } while (m_helper->waitForReadyRead(0));

    const qint64 stale = m_clock.elapsed() - freshFor;
    for (auto it = m_answered.begin(); it != m_answered.end();)
        it = *it > stale ? std::next(it) : m_answered.erase(it);
    QStringList asked;
    for (const QString &path : paths) {
        // A path of no file answers by itself; one with a zero byte is none that a system call can be told.
        const bool needsNoFile = path.isEmpty() || path.contains(QChar::Null);
        if (needsNoFile || m_unanswered.contains(path) || m_answered.contains(path))
            continue;
        ask(path);
        asked.append(path);
    }
    const auto isAnswered = [&] {
        return std::none_of(asked.begin(), asked.end(),
                            [&](const QString &path) { return m_unanswered.contains(path); });
    };
    if (!asked.isEmpty()) {
        // The deadline is the files'. What the machine itself needs, being busy, does not count.
        const int nothing = ask(QString());
        waitUntil([&] { return isAnswered() || !m_asked.contains(nothing); }, patience);
        waitUntil(isAnswered, deadline);
    }

    QStringList silentPaths;
    for (const QString &path : paths) {
        if (m_unanswered.contains(path))
            silentPaths.append(path);
    }
    return silentPaths;
}

} // namespace fxhost

// SPDX-License-Identifier: MIT
#include "host/runtime/recent/ReachableRecentFiles.h"

#include "host/runtime/interface/GuiThread.h"
#include "host/runtime/probe/FileProbe.h"
#include "host/runtime/recent/RecentFiles.h"

#include <utility>

namespace fxhost {

namespace {

//! Modules ask for the list several times in a row, and each time the same is true.
constexpr std::chrono::milliseconds responsesGoodFor{200};

} // namespace

ReachableRecentFiles::ReachableRecentFiles(const RecentFiles &recentFiles, FileProbe &probe,
                                           MessageSink report)
    : m_recentFiles(recentFiles), m_probe(probe), m_report(std::move(report))
{
}

void ReachableRecentFiles::GetPaths(std::vector<CFxString> &paths) const
{
    FXHOST_ASSERT_GUI_THREAD();
    QStringList listed = m_recentFiles.paths();
    ProbeWait wait;
    wait.responsesGoodFor = responsesGoodFor;
    const QStringList unresponsive = m_probe.unresponsive(listed, wait);
    for (const QString &path : unresponsive)
        listed.removeOne(path);
    paths.assign(listed.begin(), listed.end());
    // Last: showing the warnings may run events, which may lead here again.
    warnOf(unresponsive);
    warnOf(m_probe.problem());
}

void ReachableRecentFiles::warnOf(const QStringList &unresponsive) const
{
    QStringList news;
    for (const QString &path : unresponsive) {
        if (!m_reported.contains(path))
            news.append(path);
    }
    m_reported = QSet<QString>(unresponsive.begin(), unresponsive.end());
    if (!news.isEmpty()) {
        m_report(tr("Not shown as recent while the disk or server does not respond: %1")
                     .arg(news.join(QLatin1String(", "))));
    }
}

void ReachableRecentFiles::warnOf(const QString &problem) const
{
    if (problem == m_reportedProblem)
        return;
    m_reportedProblem = problem;
    if (problem.isEmpty())
        return;
    m_report(problem + QLatin1Char(' ') +
             tr("Recent drawings on a disk or server that does not respond may hold up the program."));
}

} // namespace fxhost

// SPDX-License-Identifier: MIT
#include "host/runtime/recent/ReachableRecentFiles.h"

#include "host/runtime/probe/FileProbe.h"
#include "host/runtime/recent/RecentFiles.h"

#include <sdkhost/GuiThread.h>

#include <utility>

namespace fxhost {

namespace {

//! Modules query the list several times in a row.
constexpr std::chrono::milliseconds responsesGoodFor{200};

} // namespace

ReachableRecentFiles::ReachableRecentFiles(const RecentFiles &recentFiles, FileProbe &probe,
                                           MessageSink report)
    : m_recentFiles(recentFiles), m_probe(probe), m_report(std::move(report))
{
}

void ReachableRecentFiles::GetPaths(std::vector<CFxString> &paths) const
{
    SDKHOST_ASSERT_GUI_THREAD();
    QStringList listed = m_recentFiles.paths();
    ProbeWait wait;
    wait.responsesGoodFor = responsesGoodFor;
    const QStringList unresponsive = m_probe.unresponsive(listed, wait);
    for (const QString &path : unresponsive)
        listed.removeOne(path);
    paths.assign(listed.begin(), listed.end());
    // Last, because showing a warning may run events, in which this function may be called again.
    warnOf(unresponsive);
    warnOf(m_probe.outcome());
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
        m_report(tr("Not shown as recent until the disk or server responds: %1")
                     .arg(news.join(QLatin1String(", "))));
    }
}

void ReachableRecentFiles::warnOf(const Outcome &probing) const
{
    const QString former = std::exchange(m_reportedReason, probing.reason());
    if (probing || m_reportedReason == former)
        return;
    m_report(m_reportedReason + QLatin1Char(' ') +
             tr("Recent drawings on a disk or server that does not respond may block the program."));
}

} // namespace fxhost

// SPDX-License-Identifier: MIT
#include "host/runtime/recent/AnsweringRecentFiles.h"

#include "host/runtime/probe/FileProbe.h"
#include "host/runtime/recent/RecentFiles.h"

#include <utility>

namespace fxhost {

namespace {

//! Milliseconds. Modules ask for the list several times in a row, and each time the same is true.
constexpr int freshFor = 200;

} // namespace

AnsweringRecentFiles::AnsweringRecentFiles(const RecentFiles &recentFiles, FileProbe &probe,
                                           MessageSink report)
    : m_recentFiles(recentFiles), m_probe(probe), m_report(std::move(report))
{
}

void AnsweringRecentFiles::GetPaths(std::vector<CFxString> &paths) const
{
    QStringList listed = m_recentFiles.paths();
    const QStringList silent = m_probe.silent(listed, freshFor);
    for (const QString &path : silent)
        listed.removeOne(path);
    paths.assign(listed.begin(), listed.end());
    // Last: whoever shows it may run events, and ask again.
    tellOf(silent);
    tellOf(m_probe.problem());
}

void AnsweringRecentFiles::tellOf(const QStringList &silent) const
{
    QStringList news;
    for (const QString &path : silent) {
        if (!m_told.contains(path))
            news.append(path);
    }
    m_told = QSet<QString>(silent.begin(), silent.end());
    if (!news.isEmpty()) {
        m_report(tr("Not shown as recent while the disk or server does not answer: %1")
                     .arg(news.join(QLatin1String(", "))));
    }
}

void AnsweringRecentFiles::tellOf(const QString &problem) const
{
    if (problem == m_toldProblem)
        return;
    m_toldProblem = problem;
    if (problem.isEmpty())
        return;
    m_report(problem + QLatin1Char(' ') +
             tr("Recent drawings on a disk or server that does not answer may hold up the program."));
}

} // namespace fxhost

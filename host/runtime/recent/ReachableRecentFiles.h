// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"
#include "host/runtime/MessageSink.h"

#include <CFxRecentFileList.h>

#include <QCoreApplication>
#include <QSet>
#include <QString>

namespace fxhost {

class FileProbe;
class RecentFiles;

//! The recent documents as modules get them: without unresponsive files, since a module looks at each file,
//! on the GUI thread too. Those stay in the list, and are there again once they respond. GUI thread.
class FXHOST_API ReachableRecentFiles : public CFxRecentFileList
{
    Q_DECLARE_TR_FUNCTIONS(fxhost::ReachableRecentFiles)
public:
    //! \param recentFiles and \param probe must outlive this
    //! \param report gets a warning once for each time that a file becomes unresponsive, and once if
    //! unresponsive files cannot be left out
    ReachableRecentFiles(const RecentFiles &recentFiles, FileProbe &probe, MessageSink report);

    void GetPaths(std::vector<CFxString> &paths) const override;

private:
    void warnOf(const QStringList &unresponsive) const;
    void warnOf(const QString &problem) const;

    const RecentFiles &m_recentFiles;
    FileProbe &m_probe;
    MessageSink m_report;
    mutable QSet<QString> m_reported;
    mutable QString m_reportedProblem;
};

} // namespace fxhost

// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"

#include <CFxRecentFileList.h>
#include <sdkhost/MessageSink.h>
#include <sdkhost/Outcome.h>

#include <QCoreApplication>
#include <QSet>
#include <QString>

namespace fxhost {

class FileProbe;
class RecentFiles;

//! The recent documents for modules: without unresponsive files, because a module accesses each file, also on
//! the GUI thread. Those files stay in the stored list, and are returned again once they respond. GUI thread.
class FXHOST_API ReachableRecentFiles : public CFxRecentFileList
{
    Q_DECLARE_TR_FUNCTIONS(fxhost::ReachableRecentFiles)
public:
    //! \param recentFiles, probe must outlive this
    //! \param report receives a warning whenever a file becomes unresponsive, and once if unresponsive files
    //! cannot be left out
    ReachableRecentFiles(const RecentFiles &recentFiles, FileProbe &probe, MessageSink report);

    void GetPaths(std::vector<CFxString> &paths) const override;

private:
    void warnOf(const QStringList &unresponsive) const;
    void warnOf(const Outcome &probing) const;

    const RecentFiles &m_recentFiles;
    FileProbe &m_probe;
    MessageSink m_report;
    mutable QSet<QString> m_reported;
    mutable QString m_reportedReason;
};

} // namespace fxhost

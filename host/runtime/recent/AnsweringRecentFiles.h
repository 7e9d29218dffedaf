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

//! The recent documents as modules get them: without those whose files do not answer, since a module looks at
//! each file, on the GUI thread too. They stay listed, and are there again once they answer. GUI thread.
class FXHOST_API AnsweringRecentFiles : public CFxRecentFileList
{
    Q_DECLARE_TR_FUNCTIONS(fxhost::AnsweringRecentFiles)
public:
    //! \param recentFiles and \param probe must outlive this
    //! \param report told of what is left out, once for each time that it falls silent, and that nothing can
    //! be left out, if so
    AnsweringRecentFiles(const RecentFiles &recentFiles, FileProbe &probe, MessageSink report);

    void GetPaths(std::vector<CFxString> &paths) const override;

private:
    void tellOf(const QStringList &silent) const;
    void tellOf(const QString &problem) const;

    const RecentFiles &m_recentFiles;
    FileProbe &m_probe;
    MessageSink m_report;
    mutable QSet<QString> m_told;
    mutable QString m_toldProblem;
};

} // namespace fxhost

// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"

#include <sdkhost/Outcome.h>

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace fxhost {

//! The file that stores the recent documents: a header line, then a path per line in UTF-8. Control
//! characters, the percent sign and bytes that are not UTF-8 are encoded as %XX, so that every path can be
//! stored. Several programs can use the file at the same time: a change is applied to its current content,
//! while a lock file next to it is locked, and readers get either the former list or the new one. GUI thread.
class FXHOST_API RecentFileStore
{
    Q_DECLARE_TR_FUNCTIONS(fxhost::RecentFileStore)
public:
    //! Returns the changed list.
    using Change = std::function<QStringList(const QStringList &)>;

    struct Stored
    {
        QStringList paths;
        //! Whether the file was read or written; the reason of a failure is for the user.
        Outcome outcome;
    };

    //! \param file full path; need not exist
    explicit RecentFileStore(const QString &file);

    //! Reads the file. A damaged file is renamed, and counts as empty; if it cannot be renamed, update() does
    //! not change it. A file that cannot be read is left unchanged. Also removes the temporary files of
    //! writers that were killed.
    Stored load();

    //! Applies a change to the list in the file, and replaces the file as a whole. A change that cannot be
    //! written is kept, and applied again to the file's content before the next change.
    //! \param known the last known list, which is used if the file does not exist or is damaged
    //! \return the changed list, even if it could not be written
    Stored update(const QStringList &known, const Change &change);
    //! True if no change is kept that could not be written.
    bool isAllWritten() const { return m_unwritten.empty(); }

private:
    class Reading;

    Reading read() const;
    Stored keepForLater(const QStringList &known, const Change &change, const QString &problem);
    //! \return always a failure, for the user: the file's new name, or that it could not be renamed
    Outcome setDamagedAside();
    Outcome write(const QStringList &paths) const;

    QString m_file;
    bool m_mayWrite = true;
    std::vector<Change> m_unwritten;
};

} // namespace fxhost

// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"
#include "host/runtime/recent/RecentEntry.h"

#include <sdkhost/Outcome.h>

#include <QCoreApplication>
#include <QString>

#include <functional>
#include <vector>

namespace fxhost {

//! The file that stores the recent documents: a header line, then a line per document, for example
//!     kept 2026-11-22T14:12:09Z /home/me/plan.dwg
//! A hyphen stands for a document that is not kept, or for an unknown time. Paths are UTF-8; control
//! characters, the percent sign and bytes that are not UTF-8 are encoded as %XX, so that every path can be
//! stored. Files of version 1, which have only paths, are read, too, and replaced with the next change; a
//! program that knows only version 1 renames a newer file as damaged. Several programs can use the file at
//! the same time: a change is applied to its current content, while a lock file next to it is locked, and
//! readers get either the former list or the new one. GUI thread.
class FXHOST_API RecentFileStore
{
    Q_DECLARE_TR_FUNCTIONS(fxhost::RecentFileStore)
public:
    //! Returns the changed list.
    using Change = std::function<RecentEntries(const RecentEntries &)>;

    struct Stored
    {
        RecentEntries entries;
        //! Whether the file was read or written; the reason of a failure is for the user.
        Outcome outcome;
    };

    //! \param file full path; need not exist
    //! \param formerFile where former versions stored the list; load() moves it. Empty for none
    explicit RecentFileStore(const QString &file, const QString &formerFile = {});

    //! Reads the file. A damaged file is renamed, and counts as empty; if it cannot be renamed, update() does
    //! not change it. A file that cannot be read is left unchanged. Also removes the temporary files of
    //! writers that were killed, and moves the entries of the former file to the end of the list. A running
    //! program that still uses the former file creates it again, and load() moves it again.
    Stored load();

    //! Applies a change to the list in the file, and replaces the file as a whole. A change that cannot be
    //! written is kept, and applied again to the file's content before the next change.
    //! \param known the last known list, which is used if the file does not exist or is damaged
    //! \return the changed list, even if it could not be written
    Stored update(const RecentEntries &known, const Change &change);
    //! True if no change is kept that could not be written.
    bool isAllWritten() const { return m_unwritten.empty(); }

private:
    class Reading;

    static Reading read(const QString &path);
    Stored keepForLater(const RecentEntries &known, const Change &change, const QString &problem);
    void takeOverFormerFile(Stored &stored) const;
    //! \return always a failure, for the user: the file's new name, or that it could not be renamed
    Outcome setDamagedAside();
    Outcome write(const RecentEntries &entries) const;

    QString m_file;
    QString m_formerFile;
    bool m_mayWrite = true;
    std::vector<Change> m_unwritten;
};

} // namespace fxhost

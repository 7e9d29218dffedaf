// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"
#include "host/runtime/Outcome.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace fxhost {

//! The file that keeps the recent documents: a header line, then one path a line in UTF-8, in which control
//! characters, the percent sign and bytes that are not UTF-8 are written as %XX. Every path fits, and the
//! file can be read by people. Several programs may use it at the same time: a change is made to what the
//! file holds by then, under a lock beside it, and readers find the former list or the new one. GUI thread.
class FXHOST_API RecentFileStore
{
    Q_DECLARE_TR_FUNCTIONS(fxhost::RecentFileStore)
public:
    //! What a list becomes.
    using Change = std::function<QStringList(const QStringList &)>;

    struct Stored
    {
        QStringList paths;
        //! Whether the file was read or written, or else what the user should know.
        Outcome outcome;
    };

    //! \param file full path; need not exist
    explicit RecentFileStore(const QString &file);

    //! Reads the file. One that is damaged is set aside under another name and counts as empty; where even
    //! that fails, update() leaves it alone. One that cannot be read just now stays where it is. Tidies up
    //! after writers that were killed.
    Stored load();

    //! Makes a change to the list in the file, and writes it whole or not at all. A change that cannot be
    //! written is kept, and made again to what the file holds when the next one comes.
    //! \param known the list as it was last, which is used where the file has none
    //! \return the changed list, also when it could not be written
    Stored update(const QStringList &known, const Change &change);
    //! Whether no change is left that could not be written.
    bool isAllWritten() const { return m_unwritten.empty(); }

private:
    class Reading;

    Reading read() const;
    Stored keepForLater(const QStringList &known, const Change &change, const QString &problem);
    //! \return a failure, with its new name, or why it is left alone
    Outcome setDamagedAside();
    Outcome write(const QStringList &paths) const;

    QString m_file;
    bool m_mayWrite = true;
    std::vector<Change> m_unwritten;
};

} // namespace fxhost

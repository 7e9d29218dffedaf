// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace fxhost {

//! The file that keeps the recent documents: a header line, then one path a line in UTF-8, in which control
//! characters, the percent sign and bytes that are no UTF-8 are written as %XX. Every path fits, and a person
//! can read it. Several programs may use it at a time: a change is made to what the file holds by then, under
//! a lock beside it, and whoever reads it finds the former list or the new one. GUI thread.
class FXHOST_API RecentFileStore
{
    Q_DECLARE_TR_FUNCTIONS(fxhost::RecentFileStore)
public:
    //! What a list becomes.
    using Change = std::function<QStringList(const QStringList &)>;

    struct Kept
    {
        QStringList paths;
        //! What the person should know; empty when all is well.
        QString problem;
    };

    //! \param file full path; need not exist
    explicit RecentFileStore(const QString &file);

    //! Reads the file. One that is damaged is set aside under another name and counts as empty; where even
    //! that fails, update() leaves it alone. One that cannot be read just now stays where it is. Tidies up
    //! after writers that were killed.
    Kept load();

    //! Makes a change to the list in the file, and writes it whole or not at all. A change that cannot be
    //! written is kept, and made again to what the file holds when the next one comes.
    //! \param known what the list was at last; stands in where the file tells nothing
    //! \return what came of the change, also when it could not be written
    Kept update(const QStringList &known, const Change &change);
    //! Whether no change is left that could not be written.
    bool isAllWritten() const { return m_unwritten.empty(); }

private:
    class Reading;

    Reading read() const;
    Kept keepForLater(const QStringList &known, const Change &change, const QString &problem);
    //! \return where it is now, or why it is left alone
    QString setDamagedAside();
    QString write(const QStringList &paths) const;

    QString m_file;
    bool m_mayWrite = true;
    std::vector<Change> m_unwritten;
};

} // namespace fxhost

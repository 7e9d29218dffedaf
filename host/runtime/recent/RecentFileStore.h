// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

namespace fxhost {

//! The file that keeps the recent documents: a header line, then one path a line in UTF-8, in which control
//! characters and the percent sign are written as %XX. Every path fits, and a person can read it. GUI thread.
class FXHOST_API RecentFileStore
{
    Q_DECLARE_TR_FUNCTIONS(fxhost::RecentFileStore)
public:
    struct Loaded
    {
        QStringList paths;
        //! What the person should know; empty when all is well or there is no file yet.
        QString problem;
    };

    //! \param file full path; need not exist
    explicit RecentFileStore(const QString &file);

    //! Reads the file. One that is damaged or cannot be read is set aside under another name and counts as
    //! empty; where even that fails, save() leaves it alone.
    Loaded load();

    //! Writes the file whole or not at all.
    //! \param paths full paths
    //! \return why it could not be written; empty when it was
    QString save(const QStringList &paths) const;

private:
    QString m_file;
    bool m_mayWrite = true;
};

} // namespace fxhost

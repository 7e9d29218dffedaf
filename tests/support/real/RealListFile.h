// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/recent/RecentFileStore.h"

#include <QDir>
#include <QTemporaryDir>

//! The change that moves or adds path to the front of a list of at most so many.
inline fxhost::RecentFileStore::Change adding(const QString &path, int most = 1000)
{
    return [path, most](const fxhost::RecentEntries &listed) {
        return fxhost::fitted(fxhost::entriesOf({path}) + listed, most);
    };
}

inline fxhost::RecentFileStore::Change replacing(const fxhost::RecentEntries &entries)
{
    return [entries](const fxhost::RecentEntries &) { return entries; };
}

inline fxhost::RecentFileStore::Change replacing(const QStringList &paths)
{
    return replacing(fxhost::entriesOf(paths));
}

inline fxhost::RecentEntries unchanged(const fxhost::RecentEntries &listed)
{
    return listed;
}

//! A list in a folder of its own, with a store.
class RealListFile
{
    QTemporaryDir m_folder;

public:
    explicit RealListFile(const QString &name = "recent.txt") : path(m_folder.filePath(name)) {}

    const QString path;
    fxhost::RecentFileStore store{path};

    QString beside(const QString &name) const { return m_folder.filePath(name); }
    QStringList files() const { return QDir(m_folder.path()).entryList(QDir::Files); }
    QString lockFile() const { return path + ".lock"; }
    //! \return what is reported to the user
    QString save(const QStringList &paths) { return store.update({}, replacing(paths)).outcome.reason(); }
    //! What another program does.
    QStringList listed() const { return fxhost::pathsOf(fxhost::RecentFileStore(path).load().entries); }
    void changeElsewhere(const fxhost::RecentFileStore::Change &change) const
    {
        fxhost::RecentFileStore(path).update({}, change);
    }
};

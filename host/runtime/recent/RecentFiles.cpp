// SPDX-License-Identifier: MIT
#include "host/runtime/recent/RecentFiles.h"

#include <utility>

namespace fxhost {

RecentFiles::RecentFiles(QObject *parent) : QObject(parent) {}

void RecentFiles::setKeeper(Keeper keeper)
{
    m_keeper = std::move(keeper);
}

void RecentFiles::refresh()
{
    make([](const QStringList &listed) { return listed; });
}

void RecentFiles::setPaths(const QStringList &paths)
{
    make([paths](const QStringList &) { return paths; });
}

void RecentFiles::add(const QString &path)
{
    if (!path.isEmpty())
        make([path](const QStringList &listed) { return QStringList(path) + listed; });
}

bool RecentFiles::remove(const QString &path)
{
    refresh(); // it may be another who has listed it
    const bool wasListed = m_paths.contains(path);
    if (wasListed) {
        make([path](QStringList listed) {
            listed.removeOne(path);
            return listed;
        });
    }
    return wasListed;
}

void RecentFiles::clear()
{
    setPaths({});
}

bool RecentFiles::setMaximum(int maximum)
{
    if (!isAllowedMaximum(maximum))
        return false;
    if (maximum != m_maximum) {
        m_maximum = maximum;
        emit maximumChanged(maximum); // first: it may be kept at the same place as the list
        refresh();
    }
    return true;
}

void RecentFiles::make(const Change &change)
{
    const Change orderly = [this, change](const QStringList &listed) {
        QStringList kept = change(listed);
        kept.removeAll(QString());
        kept.removeDuplicates(); // the first of several stays
        return kept.mid(0, m_maximum);
    };
    const QStringList paths = m_keeper ? m_keeper(m_paths, orderly) : orderly(m_paths);
    if (paths == m_paths)
        return;
    m_paths = paths;
    emit changed();
}

} // namespace fxhost

// SPDX-License-Identifier: MIT
#include "host/runtime/recent/RecentFiles.h"

#include <utility>

namespace fxhost {

RecentFiles::RecentFiles(QObject *parent) : QObject(parent) {}

void RecentFiles::setKeeper(Keeper keeper)
{
    m_keeper = std::move(keeper);
}

void RecentFiles::setPaths(const QStringList &paths)
{
    make([&](const QStringList &) { return paths; });
}

void RecentFiles::add(const QString &path)
{
    if (!path.isEmpty())
        make([&](const QStringList &listed) { return QStringList(path) + listed; });
}

bool RecentFiles::remove(const QString &path)
{
    bool wasListed = false;
    make([&](QStringList listed) {
        wasListed = listed.removeOne(path);
        return listed;
    });
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
        make([](const QStringList &listed) { return listed; });
        emit maximumChanged(maximum);
    }
    return true;
}

void RecentFiles::make(const Change &change)
{
    const Change orderly = [&](const QStringList &listed) {
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

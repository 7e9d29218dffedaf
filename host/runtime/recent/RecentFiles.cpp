// SPDX-License-Identifier: MIT
#include "host/runtime/recent/RecentFiles.h"

namespace fxhost {

RecentFiles::RecentFiles(QObject *parent) : QObject(parent) {}

void RecentFiles::GetPaths(std::vector<CFxString> &paths) const
{
    paths.assign(m_paths.begin(), m_paths.end());
}

void RecentFiles::setPaths(const QStringList &paths)
{
    replace(paths);
}

void RecentFiles::add(const QString &path)
{
    replace(QStringList(path) + m_paths);
}

bool RecentFiles::remove(const QString &path)
{
    QStringList paths = m_paths;
    const bool wasListed = paths.removeOne(path);
    replace(paths);
    return wasListed;
}

void RecentFiles::clear()
{
    replace({});
}

bool RecentFiles::setMaximum(int maximum)
{
    if (!isAllowedMaximum(maximum))
        return false;
    if (maximum != m_maximum) {
        m_maximum = maximum;
        replace(m_paths);
        emit maximumChanged(maximum);
    }
    return true;
}

void RecentFiles::replace(const QStringList &paths)
{
    QStringList kept = paths;
    kept.removeAll(QString());
    kept.removeDuplicates(); // the first of several stays
    kept = kept.mid(0, m_maximum);
    if (kept == m_paths)
        return;
    m_paths = kept;
    emit changed();
}

} // namespace fxhost

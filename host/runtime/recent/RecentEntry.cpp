// SPDX-License-Identifier: MIT
#include "host/runtime/recent/RecentEntry.h"

#include <QSet>

namespace fxhost {

RecentEntries entriesOf(const QStringList &paths)
{
    RecentEntries entries;
    for (const QString &path : paths)
        entries.append({path, false, {}});
    return entries;
}

QStringList pathsOf(const RecentEntries &entries)
{
    QStringList paths;
    for (const RecentEntry &entry : entries)
        paths.append(entry.path);
    return paths;
}

int indexOf(const RecentEntries &entries, const QString &path)
{
    for (int i = 0; i < entries.size(); ++i) {
        if (entries.at(i).path == path)
            return i;
    }
    return -1;
}

RecentEntries fitted(const RecentEntries &entries, int mostOthers)
{
    RecentEntries kept;
    RecentEntries others;
    QSet<QString> seen{QString()};
    for (const RecentEntry &entry : entries) {
        if (seen.contains(entry.path))
            continue;
        seen.insert(entry.path);
        (entry.isKept ? kept : others).append(entry);
    }
    return kept.mid(0, mostKept) + others.mid(0, mostOthers);
}

} // namespace fxhost

// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QVector>

namespace fxhost {

//! A drawing in the list of recent documents.
struct RecentEntry
{
    QString path;         //!< full path
    bool isKept = false;  //!< stays in the list until the user removes it
    QDateTime lastOpened; //!< UTC, in whole seconds; invalid if it was never recorded
};
using RecentEntries = QVector<RecentEntry>;

//! A list has at most so many kept entries, so that its file has an end.
constexpr int mostKept = 1000;

inline bool operator==(const RecentEntry &a, const RecentEntry &b)
{
    return a.path == b.path && a.isKept == b.isKept && a.lastOpened == b.lastOpened;
}

//! Entries that are not kept and have no time.
FXHOST_API RecentEntries entriesOf(const QStringList &paths);
FXHOST_API QStringList pathsOf(const RecentEntries &entries);
//! The index of the first entry with this path; -1 if there is none. Paths are compared exactly.
FXHOST_API int indexOf(const RecentEntries &entries, const QString &path);

//! The entries as the list has them: without empty paths and duplicates, the kept ones first, at most
//! mostKept, and of the others at most so many. Otherwise in their order.
FXHOST_API RecentEntries fitted(const RecentEntries &entries, int mostOthers);

} // namespace fxhost

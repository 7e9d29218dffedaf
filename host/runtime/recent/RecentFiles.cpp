// SPDX-License-Identifier: MIT
#include "host/runtime/recent/RecentFiles.h"

#include "host/runtime/HostSettings.h"
#include "host/runtime/recent/RecentFileStore.h"

#include <sdkhost/GuiThread.h>

#include <algorithm>
#include <utility>

namespace fxhost {

namespace {

//! Takes the entry with this path out of the list; a new one if there is none.
RecentEntry taken(RecentEntries &entries, const QString &path)
{
    const int index = indexOf(entries, path);
    return index < 0 ? RecentEntry{path, false, {}} : entries.takeAt(index);
}

bool isKept(const RecentEntry &entry)
{
    return entry.isKept;
}

//! Where the entry before.at(index) is inserted again: after the nearest of those before it that is listed,
//! otherwise at the top, but after those that were opened since.
int placeOf(const RecentEntries &before, int index, const RecentEntries &after, const RecentEntries &listed)
{
    for (int above = index - 1; above >= 0; --above) {
        const int place = indexOf(listed, before.at(above).path);
        if (place >= 0)
            return place + 1;
    }
    const auto isKnown = [&](const RecentEntry &entry) {
        return indexOf(before, entry.path) >= 0 || indexOf(after, entry.path) >= 0;
    };
    return int(std::find_if(listed.begin(), listed.end(), isKnown) - listed.begin());
}

} // namespace

RecentFiles::RecentFiles(RecentFileStore &store, HostSettings &settings, MessageSink report, QObject *parent)
    : QObject(parent), m_store(store), m_settings(settings), m_report(std::move(report))
{
    const RecentFileStore::Stored stored = m_store.load();
    m_entries = normalized(stored.entries);
    if (!stored.outcome)
        m_report(stored.outcome.reason());
}

void RecentFiles::refresh()
{
    apply([](RecentEntries listed) { return listed; });
}

void RecentFiles::writeRest()
{
    if (!m_store.isAllWritten())
        refresh();
}

void RecentFiles::setPaths(const QStringList &paths)
{
    apply([paths](const RecentEntries &) { return entriesOf(paths); });
}

void RecentFiles::add(const QString &path, const QDateTime &opened)
{
    if (path.isEmpty())
        return;
    // Stored in whole seconds, so that the list in memory is the same.
    const QDateTime time =
        opened.isValid() ? QDateTime::fromSecsSinceEpoch(opened.toSecsSinceEpoch(), Qt::UTC) : QDateTime();
    apply([path, time](RecentEntries listed) {
        const int index = indexOf(listed, path);
        const bool staysThere = index >= 0 && listed.at(index).isKept;
        RecentEntry entry = taken(listed, path);
        if (time.isValid())
            entry.lastOpened = time;
        listed.insert(staysThere ? index : 0, entry);
        return listed;
    });
}

int RecentFiles::applyRemoval(const std::function<bool(const RecentEntry &)> &isRemoved)
{
    refresh(); // another program may have added some
    const int before = m_entries.size();
    apply([isRemoved](RecentEntries listed) {
        listed.erase(std::remove_if(listed.begin(), listed.end(), isRemoved), listed.end());
        return listed;
    });
    return before - m_entries.size();
}

int RecentFiles::remove(const QStringList &paths)
{
    return applyRemoval([paths](const RecentEntry &entry) { return paths.contains(entry.path); });
}

int RecentFiles::clear()
{
    return applyRemoval([](const RecentEntry &entry) { return !entry.isKept; });
}

bool RecentFiles::setKept(const QStringList &paths, bool isKeptThen)
{
    apply([paths, isKeptThen](RecentEntries listed) {
        for (const QString &path : paths) {
            const int index = indexOf(listed, path);
            const bool isRoom = std::count_if(listed.begin(), listed.end(), isKept) < mostKept;
            if (index >= 0 && (isRoom || !isKeptThen))
                listed[index].isKept = isKeptThen;
            else if (isKeptThen && isRoom)
                listed.append({path, true, {}});
        }
        return listed;
    });
    return !isKeptThen || std::all_of(paths.begin(), paths.end(), [this](const QString &path) {
        const int index = indexOf(m_entries, path);
        return index >= 0 && m_entries.at(index).isKept;
    });
}

void RecentFiles::revert(const RecentEntries &before, const RecentEntries &after)
{
    apply([before, after](RecentEntries listed) {
        for (int i = 0; i < before.size(); ++i) {
            const RecentEntry &former = before.at(i);
            if (after.contains(former))
                continue;
            const int index = indexOf(listed, former.path);
            const bool isListed = index >= 0;
            const bool wasRemoved = indexOf(after, former.path) < 0;
            if (wasRemoved && isListed) // opened since
                listed[index].isKept = former.isKept;
            if (wasRemoved == isListed) // or removed since
                continue;
            RecentEntry entry = wasRemoved ? former : listed.takeAt(index);
            entry.isKept = former.isKept;
            listed.insert(placeOf(before, i, after, listed), entry);
        }
        return listed;
    });
}

int RecentFiles::maximum() const
{
    return m_settings.recentMaximum();
}

bool RecentFiles::setMaximum(int maximum)
{
    if (!isAllowedMaximum(maximum))
        return false;
    if (maximum != this->maximum()) {
        m_settings.setRecentMaximum(maximum);
        refresh();
        emit changed();
    }
    return true;
}

RecentEntries RecentFiles::normalized(const RecentEntries &entries) const
{
    return fitted(entries, maximum());
}

void RecentFiles::apply(const Change &change)
{
    SDKHOST_ASSERT_GUI_THREAD();
    // The store may apply the change again later, to a list that another program has stored meanwhile.
    const RecentFileStore::Stored stored = m_store.update(
        m_entries, [this, change](const RecentEntries &listed) { return normalized(change(listed)); });
    const bool isChanged = std::exchange(m_entries, stored.entries) != stored.entries;
    const QString former = std::exchange(m_reported, stored.outcome.reason());
    if (isChanged)
        emit changed();
    if (!stored.outcome && m_reported != former) // not again with each drawing
        m_report(m_reported);
}

} // namespace fxhost

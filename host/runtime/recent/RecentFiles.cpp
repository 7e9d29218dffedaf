// SPDX-License-Identifier: MIT
#include "host/runtime/recent/RecentFiles.h"

#include "host/runtime/HostSettings.h"
#include "host/runtime/recent/RecentFileStore.h"

#include <sdkhost/GuiThread.h>

#include <utility>

namespace fxhost {

RecentFiles::RecentFiles(RecentFileStore &store, HostSettings &settings, MessageSink report)
    : m_store(store), m_settings(settings), m_report(std::move(report))
{
    const RecentFileStore::Stored stored = m_store.load();
    m_paths = normalized(stored.paths);
    if (!stored.outcome)
        m_report(stored.outcome.reason());
}

void RecentFiles::refresh()
{
    apply([](const QStringList &listed) { return listed; });
}

void RecentFiles::writeRest()
{
    if (!m_store.isAllWritten())
        refresh();
}

void RecentFiles::setPaths(const QStringList &paths)
{
    apply([paths](const QStringList &) { return paths; });
}

void RecentFiles::add(const QString &path)
{
    if (!path.isEmpty())
        apply([path](const QStringList &listed) { return QStringList(path) + listed; });
}

bool RecentFiles::remove(const QString &path)
{
    refresh(); // another program may have added it
    const bool wasListed = m_paths.contains(path);
    if (wasListed) {
        apply([path](QStringList listed) {
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
    }
    return true;
}

QStringList RecentFiles::normalized(QStringList paths) const
{
    paths.removeAll(QString());
    paths.removeDuplicates(); // keeps the first of each
    return paths.mid(0, maximum());
}

void RecentFiles::apply(const Change &change)
{
    SDKHOST_ASSERT_GUI_THREAD();
    // The store may apply the change again later, to a list that another program has stored meanwhile.
    const RecentFileStore::Stored stored = m_store.update(
        m_paths, [this, change](const QStringList &listed) { return normalized(change(listed)); });
    m_paths = stored.paths;
    const QString former = std::exchange(m_reported, stored.outcome.reason());
    if (!stored.outcome && m_reported != former) // not again with each drawing
        m_report(m_reported);
}

} // namespace fxhost

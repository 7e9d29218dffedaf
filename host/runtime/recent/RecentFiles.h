// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"
#include "host/runtime/recent/RecentEntry.h"

#include <sdkhost/MessageSink.h>

#include <QObject>

#include <functional>

namespace fxhost {

class HostSettings;
class RecentFileStore;

//! The recent documents, without duplicates: first those that the user keeps, in the order in which they were
//! kept, then the others, most recent first. Paths are compared exactly. Other programs may change the stored
//! list and its maximum, so every change is applied to the currently stored list. GUI thread.
class FXHOST_API RecentFiles : public QObject
{
    Q_OBJECT
public:
    static constexpr int defaultMaximum = 10;
    static constexpr int smallestMaximum = 1;
    static constexpr int largestMaximum = 1000;

    //! Reads the stored list.
    //! \param store must outlive this
    //! \param settings stores the maximum; must outlive this
    //! \param report receives the reason, once for each, if the list cannot be read or written
    RecentFiles(RecentFileStore &store, HostSettings &settings, MessageSink report,
                QObject *parent = nullptr);

    const RecentEntries &entries() const { return m_entries; }
    QStringList paths() const { return pathsOf(m_entries); }
    //! Reads the list that other programs may have changed.
    void refresh();
    //! Tries again to write changes that could not be written. Must be called at the end.
    void writeRest();
    //! Replaces the list, also what is kept. Leaves out duplicates, empty paths and the paths after the
    //! maximum.
    void setPaths(const QStringList &paths);
    //! Adds path as the most recent one, or moves it there, unless it is kept. Removes the last path of a
    //! full list.
    //! \param path full path; if it is empty, nothing is done
    //! \param opened when it was opened, UTC; if invalid, the recorded time stays
    void add(const QString &path, const QDateTime &opened = {});
    //! \param paths those that are not listed are ignored
    //! \return how many were removed
    int remove(const QStringList &paths);
    //! Removes all that are not kept.
    //! \return how many were removed
    int clear();
    //! Keeps paths, or no longer keeps them. Paths that are not listed are added if they are to be kept.
    //! Those that are no longer kept are the most recent ones then. \param paths full paths \return false if
    //! not all could be kept, because mostKept are
    bool setKept(const QStringList &paths, bool isKept);
    //! Undoes a change, but not what has been changed since: lists the entries again that it has removed or
    //! changed, each after the same entry as before.
    //! \param before, after the entries before and after the change
    void revert(const RecentEntries &before, const RecentEntries &after);

    //! Of the paths that are not kept.
    int maximum() const;
    static bool isAllowedMaximum(int maximum)
    {
        return maximum >= smallestMaximum && maximum <= largestMaximum;
    }
    //! \return false if the maximum is not allowed; nothing is changed then
    bool setMaximum(int maximum);

signals:
    //! The entries have changed.
    void changed();

private:
    using Change = std::function<RecentEntries(RecentEntries)>;

    RecentEntries normalized(const RecentEntries &entries) const;
    void apply(const Change &change);
    int applyRemoval(const std::function<bool(const RecentEntry &)> &isRemoved);

    RecentFileStore &m_store;
    HostSettings &m_settings;
    MessageSink m_report;
    QString m_reported; //!< the last reason; empty if the list could be stored
    RecentEntries m_entries;
};

} // namespace fxhost

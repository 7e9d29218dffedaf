// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"

#include <sdkhost/MessageSink.h>

#include <QString>
#include <QStringList>

#include <functional>

namespace fxhost {

class HostSettings;
class RecentFileStore;

//! The recent documents, most recent first, without duplicates. Paths are compared exactly. Other programs
//! may change the stored list and its maximum, so every change is applied to the currently stored list. GUI
//! thread.
class FXHOST_API RecentFiles
{
public:
    static constexpr int defaultMaximum = 10;
    static constexpr int smallestMaximum = 1;
    static constexpr int largestMaximum = 1000;

    //! Reads the stored list.
    //! \param store must outlive this
    //! \param settings stores the maximum; must outlive this
    //! \param report receives the reason, once for each, if the list cannot be read or written
    RecentFiles(RecentFileStore &store, HostSettings &settings, MessageSink report);

    RecentFiles(const RecentFiles &) = delete;
    RecentFiles &operator=(const RecentFiles &) = delete;

    QStringList paths() const { return m_paths; }
    //! Reads the list that other programs may have changed.
    void refresh();
    //! Tries again to write changes that could not be written. Must be called at the end.
    void writeRest();
    //! Replaces the list. Leaves out duplicates, empty paths and the paths after the maximum.
    void setPaths(const QStringList &paths);
    //! Adds path at the top, or moves it there. Removes the last path of a full list.
    //! \param path full path; if it is empty, nothing is done
    void add(const QString &path);
    //! \return true if path was in the list
    bool remove(const QString &path);
    void clear();

    int maximum() const;
    static bool isAllowedMaximum(int maximum)
    {
        return maximum >= smallestMaximum && maximum <= largestMaximum;
    }
    //! \return false if the maximum is not allowed; nothing is changed then
    bool setMaximum(int maximum);

private:
    using Change = std::function<QStringList(const QStringList &)>;

    QStringList normalized(QStringList paths) const;
    void apply(const Change &change);

    RecentFileStore &m_store;
    HostSettings &m_settings;
    MessageSink m_report;
    QString m_reported; //!< the last reason; empty if the list could be stored
    QStringList m_paths;
};

} // namespace fxhost

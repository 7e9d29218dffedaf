// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"
#include "host/runtime/MessageSink.h"

#include <QString>
#include <QStringList>

#include <functional>

namespace fxhost {

class HostSettings;
class RecentFileStore;

//! The recent documents, most recent first, none twice. Two paths are the same when their characters are.
//! Other programs may change the stored list and its maximum: every change is made to what is stored by then.
//! GUI thread.
class FXHOST_API RecentFiles
{
public:
    static constexpr int defaultMaximum = 10;
    static constexpr int smallestMaximum = 1;
    static constexpr int largestMaximum = 1000;

    //! Reads the stored list.
    //! \param store and \param settings, which has the maximum, must outlive this
    //! \param report gets what the user should know when the list cannot be read or written; once for each
    //! reason
    RecentFiles(RecentFileStore &store, HostSettings &settings, MessageSink report);

    RecentFiles(const RecentFiles &) = delete;
    RecentFiles &operator=(const RecentFiles &) = delete;

    QStringList paths() const { return m_paths; }
    //! Reads what other programs have stored.
    void refresh();
    //! Writes what could not be written until now. To be called at the end.
    void writeRest();
    //! Replaces the list. Repetitions, empty paths and what is beyond the maximum are left out.
    void setPaths(const QStringList &paths);
    //! Puts path at the top, whether or not it was listed; the last one is removed from a full list.
    //! \param path full path; empty: nothing happens
    void add(const QString &path);
    //! \return whether path was listed
    bool remove(const QString &path);
    void clear();

    int maximum() const;
    static bool isAllowedMaximum(int maximum)
    {
        return maximum >= smallestMaximum && maximum <= largestMaximum;
    }
    //! \return false, with nothing changed, unless isAllowedMaximum()
    bool setMaximum(int maximum);

private:
    using Change = std::function<QStringList(const QStringList &)>;

    QStringList orderly(QStringList paths) const;
    void apply(const Change &change);

    RecentFileStore &m_store;
    HostSettings &m_settings;
    MessageSink m_report;
    QString m_reported; //!< the last problem; empty when the list could be stored
    QStringList m_paths;
};

} // namespace fxhost

// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"

#include <QObject>
#include <QStringList>

#include <functional>

namespace fxhost {

//! The recent documents, most recent first, none twice. Two paths are the same when their characters are.
//! Keeps nothing across runs: that is the keeper's. GUI thread.
class FXHOST_API RecentFiles : public QObject
{
    Q_OBJECT
public:
    static constexpr int defaultMaximum = 10;
    static constexpr int smallestMaximum = 1;
    static constexpr int largestMaximum = 1000;

    //! What a list becomes.
    using Change = std::function<QStringList(const QStringList &)>;
    //! Makes a change to the list as it is kept, which others may have changed since, and returns what came
    //! of it. It may make the change once more later, as long as the list lives that it came from.
    //! \param known the list as it is here
    using Keeper = std::function<QStringList(const QStringList &known, const Change &change)>;

    explicit RecentFiles(QObject *parent = nullptr);

    //! Every change from now on goes through keeper. None: the list is kept here alone.
    void setKeeper(Keeper keeper);

    QStringList paths() const { return m_paths; }
    //! Takes over what others have made of the list as it is kept.
    void refresh();
    //! Replaces the list. Repetitions, empty paths and what is beyond the maximum are left out.
    void setPaths(const QStringList &paths);
    //! Puts path at the top, whether or not it was listed; the last one falls out of a full list.
    //! \param path full path; empty: nothing happens
    void add(const QString &path);
    //! \return whether path was listed
    bool remove(const QString &path);
    void clear();

    int maximum() const { return m_maximum; }
    static bool isAllowedMaximum(int maximum)
    {
        return maximum >= smallestMaximum && maximum <= largestMaximum;
    }
    //! \return false, with nothing changed, unless isAllowedMaximum()
    bool setMaximum(int maximum);
    //! Others that keep the same list have set the maximum: it counts from the next change on.
    //! \param maximum an allowed one
    void adoptMaximum(int maximum) { m_maximum = maximum; }

signals:
    //! The paths or their order are others now.
    void changed();
    void maximumChanged(int maximum);

private:
    void make(const Change &change);

    Keeper m_keeper;
    QStringList m_paths;
    int m_maximum = defaultMaximum;
};

} // namespace fxhost

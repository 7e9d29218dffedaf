// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/recent/RecentEntry.h"

#include <QAbstractTableModel>
#include <QHash>
#include <QTimer>

namespace fxhost {

class FileProbe;
class RecentFiles;

//! The recent drawings, a row for each in the order of the list, with what is known of the files. Files on a
//! disk that does not respond are not accessed; they are asked for until they respond. GUI thread.
class RecentDrawingsModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column { Name, Folder, Opened, State };

    //! \param list, probe must outlive the model
    RecentDrawingsModel(RecentFiles &list, FileProbe &probe, QObject *parent = nullptr);

    const RecentEntry &entry(int row) const { return m_entries.at(row); }

    //! Checks again which files exist.
    void checkFiles();

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    enum class Presence { Present, Missing, Unresponsive };
    struct File
    {
        Presence presence = Presence::Missing;
        QDateTime modified; //!< only valid if it is present
    };

    void reload();
    void check(const QStringList &paths);
    QString text(const RecentEntry &entry, int column) const;
    QString openedText(const RecentEntry &entry) const;
    QString stateText(const RecentEntry &entry) const;

    RecentFiles &m_list;
    FileProbe &m_probe;
    RecentEntries m_entries;
    QHash<QString, File> m_files; //!< by path
    QTimer m_retry;               //!< runs while files are unresponsive
};

} // namespace fxhost

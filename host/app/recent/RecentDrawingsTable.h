// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <QTreeView>

namespace fxhost {

class RecentDrawingsModel;

//! A table of recent drawings, of which one or more are selected unless it is empty. The selection follows
//! the drawings when the list changes. GUI thread.
class RecentDrawingsTable : public QTreeView
{
    Q_OBJECT
public:
    //! \param model must outlive the table
    explicit RecentDrawingsTable(RecentDrawingsModel &model, QWidget *parent = nullptr);

    //! In the order of the list.
    QStringList selectedPaths() const;
    //! False if none is selected.
    bool isAllSelectedKept() const;

private:
    void select(const QStringList &paths, int nearRow);

    RecentDrawingsModel &m_model;
    // Before the list changed.
    QStringList m_formerPaths;
    int m_formerRow = 0;
};

} // namespace fxhost

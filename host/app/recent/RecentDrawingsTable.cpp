// SPDX-License-Identifier: MIT
#include "host/app/recent/RecentDrawingsTable.h"

#include "host/app/recent/RecentDrawingsModel.h"

#include <QHeaderView>
#include <QSet>
#include <QStyledItemDelegate>

#include <algorithm>

namespace fxhost {

namespace {

constexpr int nameWidth = 220; // pixels

//! Draws names, paths and dates, which are left to right on every desktop, and elides them in the middle.
class OrderedText : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        const Qt::Alignment start = QStyle::visualAlignment(option->direction, Qt::AlignLeft);
        option->displayAlignment = start | Qt::AlignAbsolute | Qt::AlignVCenter;
        option->direction = Qt::LeftToRight;
        option->textElideMode = Qt::ElideMiddle;
    }
};

} // namespace

RecentDrawingsTable::RecentDrawingsTable(RecentDrawingsModel &model, QWidget *parent)
    : QTreeView(parent), m_model(model)
{
    setModel(&model);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setAlternatingRowColors(true);
    setSelectionMode(ExtendedSelection);
    auto *const ordered = new OrderedText(this);
    for (const int column :
         {RecentDrawingsModel::Name, RecentDrawingsModel::Folder, RecentDrawingsModel::Opened})
        setItemDelegateForColumn(column, ordered);
    header()->setStretchLastSection(false);
    header()->setSectionsMovable(false);
    header()->setResizeContentsPrecision(0); // only the visible rows
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    header()->setSectionResizeMode(RecentDrawingsModel::Name, QHeaderView::Interactive);
    header()->setSectionResizeMode(RecentDrawingsModel::Folder, QHeaderView::Stretch);
    header()->resizeSection(RecentDrawingsModel::Name, nameWidth);

    connect(&model, &QAbstractItemModel::modelAboutToBeReset, this, [this] {
        m_formerPaths = selectedPaths();
        m_formerRow = currentIndex().row();
    });
    connect(&model, &QAbstractItemModel::modelReset, this, [this] { select(m_formerPaths, m_formerRow); });
    select({}, 0);
}

QStringList RecentDrawingsTable::selectedPaths() const
{
    QModelIndexList rows = selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    QStringList paths;
    for (const QModelIndex &row : qAsConst(rows))
        paths.append(m_model.entry(row.row()).path);
    return paths;
}

bool RecentDrawingsTable::isAllSelectedKept() const
{
    const QModelIndexList rows = selectionModel()->selectedRows();
    return !rows.isEmpty() && std::all_of(rows.begin(), rows.end(), [this](const QModelIndex &row) {
        return m_model.entry(row.row()).isKept;
    });
}

//! Selects the rows of paths; if none is listed, the row at nearRow, or the last one.
void RecentDrawingsTable::select(const QStringList &paths, int nearRow)
{
    const QSet<QString> wanted(paths.begin(), paths.end());
    const int rows = m_model.rowCount();
    QItemSelection selection;
    QModelIndex current = m_model.index(qBound(0, nearRow, rows - 1), 0);
    for (int row = rows - 1; row >= 0; --row) {
        if (!wanted.contains(m_model.entry(row).path))
            continue;
        current = m_model.index(row, 0);
        selection.select(current, current);
    }
    if (selection.isEmpty())
        selection.select(current, current);
    selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

} // namespace fxhost

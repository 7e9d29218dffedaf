// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/recent/RecentEntry.h"

#include <QDialog>

#include <functional>
#include <optional>
#include <vector>

class QLabel;
class QPushButton;
class QSpinBox;

namespace fxhost {

class FxHost;
class RecentDrawingsModel;
class RecentDrawingsTable;

//! The list of recent drawings, to open and keep drawings and to remove them from the list. Each change can
//! be undone while the dialog is open. It is not modal, and deletes itself when it is closed. GUI thread.
class RecentDrawingsDialog : public QDialog
{
    Q_OBJECT
public:
    //! \param host must outlive the dialog
    RecentDrawingsDialog(FxHost &host, QWidget *parent);

protected:
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    struct Step
    {
        RecentEntries before;
        RecentEntries after;
        std::optional<int> formerLimit; //!< only of a change of the limit
    };

    void makeControls();
    QPushButton *makeButton(const QString &text, void (RecentDrawingsDialog::*action)());
    void showState();

    void change(const std::function<void()> &action);
    void openSelected();
    void keepSelected();
    void removeSelected();
    void removeAll();
    void setLimit(int limit);
    void undo();

    FxHost &m_host;
    RecentDrawingsModel *m_model;
    RecentDrawingsTable *m_table;
    QSpinBox *m_limit;
    QLabel *m_note = nullptr;
    QPushButton *m_open = nullptr;
    QPushButton *m_keep = nullptr;
    QPushButton *m_remove = nullptr;
    QPushButton *m_clear = nullptr;
    QPushButton *m_undo = nullptr;
    std::vector<Step> m_steps; //!< to undo, the last one at the end
};

} // namespace fxhost

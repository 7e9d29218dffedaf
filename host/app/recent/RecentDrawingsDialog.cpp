// SPDX-License-Identifier: MIT
#include "host/app/recent/RecentDrawingsDialog.h"

#include "host/app/HelpWindow.h"
#include "host/app/OpenDrawings.h"
#include "host/app/recent/RecentDrawingsModel.h"
#include "host/app/recent/RecentDrawingsTable.h"
#include "host/runtime/FxHost.h"
#include "host/runtime/recent/RecentFiles.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QVBoxLayout>

#include <algorithm>

namespace fxhost {

namespace {

// In pixels: wide enough for a usual path beside a name.
constexpr QSize firstSize(940, 460);

} // namespace

RecentDrawingsDialog::RecentDrawingsDialog(FxHost &host, QWidget *parent)
    : QDialog(parent), m_host(host),
      m_model(new RecentDrawingsModel(host.recentFiles(), host.fileProbe(), this)),
      m_table(new RecentDrawingsTable(*m_model)), m_limit(new QSpinBox)
{
    setObjectName(QStringLiteral("recentDrawings"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Recent Drawings"));
    resize(firstSize.boundedTo(screen()->availableSize()));
    m_table->setAccessibleName(windowTitle());
    connect(m_table, &QAbstractItemView::doubleClicked, this, &RecentDrawingsDialog::openSelected);
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &RecentDrawingsDialog::showState);
    connect(m_model, &QAbstractItemModel::modelReset, this, &RecentDrawingsDialog::showState);
    makeControls();
    showState();
    m_table->setFocus();
}

QPushButton *RecentDrawingsDialog::makeButton(const QString &text, void (RecentDrawingsDialog::*action)())
{
    auto *const button = new QPushButton(text, this);
    connect(button, &QPushButton::clicked, this, action);
    return button;
}

void RecentDrawingsDialog::makeControls()
{
    m_open = makeButton(tr("&Open"), &RecentDrawingsDialog::openSelected);
    m_open->setDefault(true);
    m_keep = makeButton({}, &RecentDrawingsDialog::keepSelected);
    m_remove = makeButton(tr("&Remove"), &RecentDrawingsDialog::removeSelected);
    m_clear = makeButton(tr("Remove &All..."), &RecentDrawingsDialog::removeAll);
    m_undo = makeButton(tr("&Undo"), &RecentDrawingsDialog::undo);
    auto *const close = new QPushButton(tr("Close"), this);
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    const auto bind = [](const QKeySequence &key, QWidget *widget, Qt::ShortcutContext context,
                         QPushButton *button) {
        auto *const shortcut = new QShortcut(key, widget, nullptr, nullptr, context);
        connect(shortcut, &QShortcut::activated, button, &QPushButton::click);
    };
    bind(QKeySequence::Delete, m_table, Qt::WidgetShortcut, m_remove);
    bind(QKeySequence::Undo, this, Qt::WindowShortcut, m_undo);

    m_limit->setRange(RecentFiles::smallestMaximum, RecentFiles::largestMaximum);
    m_limit->setKeyboardTracking(false); // typing 25 must not set the limit to 2
    connect(m_limit, QOverload<int>::of(&QSpinBox::valueChanged), this, &RecentDrawingsDialog::setLimit);
    auto *const limitLabel = new QLabel(tr("&Limit, without kept drawings:"));
    limitLabel->setBuddy(m_limit);
    auto *const limitRow = new QHBoxLayout;
    limitRow->addWidget(limitLabel);
    limitRow->addWidget(m_limit);
    limitRow->addStretch();

    m_note = new QLabel;
    m_note->setWordWrap(true);

    auto *const buttons = new QVBoxLayout;
    for (QPushButton *button : {m_open, m_keep, m_remove, m_clear, m_undo})
        buttons->addWidget(button);
    buttons->addStretch();
    buttons->addWidget(close);
    auto *const layout = new QGridLayout(this);
    layout->addWidget(m_table, 0, 0);
    layout->addLayout(limitRow, 1, 0);
    layout->addWidget(m_note, 2, 0);
    layout->addLayout(buttons, 0, 1, 3, 1);
    QWidget *former = m_table;
    for (QWidget *next :
         std::initializer_list<QWidget *>{m_open, m_keep, m_remove, m_clear, m_undo, m_limit, close}) {
        setTabOrder(former, next);
        former = next;
    }
}

void RecentDrawingsDialog::showState()
{
    const bool isAnySelected = m_table->selectionModel()->hasSelection();
    for (QPushButton *button : {m_open, m_keep, m_remove})
        button->setEnabled(isAnySelected);
    m_keep->setText(m_table->isAllSelectedKept() ? tr("Stop &Keeping") : tr("&Keep"));
    const RecentEntries &entries = m_host.recentFiles().entries();
    m_clear->setEnabled(!entries.isEmpty() && !entries.constLast().isKept); // kept ones are first
    m_undo->setEnabled(!m_steps.empty());
    m_note->setText(entries.isEmpty()
                        ? tr("The list is empty. Drawings are listed here after you open them.")
                        : tr("Kept drawings are first in the list and stay until you remove "
                             "them. Removing a drawing from the list does not delete its file."));
    const QSignalBlocker blocker(m_limit);
    m_limit->setValue(m_host.recentFiles().maximum());
}

//! Does what can be undone.
void RecentDrawingsDialog::change(const std::function<void()> &action)
{
    RecentFiles &list = m_host.recentFiles();
    list.refresh(); // what another program has changed is not undone
    const RecentEntries before = list.entries();
    action();
    if (list.entries() != before)
        m_steps.push_back({before, list.entries(), {}});
    showState();
}

void RecentDrawingsDialog::openSelected()
{
    const QStringList paths = m_table->selectedPaths();
    if (paths.isEmpty())
        return;
    openDrawingsLater(m_host.commands(), paths);
    close();
}

void RecentDrawingsDialog::keepSelected()
{
    const bool isToKeep = !m_table->isAllSelectedKept();
    change([this, isToKeep] {
        if (!m_host.recentFiles().setKept(m_table->selectedPaths(), isToKeep))
            m_host.showMessage(tr("At most %1 drawings can be kept.").arg(mostKept));
    });
}

void RecentDrawingsDialog::removeSelected()
{
    change([this] { m_host.recentFiles().remove(m_table->selectedPaths()); });
}

void RecentDrawingsDialog::removeAll()
{
    const RecentEntries &entries = m_host.recentFiles().entries();
    const int kept = int(
        std::count_if(entries.begin(), entries.end(), [](const RecentEntry &entry) { return entry.isKept; }));
    auto *const question = new QMessageBox(
        QMessageBox::Question, windowTitle(),
        tr("Remove %n drawing(s) from the list?", nullptr, entries.size() - kept), QMessageBox::Cancel, this);
    question->setAttribute(Qt::WA_DeleteOnClose);
    if (kept > 0)
        question->setInformativeText(tr("%n kept drawing(s) will stay.", nullptr, kept));
    const QPushButton *const yes = question->addButton(tr("Remove"), QMessageBox::AcceptRole);
    connect(yes, &QPushButton::clicked, this, [this] { change([this] { m_host.recentFiles().clear(); }); });
    HelpWindow::offerIn(question, HelpWindow::recentDrawings);
    question->open();
}

void RecentDrawingsDialog::setLimit(int limit)
{
    RecentFiles &list = m_host.recentFiles();
    // Successive numbers are one change, so that passing a small one removes nothing for good.
    if (m_steps.empty() || !m_steps.back().formerLimit) {
        list.refresh();
        m_steps.push_back({list.entries(), list.entries(), list.maximum()});
    }
    Step &step = m_steps.back();
    list.setMaximum(limit);
    list.revert(step.before, step.after);
    step.after = list.entries();
    showState();
}

void RecentDrawingsDialog::undo()
{
    const Step step = m_steps.back();
    m_steps.pop_back();
    if (step.formerLimit)
        m_host.recentFiles().setMaximum(*step.formerLimit);
    m_host.recentFiles().revert(step.before, step.after);
    showState();
}

void RecentDrawingsDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
        m_host.recentFiles().refresh();
        m_model->checkFiles();
        showState(); // another program may have changed the limit
    }
}

void RecentDrawingsDialog::keyPressEvent(QKeyEvent *event)
{
    // Enter in the number sets the limit and does not open drawings.
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isEnter || focusWidget() != m_limit)
        QDialog::keyPressEvent(event);
}

} // namespace fxhost

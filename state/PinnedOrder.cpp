// SPDX-License-Identifier: MIT
#include "module/RecentDocumentBrowser.h"
#include "module/RecentFileAction.h"
#include "state/ActionOrder.h"
#include "state/FolderPinButton.h"
#include "state/TileOwner.h"

#include <QHash>
#include <QMenu>
#include <QSet>

#include <algorithm>
#include <iterator>

namespace {

//! Replaces the number in an entry's text. Of the two-digit numbers, only 10 is recognised: from the eleventh
//! entry on, the old second digit remains.
void renumber(const QAction *action, int number)
{
    const auto *entry = qobject_cast<const RecentFileAction *>(action);
    if (!entry)
        return;
    QString text = entry->textButton->text();
    const int oldDigits = text.startsWith(QLatin1String("&10")) ? 2 : 1;
    entry->textButton->setText(text.replace(1, oldDigits, QString::number(number)));
}

} // namespace

void RecentDocumentBrowser::UpdatePin(QString & /*unused*/)
{
    const QList<FolderPinButton *> buttons = menuPinButtonList;
    const QList<QAction *> actions = recentDocActionList;
    QList<FolderPinButton *> pinnedButtons;
    QList<FolderPinButton *> otherButtons;
    for (FolderPinButton *button : buttons)
        (button && button->isChecked() ? pinnedButtons : otherButtons).append(button);
    menuPinButtonList.clear();
    std::for_each(pinnedButtons.begin(), pinnedButtons.end(), AddInToMenuPinButtonList);
    std::for_each(otherButtons.begin(), otherButtons.end(), AddInToMenuPinButtonList);

    QHash<QString, QList<QAction *>> actionsOfPath;
    if (!pinnedButtons.isEmpty()) {
        // An action's text always keeps its first number; only the path after it is compared.
        for (QAction *action : actions)
            actionsOfPath[FolderPinButton::pathInMenuText(action->text())].append(action);
    }
    QList<QAction *> pinned;
    for (const FolderPinButton *button : qAsConst(pinnedButtons))
        pinned += actionsOfPath.value(button->path());
    const QSet<QAction *> arePinned(pinned.begin(), pinned.end());
    QList<QAction *> others;
    std::copy_if(actions.begin(), actions.end(), std::back_inserter(others), [&arePinned](QAction *action) {
        return !action->isSeparator() && !arePinned.contains(action);
    });
    int number = 1;
    const QList<QAction *> ordered = pinned + others;
    for (const QAction *action : ordered)
        renumber(action, number++);

    QMenu *const menu = TileOwner::livingMenu();
    if (!menu)
        return; // not created yet, or deleted by its owner
    QAction *const successor = TileOwner::livingSuccessor();
    ActionOrder order(*menu);
    QAction *const afterPinned = others.isEmpty() ? successor : others.first();
    for (QAction *action : qAsConst(pinned))
        order.insert(afterPinned, action);
    // Each call adds another separator; those of earlier calls remain.
    if (!pinned.isEmpty() && !others.isEmpty()) {
        auto *separator = new QAction(menu);
        separator->setSeparator(true);
        order.insert(afterPinned, separator);
    }
    for (QAction *action : qAsConst(others))
        order.insert(successor, action);
    order.applyTo(*menu);
}

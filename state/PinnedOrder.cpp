// SPDX-License-Identifier: MIT
#include "module/RecentDocumentBrowser.h"
#include "module/RecentFileAction.h"
#include "state/FolderPinButton.h"
#include "state/TileOwner.h"

#include <QMenu>

#include <algorithm>

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
    QList<QAction *> pinned;
    QList<QAction *> others;
    int number = 1;

    for (FolderPinButton *button : buttons) {
        if (!button || !button->isChecked()) {
            otherButtons.append(button);
            continue;
        }
        pinnedButtons.append(button);
        for (QAction *action : actions) {
            // The action's text always keeps its first number; only the path after it is compared.
            if (FolderPinButton::pathInMenuText(action->text()) == button->path()) {
                renumber(action, number++);
                pinned.append(action);
            }
        }
    }
    menuPinButtonList.clear();
    std::for_each(pinnedButtons.begin(), pinnedButtons.end(), AddInToMenuPinButtonList);
    std::for_each(otherButtons.begin(), otherButtons.end(), AddInToMenuPinButtonList);

    for (QAction *action : actions) {
        if (!action->isSeparator() && !pinned.contains(action)) {
            renumber(action, number++);
            others.append(action);
        }
    }

    QMenu *const menu = TileOwner::livingMenu();
    if (!menu)
        return; // not created yet, or deleted by its owner
    QAction *const successor = TileOwner::livingSuccessor();
    // Inserting an action that is already in the menu moves it.
    QAction *const afterPinned = others.isEmpty() ? successor : others.first();
    for (QAction *action : qAsConst(pinned))
        menu->insertAction(afterPinned, action);
    // Each call adds another separator; those of earlier calls remain.
    if (!pinned.isEmpty() && !others.isEmpty())
        menu->insertSeparator(afterPinned);
    for (QAction *action : qAsConst(others))
        menu->insertAction(successor, action);
}

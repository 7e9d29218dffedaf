// SPDX-License-Identifier: MIT
#pragma once

#include "module/RecentFileAction.h"
#include "state/FolderPinButton.h"
#include "tests/support/fake/FakeModule.h"

#include <QMenu>

//! What a menu displays: an entry's text button, another action's text, "---" for a separator.
inline QStringList displayed(const QMenu &menu)
{
    QStringList lines;
    const QList<QAction *> actions = menu.actions();
    for (const QAction *action : actions) {
        const auto *entry = qobject_cast<const RecentFileAction *>(action);
        lines.append(entry                   ? entry->textButton->text()
                     : action->isSeparator() ? QStringLiteral("---")
                                             : action->text());
    }
    return lines;
}

//! The paths of buttons; "null" for none.
inline QStringList pathsOf(const QList<FolderPinButton *> &buttons)
{
    QStringList paths;
    for (const FolderPinButton *button : buttons)
        paths.append(button ? button->path() : QStringLiteral("null"));
    return paths;
}

inline void updatePins()
{
    QString unused;
    RecentDocumentBrowser::UpdatePin(unused);
}

//! A host's menu with entries of its own and recent documents among them, as the module makes them: between
//! two separators. Documents may have any path: nothing opens them.
struct PinMenu : FakeModule
{
    explicit PinMenu(const QStringList &paths)
    {
        host.setRecent(paths);
        RecentDocumentBrowser::AddRecentFiles(&menu, quit);
        buttons = RecentDocumentBrowser::menuPinButtonList;
        entries = RecentDocumentBrowser::recentDocActionList;
    }

    //! The document's pin in the menu, by its place in the host's list. Nothing is reordered yet.
    void setPinned(int index, bool pinned = true) const { buttons.at(index)->setChecked(pinned); }
    RecentFileAction &entry(int index) const { return *qobject_cast<RecentFileAction *>(entries.at(index)); }

    //! What is displayed, without the separators.
    QStringList displayedEntries() const
    {
        QStringList lines = displayed(menu);
        lines.removeAll(QStringLiteral("---"));
        return lines;
    }

    QMenu menu;
    QAction *create = menu.addAction(QStringLiteral("New"));
    QAction *quit = menu.addAction(QStringLiteral("Quit"));
    QList<FolderPinButton *> buttons; //!< in the host's order
    QList<QAction *> entries;         //!< in the host's order
};

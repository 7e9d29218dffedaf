// SPDX-License-Identifier: MIT
#pragma once

#include <CFxString.h>

#include <QWidgetAction>

class FolderPinButton;

//! A menu entry for a recent document: its numbered path, "Show in Folder" and a pin. GUI thread.
class RecentFileAction : public QWidgetAction
{
    Q_OBJECT
public:
    //! Creates an entry without a parent and adds its pin button to the registry's menu pin buttons.
    //! \param text the menu text: an ampersand, the entry's number, a blank, the path
    //! \param path exactly as in the host's list
    //! \param menu the entry is inserted there; may be null
    //! \param successor the action of the menu to insert the entry before; null to append it
    RecentFileAction(const CFxString &text, const CFxString &path, QMenu *menu = nullptr,
                     QAction *successor = nullptr);

    const CFxString filePath;
    //! Shows the text; owned by the entry's widget.
    FolderPinButton *textButton = nullptr;
};

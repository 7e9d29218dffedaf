// SPDX-License-Identifier: MIT
#pragma once

#include <CFxString.h>

#include <QWidgetAction>

class FolderPinButton;

//! One recent document in a menu: its numbered path, "Show in Folder" and a pin. GUI thread.
class RecentFileAction : public QWidgetAction
{
    Q_OBJECT
public:
    //! Has no parent. Adds its pin button to the registry's menu pin buttons.
    //! \param text what the menu shows: an ampersand, the entry's number, one blank, the path
    //! \param path exactly as the host's list gives it
    RecentFileAction(const CFxString &text, const CFxString &path);

    const CFxString filePath;
    //! Shows the text; owned by the entry's widget.
    FolderPinButton *textButton = nullptr;
};

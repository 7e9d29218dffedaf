// SPDX-License-Identifier: MIT
#include "module/CFxRecentDocCommand.h"

#include "module/HostAccess.h"
#include "ui/RecentDocMainWindow.h"

namespace {
constexpr const OdChar *browserCommandName = L"_RECENT";
}

OdString CFxRecentDocCommand::globalName() const
{
    return browserCommandName;
}

OdString CFxRecentDocCommand::localName() const
{
    return browserCommandName;
}

int CFxRecentDocCommand::Execute(CFxCommandContext * /*context*/)
{
    if (!HostAccess::hasRecentFileList())
        return normalCompletion;

    // Each call opens another popup, which deletes itself when it is closed.
    auto *window = new RecentDocMainWindow(HostAccess::mainFrame());
    window->show();
    window->setFocus(Qt::OtherFocusReason);
    return normalCompletion;
}

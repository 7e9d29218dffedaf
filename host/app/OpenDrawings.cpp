// SPDX-License-Identifier: MIT
#include "host/app/OpenDrawings.h"

#include "host/runtime/commands/CommandRunner.h"

#include <QStringList>

namespace fxhost {

bool openDrawings(CommandRunner &commands, const QStringList &paths)
{
    for (const QString &path : paths) {
        CommandRun *const run = commands.run(QStringLiteral("_OPEN"), path);
        if (!run)
            return false;
        run->release();
    }
    return true;
}

void openDrawingsLater(CommandRunner &commands, const QStringList &paths)
{
    QMetaObject::invokeMethod(
        &commands, [&commands, paths] { openDrawings(commands, paths); }, Qt::QueuedConnection);
}

} // namespace fxhost

// SPDX-License-Identifier: MIT
#include "host/app/OpenLater.h"

#include "host/runtime/commands/CommandRun.h"
#include "host/runtime/commands/CommandRunner.h"

namespace fxhost {

void openLater(CommandRunner &commands, const QStringList &paths)
{
    const auto open = [&commands, paths] {
        for (const QString &path : paths) {
            if (CommandRun *run = commands.run(QStringLiteral("_OPEN"), path))
                run->release();
        }
    };
    QMetaObject::invokeMethod(&commands, open, Qt::QueuedConnection);
}

} // namespace fxhost

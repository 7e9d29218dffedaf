// SPDX-License-Identifier: MIT
#include "host/app/AppCommands.h"

#include "host/app/DrawingArea.h"
#include "host/app/MainWindow.h"
#include "host/app/ScreenGrabber.h"
#include "host/runtime/FxHost.h"
#include "host/runtime/commands/CommandSet.h"
#include "host/runtime/commands/TypedPath.h"

#include <CFxCommand.h>
#include <sdkhost/Outcome.h>

#include <QCoreApplication>
#include <QSaveFile>

#include <functional>
#include <utility>

namespace fxhost {

namespace {

struct CommandTexts
{
    Q_DECLARE_TR_FUNCTIONS(fxhost::AppCommands)
};

Outcome writePng(const QImage &picture, const QString &path)
{
    if (picture.isNull())
        return Outcome::failed(CommandTexts::tr("No window is visible."));
    // A partly written file would still look like a picture, so replace the file only as a whole.
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return Outcome::failed(file.errorString());
    // Always PNG, regardless of the file name. flush() is needed because commit() does not detect errors that
    // occur when the buffer is written.
    const bool isEncoded = picture.save(&file, "PNG");
    if (!file.flush() || !isEncoded || !file.commit())
        return Outcome::failed(file.errorString());
    return {};
}

int takeScreenshot(FxHost &host, const QString &argument)
{
    if (argument.isEmpty()) {
        host.showMessage(CommandTexts::tr("SCREENSHOT needs the name of the file to write."));
        return CFxCommand::failed;
    }
    const QString path = typedPath(argument, host.fileProbe());
    const Outcome written = writePng(grabWindows(), path);
    if (written)
        return CFxCommand::normalCompletion;
    host.showMessage(CommandTexts::tr("The picture %1 could not be written: %2").arg(path, written.reason()));
    return CFxCommand::failed;
}

} // namespace

void addAppCommands(CommandSet &set, FxHost &host, MainWindow &window)
{
    // For commands that take no argument and cannot fail.
    const auto addAction = [&set](const QString &name, std::function<void()> action) {
        set.add(name, [action = std::move(action)](const CFxCommandContext &) {
            action();
            return CFxCommand::normalCompletion;
        });
    };
    DrawingArea &area = window.drawingArea();
    addAction(QStringLiteral("CASCADE"), [&area] { area.cascadeSubWindows(); });
    addAction(QStringLiteral("TILE"), [&area] { area.tileSubWindows(); });
    addAction(QStringLiteral("NEXTWINDOW"), [&area] { area.activateNextSubWindow(); });
    addAction(QStringLiteral("PREVIOUSWINDOW"), [&area] { area.activatePreviousSubWindow(); });
    addAction(QStringLiteral("RECENTMANAGE"), [&window] { window.showRecentDrawings(); });
    addAction(QStringLiteral("ABOUT"), [&window] { window.showAbout(); });
    addAction(QStringLiteral("QUIT"), [&window] { window.close(); });
    set.add(QStringLiteral("SCREENSHOT"),
            [&host](const CFxCommandContext &context) { return takeScreenshot(host, context.argument()); });
}

} // namespace fxhost

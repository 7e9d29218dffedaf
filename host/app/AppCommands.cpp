// SPDX-License-Identifier: MIT
#include "host/app/AppCommands.h"

#include "host/app/DrawingArea.h"
#include "host/app/MainWindow.h"
#include "host/app/ScreenGrabber.h"
#include "host/runtime/FxHost.h"
#include "host/runtime/commands/CommandSet.h"
#include "host/runtime/commands/TypedPath.h"

#include <CFxCommand.h>

#include <QCoreApplication>
#include <QSaveFile>

#include <functional>
#include <utility>

namespace fxhost {

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("AppCommands", text);
}

//! \return why the picture could not be written; empty when it was
QString writePng(const QImage &picture, const QString &path)
{
    if (picture.isNull())
        return tr("No window is visible.");
    // A picture that was only half written would look like one.
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return file.errorString();
    // The format is the command's promise, whatever the file is called.
    // flush(): what fails only as the buffer is written out, commit() would not notice.
    if (!picture.save(&file, "PNG") || !file.flush() || !file.commit())
        return file.errorString();
    return {};
}

int takeScreenshot(FxHost &host, const QString &argument)
{
    if (argument.isEmpty()) {
        host.showMessage(tr("SCREENSHOT needs the name of the file to write."));
        return CFxCommand::failed;
    }
    const QString path = typedPath(argument, host.fileProbe());
    const QString problem = writePng(grabWindows(), path);
    if (problem.isEmpty())
        return CFxCommand::normalCompletion;
    host.showMessage(tr("The picture %1 could not be written: %2").arg(path, problem));
    return CFxCommand::failed;
}

} // namespace

void addAppCommands(CommandSet &set, FxHost &host, MainWindow &window)
{
    // Most take no argument and cannot fail.
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
    addAction(QStringLiteral("QUIT"), [&window] { window.close(); });
    set.add(QStringLiteral("SCREENSHOT"),
            [&host](const CFxCommandContext &context) { return takeScreenshot(host, context.argument()); });
}

} // namespace fxhost

// SPDX-License-Identifier: MIT
#include "host/runtime/commands/HostCommands.h"

#include "host/runtime/FxHost.h"
#include "host/runtime/Paths.h"
#include "host/runtime/commands/CommandRunner.h"
#include "host/runtime/commands/CommandSet.h"
#include "host/runtime/commands/TypedPath.h"
#include "host/runtime/documents/Document.h"
#include "host/runtime/documents/DocumentManager.h"
#include "host/runtime/modules/ModuleManager.h"
#include "host/runtime/probe/FileProbe.h"
#include "host/runtime/recent/RecentFiles.h"

#include <CFxCommand.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QFileInfo>
#include <QTimer>

#include <chrono>
#include <optional>

namespace fxhost {

namespace {

constexpr std::chrono::milliseconds longestDelay =
    std::chrono::hours(1); // so that a typing error does not block the program for days

class HostCommands
{
    Q_DECLARE_TR_FUNCTIONS(fxhost::HostCommands)
public:
    explicit HostCommands(FxHost &host) : m_host(host) {}

    int newDrawing(const CFxCommandContext &) const
    {
        m_host.documents().newDocument();
        return CFxCommand::normalCompletion;
    }

    int open(const CFxCommandContext &context) const
    {
        QString path = typedPath(context.argument(), m_host.fileProbe());
        if (path.isEmpty()) {
            if (!m_host.pathChooser())
                return fail(tr("The command needs the path of a drawing."));
            path = m_host.pathChooser()();
            if (path.isEmpty())
                return CFxCommand::cancelled;
        }
        return m_host.documents().open(path) ? CFxCommand::normalCompletion : CFxCommand::failed;
    }

    int close(const CFxCommandContext &) const
    {
        if (!m_host.documents().current())
            return fail(tr("No drawing is open."));
        m_host.documents().close(m_host.documents().current());
        return CFxCommand::normalCompletion;
    }

    int help(const CFxCommandContext &context) const
    {
        int topic = 0;
        if (!context.argument().isEmpty()) {
            const std::optional<int> number = wholeNumber(context.argument());
            if (!number)
                return fail(tr("A help topic is a whole number."));
            topic = *number;
        }
        m_host.requestHelp(topic);
        return CFxCommand::normalCompletion;
    }

    int delay(const CFxCommandContext &context) const
    {
        const std::chrono::milliseconds time(wholeNumber(context.argument()).value_or(-1));
        if (time < std::chrono::milliseconds::zero() || time > longestDelay)
            return fail(tr("The delay is a number of milliseconds, at most %1.").arg(longestDelay.count()));
        QEventLoop loop;
        QObject::connect(&m_host.commands(), &CommandRunner::cancelRequested, &loop, &QEventLoop::quit);
        QTimer::singleShot(time, &loop, &QEventLoop::quit);
        if (!context.isCancelled())
            loop.exec();
        return context.isCancelled() ? CFxCommand::cancelled : CFxCommand::normalCompletion;
    }

    int recentLimit(const CFxCommandContext &context) const
    {
        RecentFiles &list = m_host.recentFiles();
        if (context.argument().isEmpty()) {
            m_host.showMessage(tr("Number of recent documents: %1 at most.").arg(list.maximum()));
            return CFxCommand::normalCompletion;
        }
        const std::optional<int> maximum = wholeNumber(context.argument());
        if (!maximum || !list.setMaximum(*maximum)) {
            return fail(tr("The number of recent documents is a whole number from %1 to %2.")
                            .arg(QString::number(RecentFiles::smallestMaximum),
                                 QString::number(RecentFiles::largestMaximum)));
        }
        return CFxCommand::normalCompletion;
    }

    int recentAdd(const CFxCommandContext &context) const
    {
        const QString path = typedFullPath(context);
        if (path.isEmpty())
            return fail(tr("The command needs the path of a drawing."));
        m_host.recentFiles().add(path);
        return CFxCommand::normalCompletion;
    }

    int recentKeep(const CFxCommandContext &context) const
    {
        QString path = typedFullPath(context);
        if (path.isEmpty()) {
            const Document *current = m_host.documents().current();
            if (!current || current->isNew())
                return fail(tr("The command needs the path of a drawing, or an open drawing with a file."));
            path = current->filePath();
        }
        // A listed drawing may be missing for the moment, but another name is probably mistyped.
        if (indexOf(m_host.recentFiles().entries(), path) < 0 &&
            m_host.fileProbe().unresponsive({path}).isEmpty() && !QFileInfo::exists(path))
            return fail(tr("The drawing \"%1\" does not exist.").arg(path));
        if (!m_host.recentFiles().setKept({path}, true))
            return fail(tr("The drawing is not kept. At most %1 can be.").arg(mostKept));
        m_host.showMessage(tr("The drawing \"%1\" is kept in the list of recent drawings. RECENTREMOVE "
                              "removes it from the list.")
                               .arg(path));
        return CFxCommand::normalCompletion;
    }

    int recentRemove(const CFxCommandContext &context) const
    {
        const QString path = typedFullPath(context);
        if (path.isEmpty())
            return fail(tr("The command needs the path of a drawing."));
        if (m_host.recentFiles().remove({path}) == 0)
            return fail(tr("The drawing \"%1\" is not in the list of recent drawings.").arg(path));
        return CFxCommand::normalCompletion;
    }

    int recentClear(const CFxCommandContext &) const
    {
        RecentFiles &list = m_host.recentFiles();
        m_host.showMessage(tr("Drawings removed from the list: %1.").arg(list.clear()));
        if (!list.entries().isEmpty())
            m_host.showMessage(tr("Drawings that stay in the list because they are kept: %1. RECENTREMOVE "
                                  "removes them.")
                                   .arg(list.entries().size()));
        return CFxCommand::normalCompletion;
    }

    int moduleLoad(const CFxCommandContext &context) const
    {
        if (context.argument().isEmpty())
            return fail(tr("The command needs the path of a module."));
        const QString path = typedPath(context.argument(), m_host.fileProbe());
        return m_host.modules().load(path) ? CFxCommand::normalCompletion : CFxCommand::failed;
    }

    int moduleUnload(const CFxCommandContext &context) const
    {
        const QString name = context.argument();
        if (name.isEmpty())
            return fail(tr("The command needs the name of a module.") + whatIsLoaded());
        const QStringList meant = m_host.modules().named(name);
        if (meant.isEmpty())
            return fail(tr("The module \"%1\" is not loaded.").arg(name) + whatIsLoaded());
        if (meant.size() > 1)
            return fail(tr("More than one module is called \"%1\".").arg(name) + whatIsLoaded());
        return m_host.modules().unload(meant.first()) ? CFxCommand::normalCompletion : CFxCommand::failed;
    }

private:
    //! Empty if the command has no argument.
    QString typedFullPath(const CFxCommandContext &context) const
    {
        return absolutePath(typedPath(context.argument(), m_host.fileProbe()));
    }

    //! A blank and a sentence, to append to another one.
    QString whatIsLoaded() const
    {
        const QStringList paths = m_host.modules().loaded();
        if (paths.isEmpty())
            return QLatin1Char(' ') + tr("No module is loaded.");
        return QLatin1Char(' ') + tr("Loaded: %1.").arg(paths.join(QLatin1String(", ")));
    }

    static std::optional<int> wholeNumber(const QString &text)
    {
        bool ok = false;
        const int number = text.toInt(&ok);
        return ok && number >= 0 ? std::optional<int>(number) : std::nullopt;
    }

    int fail(const QString &why) const
    {
        m_host.showMessage(why);
        return CFxCommand::failed;
    }

    FxHost &m_host;
};

} // namespace

void addHostCommands(CommandSet &set, FxHost &host)
{
    using Work = int (HostCommands::*)(const CFxCommandContext &) const;
    const auto add = [&set, &host](const QString &name, Work work) {
        set.add(name, [commands = HostCommands(host), work](const CFxCommandContext &context) {
            return (commands.*work)(context);
        });
    };
    add(QStringLiteral("NEW"), &HostCommands::newDrawing);
    add(QStringLiteral("OPEN"), &HostCommands::open);
    add(QStringLiteral("CLOSE"), &HostCommands::close);
    add(QStringLiteral("HELP"), &HostCommands::help);
    add(QStringLiteral("DELAY"), &HostCommands::delay);
    add(QStringLiteral("RECENTLIMIT"), &HostCommands::recentLimit);
    add(QStringLiteral("RECENTADD"), &HostCommands::recentAdd);
    add(QStringLiteral("RECENTKEEP"), &HostCommands::recentKeep);
    add(QStringLiteral("RECENTREMOVE"), &HostCommands::recentRemove);
    add(QStringLiteral("RECENTCLEAR"), &HostCommands::recentClear);
    add(QStringLiteral("MODULELOAD"), &HostCommands::moduleLoad);
    add(QStringLiteral("MODULEUNLOAD"), &HostCommands::moduleUnload);
}

} // namespace fxhost

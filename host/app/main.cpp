// SPDX-License-Identifier: MIT
#include "host/app/EndSignals.h"
#include "host/app/HostMenus.h"
#include "host/app/MainWindow.h"
#include "host/app/ProgramOptions.h"
#include "host/app/ScriptRunner.h"
#include "host/app/StartArguments.h"
#include "host/app/Translators.h"
#include "host/app/instance/InstanceReceiver.h"
#include "host/app/instance/InstanceStart.h"
#include "host/runtime/FxHost.h"
#include "host/runtime/Paths.h"
#include "host/runtime/commands/CommandRunner.h"
#include "host/runtime/documents/DocumentManager.h"
#include "host/runtime/log/HostLog.h"
#include "host/runtime/modules/ModuleManager.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QIcon>
#include <QSettings>
#include <QTextStream>

#include <memory>
#include <optional>
#include <utility>
#include <vector>

using namespace fxhost;

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(fxhost::main)
};

void printError(const QString &text)
{
    QTextStream(stderr) << QCoreApplication::applicationName() << ": " << text << '\n';
}

ProfileFolders profileFolders(const ProgramOptions &options)
{
    return options.profileDir.isEmpty() ? ProfileFolders::ofUser()
                                        : QDir::current().absoluteFilePath(options.profileDir);
}

QStringList modulePaths(const ProgramOptions &options)
{
    if (options.modules)
        return *options.modules;
    const QDir programDir(QCoreApplication::applicationDirPath());
    const QString browser = QDir::cleanPath(programDir.filePath(QStringLiteral(FXHOST_MODULE)));
    return QFile::exists(browser) ? QStringList{browser} : QStringList(); // it has a package of its own
}

void place(MainWindow &window, const ProgramOptions &options)
{
    if (options.windowSize) {
        window.setWindowState(Qt::WindowNoState);
        window.resize(*options.windowSize);
    }
    if (options.windowPosition)
        window.move(*options.windowPosition);
}

//! \param socket at which drawings of later starts are received; may be null
int run(const ProgramOptions &options, std::unique_ptr<InstanceSocket> socket)
{
    const ProfileFolders profile = profileFolders(options);
    if (!options.profileDir.isEmpty() && !QDir().mkpath(profile.settings)) {
        printError(Texts::tr("the profile directory %1 cannot be created").arg(profile.settings));
        return ProgramStart::usageError;
    }

    // Qt's own dialogs store their settings here.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, profile.settings);
    FxHost host(profile, options.logFile);
    QObject::connect(&host, &FxHost::message, &host, printError);
    if (const Outcome logged = host.log().outcome(); !logged) {
        printError(Texts::tr("the log %1 cannot be written: %2").arg(options.logFile, logged.reason()));
        return ProgramStart::usageError;
    }
    ScriptRunner script(host.commands());
    if (!options.scriptFile.isEmpty()) {
        const Outcome read = script.load(options.scriptFile);
        if (!read) {
            printError(Texts::tr("the script %1 cannot be read: %2").arg(options.scriptFile, read.reason()));
            return ProgramStart::usageError;
        }
    }

    addMenus(host.customization());
    MainWindow window(host);
    const EndSignals ending;
    QObject::connect(&ending, &EndSignals::endRequested, &window, &QWidget::close);
    const QStringList modules = modulePaths(options);
    for (const QString &path : modules)
        host.modules().load(path);
    place(window, options);
    window.show();
    host.setMainWindow(&window);

    if (options.newDocument)
        host.documents().newDocument();
    host.documents().openAll(options.drawings);
    script.startWhenActive(&window);
    std::unique_ptr<InstanceReceiver> receiver;
    if (socket) {
        receiver = std::make_unique<InstanceReceiver>(std::move(socket), host.commands());
        QObject::connect(receiver.get(), &InstanceReceiver::activationRequested, &window,
                         &MainWindow::bringToFront);
    }
    return QApplication::exec();
}

//! Appends the program's folder to PATH, so that modules can start fxshow by its name.
void findProgramsBeside()
{
    const QByteArray folder = QFile::encodeName(QCoreApplication::applicationDirPath());
    const QByteArray others = qgetenv("PATH");
    qputenv("PATH", (others.isEmpty() ? QByteArray("/usr/bin:/bin") : others) + ':' + folder);
}

//! Prints the text of a command line that does not start the program.
//! \return the exit code
int answer(const ProgramStart &commandLine)
{
    const bool isRefused = commandLine.wish == ProgramStart::Wish::Refuse;
    QTextStream(isRefused ? stderr : stdout) << commandLine.text << '\n';
    return isRefused ? ProgramStart::usageError : 0;
}

//! Hands the drawings over to the running instance, or becomes the one to which later starts do.
InstanceStart meetOtherInstances(const ProgramOptions &options)
{
    if (!options.scriptFile.isEmpty())
        return {}; // what the user opens must not get into the middle of a script
    const QString profile = profileFolders(options).settings;
    QDir().mkpath(profile); // an error is reported later
    std::optional<InstanceMessage> message;
    if (!options.newInstance) {
        message.emplace();
        message->startupId = qgetenv("DESKTOP_STARTUP_ID");
        for (const QString &drawing : options.drawings)
            message->drawings.append(absolutePath(drawing));
    }
    return startInstance(instanceSocketPath(profile), message);
}

//! What is known before the program connects to a display, which help, version and handing drawings over do
//! not need.
struct Beginning
{
    std::optional<int> exitCode; //!< set if the program ends
    std::unique_ptr<InstanceSocket> socket;
};

Beginning begin(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const Translators translators;
    const ProgramStart commandLine = readProgramOptions(QCoreApplication::arguments());
    Beginning beginning;
    switch (commandLine.wish) {
    case ProgramStart::Wish::PrintAndEnd:
        beginning.exitCode = answer(commandLine);
        break;
    case ProgramStart::Wish::Refuse:
        break; // the arguments may be Qt's, so errors are reported later
    case ProgramStart::Wish::Start: {
        InstanceStart start = meetOtherInstances(commandLine.options);
        if (start.isHandedOver)
            beginning.exitCode = 0;
        beginning.socket = std::move(start.socket);
    }
    }
    return beginning;
}

} // namespace

int main(int argc, char *argv[])
{
    keepBytesOfPaths();
    QCoreApplication::setApplicationName(QStringLiteral("fxhost"));
    QCoreApplication::setApplicationVersion(QStringLiteral(FXHOST_VERSION));
    Beginning beginning = begin(argc, argv);
    if (beginning.exitCode)
        return *beginning.exitCode;

    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QByteArrayList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << argv[i];
    arguments = argumentsForQt(arguments);
    int count = arguments.size();
    std::vector<char *> words; // Qt requires writable strings and a terminating null
    for (QByteArray &argument : arguments)
        words.push_back(argument.data());
    words.push_back(nullptr);
    QApplication application(count, words.data());
    const Translators translators;
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/fxhost.svg")));
    QApplication::setDesktopFileName(QStringLiteral("fxhost")); // Wayland takes the icon from there
    findProgramsBeside();

    const ProgramStart commandLine = readProgramOptions(QApplication::arguments());
    return commandLine.wish == ProgramStart::Wish::Start
               ? run(commandLine.options, std::move(beginning.socket))
               : answer(commandLine);
}

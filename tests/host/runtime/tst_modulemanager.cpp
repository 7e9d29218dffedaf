// SPDX-License-Identifier: MIT
#include "host/runtime/Paths.h"
#include "host/runtime/commands/CommandRunner.h"
#include "host/runtime/documents/DocumentManager.h"
#include "host/runtime/modules/ModuleManager.h"
#include "tests/support/DocumentListener.h"
#include "tests/support/TestCase.h"
#include "tests/support/TestModules.h"
#include "tests/support/bytes/BytesOfPreview.h"
#include "tests/support/bytes/BytesOfSpecialFiles.h"
#include "tests/support/real/RealHost.h"

#include <sdkhost/CommandStack.h>
#include <sdkhost/Editor.h>

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QWidget>

#include <optional>

using fxhost::CommandRunner;

namespace {

//! A host with a window, and modules that record their calls.
struct Modules : RealHost
{
    Modules() { takeCalls(); }
    ~Modules() { host.setMainWindow(nullptr); }
    Q_DISABLE_COPY(Modules)

    //! Loads the companion and shows its panel in the main window.
    void showCompanion()
    {
        if (!manager.load(companion))
            qFatal("the companion is not a module");
        host.setMainWindow(&window);
        takeCalls();
    }
    bool hasNoReactors()
    {
        return host.editor().reactors().all().empty() && host.documentReactors().all().empty();
    }
    QWidget *panel() const { return window.findChild<QWidget *>("companionPanel"); }

    QWidget window;
    fxhost::ModuleManager &manager = host.modules();
    fxhost::CommandRunner &commands = host.commands();
    const QString first = modulePath("first");
    const QString second = modulePath("second");
    const QString companion = modulePath("companion");
    // Lines of the log.
    const QString isLoaded = "module " + companion + " loaded";
    const QString isUnloaded = "module " + companion + " unloaded";
};

// Calls of a module.
const QStringList startCalls = {"create", "addRef", "initApp"};
const QStringList windowCalls("mainFrameCreated");
const QStringList documentCalls("DocumentCreated");
const QStringList noWindowCalls("mainFrameDestroyed");
const QStringList endCalls = {"uninitApp", "release", "deleteModule", "unloaded"};

QStringList of(const char *module, const QStringList &calls)
{
    return QStringList(calls).replaceInStrings(QRegularExpression("^"), QString(module) + ' ');
}

} // namespace

//! Loading and unloading of modules, never while their own code runs.
class tst_ModuleManager : public TestCase
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY2(QFileInfo::exists(modulePath("first")), "the test modules are not built");
        fxhost::keepBytesOfPaths();
    }

    void modulesAreCalledInOrder_data()
    {
        QTest::addColumn<QString>(
            "steps"); // f, s: (un)load a module; w: create or destroy the window; d: new drawing
        QTest::addColumn<QStringList>("calls"); // until the host is deleted
        const QStringList both = of("first", startCalls) + of("second", startCalls) +
                                 of("first", windowCalls) + of("second", windowCalls);
        const QStringList hostEnd =
            of("first", noWindowCalls) + of("second", noWindowCalls + endCalls) + of("first", endCalls);
        QTest::newRow("every call") << "fwwf"
                                    << of("first", startCalls + windowCalls + noWindowCalls + endCalls);
        QTest::newRow("until the host is deleted, with the window") << "fsw" << both + hostEnd;
        QTest::newRow("unloaded early")
            << "fswf"
            << both + of("first", noWindowCalls + endCalls) + of("second", noWindowCalls + endCalls);
        QTest::newRow("again") << "fff" << of("first", startCalls + endCalls + startCalls + endCalls);
        QTest::newRow("late, without a drawing")
            << "fws"
            << of("first", startCalls + windowCalls) + of("second", startCalls + windowCalls) + hostEnd;
        QTest::newRow("late, with two drawings")
            << "fwdds"
            << of("first", startCalls + windowCalls + documentCalls + documentCalls) +
                   of("second", startCalls + windowCalls + documentCalls) + hostEnd;
    }

    void modulesAreCalledInOrder()
    {
        QFETCH(QString, steps);
        QFETCH(QStringList, calls);
        QWidget mainWindow; // outlives the host
        QStringList messages;
        {
            RealHost running;
            takeCalls();
            QStringList loaded;
            bool isShown = false;
            for (const QChar step : qAsConst(steps)) {
                const QString module = modulePath(step == 'f' ? "first" : "second");
                if (step == 'w')
                    running.host.setMainWindow((isShown = !isShown) ? &mainWindow : nullptr);
                else if (step == 'd')
                    running.host.documents().newDocument();
                else if (loaded.removeOne(module))
                    QVERIFY(running.host.modules().unload(module));
                else {
                    QVERIFY(running.host.modules().load(module));
                    loaded.append(module);
                }
                QCOMPARE(running.host.modules().loaded(), loaded);
                for (const char *name : {"first", "second"})
                    QCOMPARE(isMapped(modulePath(name)), loaded.contains(modulePath(name)));
            }
            messages = running.messages;
        }
        QStringList actual = takeCalls();
        QCOMPARE(actual.replaceInStrings(QRegularExpression(" /.*"), ""), calls); // without the module's path
        QCOMPARE(messages, QStringList());
    }

    void aLateModuleIsNotNotifiedOfADrawingThatIsBeingClosed()
    {
        Modules running;
        running.host.documents().newDocument();
        DocumentListener listener(running.host);
        listener.on("ToBeDestroyed", [&](CFxDocument *) { running.manager.load(running.first); });
        running.host.documents().closeAll();
        QCOMPARE(takeCalls().filter("Document"), QStringList());
        QVERIFY(isMapped(running.first));
    }

    void moduleReceivesEveryByteOfItsName()
    {
        const QString former = QDir::currentPath();
        Modules running;
        QVERIFY(QDir::setCurrent(running.path(QString())));
        // As text, a byte order mark and half of a surrogate pair.
        const QString name = fxhost::pathFromBytes("\xef\xbb\xbf\xff.so");
        QVERIFY(QFile::copy(running.first, name));
        const bool isLoaded = running.manager.load(name);
        QVERIFY(QDir::setCurrent(former));
        QVERIFY(isLoaded);
        QCOMPARE(takeCalls().value(0), "first create " + name);
    }

    void aModuleIsNotLoadedTwice()
    {
        Modules running;
        const QString link = running.path("another name.so");
        QVERIFY(QFile::link(running.first, link));
        QVERIFY(running.manager.load(running.first));
        takeCalls();
        QVERIFY(!running.manager.load(running.first));
        QVERIFY(!running.manager.load(link));
        QCOMPARE(takeCalls(), QStringList());
        QVERIFY2(running.messages.value(1).contains(link), qPrintable(running.messages.join('\n')));
        QCOMPARE(running.manager.loaded(), QStringList(running.first));
    }

    void filesThatAreNotModulesAreRefused_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("reason");
        const auto row = [](const char *name, const QString &path, const char *reason) {
            QTest::newRow(name) << path << QString(reason);
        };
        row("a missing file", "/nowhere/module.so", "no such file");
        row("a file of the system's folders", "libdl.so.2", "no such file"); // which are not searched
        row("a directory", QCoreApplication::applicationDirPath(), "not a file");
        row("an empty path", "", "no such file");
        row("a FIFO", m_special.path(SpecialFile::Fifo), "");
        row("a letter", testbytes::writeFile(m_folder.filePath("text.so"), "this is a letter"), "");
        row("an empty file", testbytes::writeFile(m_folder.filePath("empty.so"), ""), "");
        for (const auto &[name, reason] : std::initializer_list<std::pair<const char *, const char *>>{
                 {"no", "odrxGetAPIVersion"},
                 {"half", "odrxCreateModuleObject"},
                 {"unresolved", "undefinedFunction"},
                 {"wrong_version", "4.3.2.7"},
                 {"throws_when_asked", "no more chalk"},
                 {"throws_when_created", "no more chalk"},
                 {"creates_nothing", "not create a module object"},
                 {"throws_when_started", "no more chalk"}})
            row(name, modulePath(name), reason);
    }

    void filesThatAreNotModulesAreRefused()
    {
        QFETCH(QString, path);
        QFETCH(QString, reason);
        Modules running;
        const auto commands = running.host.commandStack().commands();

        QVERIFY(!running.manager.load(path));

        QCOMPARE(running.messages.size(), 1);
        QVERIFY2(running.messages.first().contains(path), qPrintable(running.messages.first()));
        QVERIFY2(running.messages.first().contains(reason), qPrintable(running.messages.first()));
        QCOMPARE(running.logged(), QStringList("module " + path + " failed"));
        QVERIFY(!path.endsWith("_module.so") || !isMapped(path));
        QCOMPARE(running.host.commandStack().commands(), commands);
        QVERIFY(running.hasNoReactors());
        QVERIFY(running.manager.load(running.first)); // the host continues
    }

    void moduleThatThrowsAtItsEndIsUnloaded()
    {
        Modules running;
        const QString path = modulePath("throws_when_ended");
        QVERIFY(running.manager.load(path));
        QVERIFY(running.manager.unload(path));
        QVERIFY2(running.messages.value(0).contains("no more chalk"), qPrintable(running.messages.value(0)));
        QVERIFY(!isMapped(path));
    }

    void nothingOfAModuleOutlivesItsUnloading()
    {
        Modules running;
        const auto commands = running.host.commandStack().commands();
        running.host.setMainWindow(&running.window);
        const QString path = modulePath("leaves_things");
        QVERIFY(running.manager.load(path));
        QCOMPARE(running.window.findChildren<QWidget *>().size(), 1);
        takeCalls();

        QVERIFY(running.manager.unload(path));

        QVERIFY(!isMapped(path));
        QCOMPARE(running.host.commandStack().commands(), commands);
        QVERIFY(running.hasNoReactors());
        QVERIFY(running.window.findChildren<QWidget *>().isEmpty());
        QStringList deleted = takeCalls();
        deleted.sort(); // the order is not defined
        QCOMPARE(deleted,
                 of("faulty", {"child deleted", "object deleted", "static deleted", "window deleted"}));
        running.commands.runLine("_LEFT");
        running.host.documents().newDocument(); // neither reaches what is deleted
    }

    // By commands, and while they run.

    void commandsLoadAndUnloadModules()
    {
        Modules running;
        running.commands.runMacro(
            QString("MODULELOAD \"%1\";COMPANION;MODULEUNLOAD companion_module;COMPANION")
                .arg(running.companion));
        QCOMPARE(running.logged(), QStringList({running.isLoaded, "command _MODULELOAD 5100",
                                                "command _COMPANION 5100", running.isUnloaded,
                                                "command _MODULEUNLOAD 5100", "command COMPANION unknown"}));
        QCOMPARE(takeCalls(), QStringList("companion Execute"));
        QVERIFY(!isMapped(running.companion));
    }

    void waitingCommandsRunAfterTheUnloading()
    {
        Modules running;
        QVERIFY(running.manager.load(running.companion));
        const auto reload = [&] {
            running.commands.runMacro(
                QString("MODULEUNLOAD %1;MODULELOAD %1;COMPANION").arg(running.companion));
            running.commands.cancel();
        };
        QMetaObject::invokeMethod(&running.host, reload, Qt::QueuedConnection);
        running.commands.runLine("COMPANION wait");
        QCOMPARE(running.logged(),
                 QStringList({running.isLoaded, "command _COMPANION 5100", running.isUnloaded,
                              "command _MODULEUNLOAD 5100", running.isLoaded, "command _MODULELOAD 5100",
                              "command _COMPANION 5100"}));
        QCOMPARE(running.messages, QStringList());
    }

    void moduleIsUnloadedByAnUnambiguousName_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("isUnloaded");
        QTest::newRow("its path") << modulePath("first") << true;
        QTest::newRow("its file's name") << "first_module.so" << true;
        QTest::newRow("its file's name without the ending") << "first_module" << true;
        QTest::newRow("a part of its name") << "first" << false;
        QTest::newRow("its name in capitals") << "FIRST_MODULE" << false;
        QTest::newRow("a name that two modules have") << "second_module" << false;
        QTest::newRow("the path of one of those") << modulePath("second") << true;
    }

    void moduleIsUnloadedByAnUnambiguousName()
    {
        QFETCH(QString, name);
        QFETCH(bool, isUnloaded);
        Modules running;
        const QString namesake = running.path("second_module.so");
        QVERIFY(QFile::copy(running.companion, namesake));
        const QStringList paths = {running.first, running.second, namesake};
        for (const QString &path : paths)
            QVERIFY(running.manager.load(path));
        running.commands.runLine("MODULEUNLOAD " + name);
        QCOMPARE(running.manager.loaded().size(), isUnloaded ? 2 : 3);
        QCOMPARE(running.logged().constLast(),
                 "command _MODULEUNLOAD " + QString(isUnloaded ? "5100" : "5102"));
        QCOMPARE(running.messages.size(), isUnloaded ? 0 : 1);
        for (const QString &path : paths) // the candidates
            QVERIFY(isUnloaded || running.messages.first().contains(path));
    }

    void whatIsNotLoadedIsNotUnloaded()
    {
        Modules running;
        QVERIFY(!running.manager.unload(running.first));
        QVERIFY2(running.messages.last().contains(running.first), qPrintable(running.messages.last()));
        running.commands.runLine("MODULEUNLOAD");
        QVERIFY2(running.messages.last().contains("No module"), qPrintable(running.messages.last()));
        QVERIFY(running.manager.load(running.first));
        running.commands.runLine("MODULEUNLOAD");
        QVERIFY2(running.messages.last().contains(running.first), qPrintable(running.messages.last()));
        QCOMPARE(running.messages.size(), 3);
    }

    void moduleIsNotUnloadedWhileItsCommandRuns_data()
    {
        QTest::addColumn<Qt::ConnectionType>("when");
        QTest::newRow("when its start is notified") << Qt::DirectConnection;
        QTest::newRow("in an event loop of its own") << Qt::QueuedConnection;
    }

    void moduleIsNotUnloadedWhileItsCommandRuns()
    {
        QFETCH(Qt::ConnectionType, when);
        Modules running;
        running.showCompanion();
        std::optional<bool> isUnloaded;
        const auto unload = [&] {
            isUnloaded = running.manager.unload(running.companion);
            running.commands.cancel();
        };
        connect(&running.commands, &CommandRunner::commandStarted, &running.window, unload, when);
        running.commands.runLine("COMPANION wait");
        QCOMPARE(isUnloaded, std::optional<bool>(false));
        QVERIFY(isMapped(running.companion));
        QCOMPARE(running.messages.size(), 1);
        QVERIFY2(running.messages.first().contains(running.companion), qPrintable(running.messages.first()));
        QCOMPARE(takeCalls(), QStringList("companion Execute"));
        QVERIFY(running.manager.unload(running.companion));
    }

    void moduleCanBeUnloadedWhenItsCommandHasEnded()
    {
        Modules running;
        running.showCompanion();
        std::optional<bool> isUnloaded;
        connect(&running.commands, &CommandRunner::commandEnded, &running.window,
                [&] { isUnloaded = running.manager.unload(running.companion); });
        running.commands.runLine("COMPANION");
        QCOMPARE(isUnloaded, std::optional<bool>(true));
        QVERIFY(!isMapped(running.companion));
    }

    void moduleCannotUnloadItself()
    {
        Modules running;
        running.showCompanion();
        QTest::mouseClick(running.panel(), Qt::LeftButton); // whose handler asks to unload it
        QCOMPARE(takeCalls(), QStringList("companion clicked"));
        QVERIFY(running.panel());
        QCOMPARE(running.messages.size(), 1);
        QCOMPARE(running.logged().constLast(), QString("command _MODULEUNLOAD 5102"));
        running.commands.runLine("MODULEUNLOAD companion_module");
        QVERIFY(!running.panel());
        QVERIFY(!isMapped(running.companion));
    }

private:
    const BytesOfSpecialFiles m_special;
    const QTemporaryDir m_folder;
};

TEST_CLASS(tst_ModuleManager);
#include "tst_modulemanager.moc"

// SPDX-License-Identifier: MIT
#include "host/runtime/Paths.h"
#include "host/runtime/commands/CommandRunner.h"
#include "host/runtime/commands/CommandStack.h"
#include "host/runtime/documents/DocumentManager.h"
#include "host/runtime/editor/Editor.h"
#include "host/runtime/modules/ModuleManager.h"
#include "tests/support/TestCase.h"
#include "tests/support/TestModules.h"
#include "tests/support/bytes/BytesOfPreview.h"
#include "tests/support/bytes/BytesOfSpecialFiles.h"
#include "tests/support/real/RealHost.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QWidget>

#include <optional>

using fxhost::CommandRunner;

namespace {

//! A host with a window, and what its modules are called for.
struct Modules : RealHost
{
    Modules() { takeCalls(); }
    ~Modules() { host.setMainWindow(nullptr); }
    Q_DISABLE_COPY(Modules)

    //! The companion, in the main window.
    void showCompanion()
    {
        if (!manager.load(companion))
            qFatal("the companion is not a module");
        host.setMainWindow(&window);
        takeCalls();
    }
    bool hasNoReactors()
    {
        return host.editor().reactors().all().empty() && host.documents().reactors().all().empty();
    }
    QWidget *panel() const { return window.findChild<QWidget *>("companionPanel"); }

    QWidget window;
    fxhost::ModuleManager &manager = host.modules();
    fxhost::CommandRunner &commands = host.commands();
    const QString first = modulePath("first");
    const QString second = modulePath("second");
    const QString companion = modulePath("companion");
    // As the log says of the companion.
    const QString isLoaded = "module " + companion + " loaded";
    const QString isUnloaded = "module " + companion + " unloaded";
};

// What a module is called for.
const QStringList comes = {"create", "addRef", "initApp"};
const QStringList sees("mainFrameCreated");
const QStringList hears("DocumentCreated");
const QStringList leaves("mainFrameDestroyed");
const QStringList goes = {"uninitApp", "release", "deleteModule", "unloaded"};

QStringList of(const char *module, const QStringList &calls)
{
    return QStringList(calls).replaceInStrings(QRegularExpression("^"), QString(module) + ' ');
}

} // namespace

//! Modules come and go, and never beneath their own code.
class tst_ModuleManager : public TestCase
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY2(QFileInfo::exists(modulePath("first")), "the test modules are not built");
        fxhost::keepBytesOfPaths();
    }

    void aModulesLifeIsInOrder_data()
    {
        QTest::addColumn<QString>(
            "story"); // f, s: a module comes or goes; w: the window does; d: a drawing comes
        QTest::addColumn<QStringList>("calls"); // to the host's end
        const QStringList both =
            of("first", comes) + of("second", comes) + of("first", sees) + of("second", sees);
        const QStringList end = of("first", leaves) + of("second", leaves + goes) + of("first", goes);
        QTest::newRow("a whole life") << "fwwf" << of("first", comes + sees + leaves + goes);
        QTest::newRow("to the host's end, with the window") << "fsw" << both + end;
        QTest::newRow("early gone") << "fswf"
                                    << both + of("first", leaves + goes) + of("second", leaves + goes);
        QTest::newRow("again") << "fff" << of("first", comes + goes + comes + goes);
        QTest::newRow("late, without a drawing")
            << "fws" << of("first", comes + sees) + of("second", comes + sees) + end;
        QTest::newRow("late, with two drawings")
            << "fwdds"
            << of("first", comes + sees + hears + hears) + of("second", comes + sees + hears) + end;
    }

    void aModulesLifeIsInOrder()
    {
        QFETCH(QString, story);
        QFETCH(QStringList, calls);
        QWidget window; // outlives the host
        QStringList messages;
        {
            RealHost running;
            takeCalls();
            QStringList loaded;
            bool isShown = false;
            for (const QChar step : qAsConst(story)) {
                const QString module = modulePath(step == 'f' ? "first" : "second");
                if (step == 'w')
                    running.host.setMainWindow((isShown = !isShown) ? &window : nullptr);
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
        QStringList made = takeCalls();
        QCOMPARE(made.replaceInStrings(QRegularExpression(" /.*"), ""), calls); // without the module's path
        QCOMPARE(messages, QStringList());
    }

    void aModuleGetsEveryByteOfItsName()
    {
        const QString former = QDir::currentPath();
        Modules running;
        QVERIFY(QDir::setCurrent(running.path(QString())));
        // As text, a byte order mark first and half of a surrogate pair.
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

    void whatIsNoModuleIsRefused_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("reason");
        const auto row = [](const char *name, const QString &path, const char *reason) {
            QTest::newRow(name) << path << QString(reason);
        };
        row("a missing file", "/nowhere/module.so", "no such file");
        row("a file in the system's places", "libdl.so.2", "no such file"); // which are not searched
        row("a directory", QCoreApplication::applicationDirPath(), "not a file");
        row("an empty path", "", "no such file");
        row("a FIFO", m_special.path(SpecialFile::Fifo), "");
        row("a letter", testbytes::writeFile(m_folder.filePath("text.so"), "this is a letter"), "");
        row("an empty file", testbytes::writeFile(m_folder.filePath("empty.so"), ""), "");
        for (const auto &[name, reason] : std::initializer_list<std::pair<const char *, const char *>>{
                 {"no", "odrxGetAPIVersion"},
                 {"half", "odrxCreateModuleObject"},
                 {"unresolved", "nobodyDefinesThis"},
                 {"wrong_version", "4.3.2.7"},
                 {"throws_when_asked", "no more chalk"},
                 {"throws_when_created", "no more chalk"},
                 {"creates_nothing", "no module object"},
                 {"throws_when_started", "no more chalk"}})
            row(name, modulePath(name), reason);
    }

    void whatIsNoModuleIsRefused()
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
        QVERIFY(running.manager.load(running.first)); // the host goes on
    }

    void aModuleThatThrowsAtItsEndIsUnloadedAllTheSame()
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
        deleted.sort(); // in which order is nobody's business
        QCOMPARE(deleted,
                 of("faulty", {"child deleted", "object deleted", "static deleted", "window deleted"}));
        running.commands.runLine("_LEFT");
        running.host.documents().newDocument(); // neither reaches what is gone
    }

    // By commands, and while they run.

    void modulesComeAndGoBetweenTheLines()
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

    void whatWaitsMeanwhileComesAfterTheUnloading()
    {
        Modules running;
        QVERIFY(running.manager.load(running.companion));
        const auto goAndComeBack = [&] {
            running.commands.runMacro(
                QString("MODULEUNLOAD %1;MODULELOAD %1;COMPANION").arg(running.companion));
            running.commands.cancel();
        };
        QMetaObject::invokeMethod(&running.host, goAndComeBack, Qt::QueuedConnection);
        running.commands.runLine("COMPANION wait");
        QCOMPARE(running.logged(),
                 QStringList({running.isLoaded, "command _COMPANION 5100", running.isUnloaded,
                              "command _MODULEUNLOAD 5100", running.isLoaded, "command _MODULELOAD 5100",
                              "command _COMPANION 5100"}));
        QCOMPARE(running.messages, QStringList());
    }

    void aModuleIsUnloadedByWhatNamesItAlone_data()
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

    void aModuleIsUnloadedByWhatNamesItAlone()
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
        for (const QString &path : paths) // what could have been meant
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

    void aModuleStaysWhileItsCommandRuns_data()
    {
        QTest::addColumn<Qt::ConnectionType>("when");
        QTest::newRow("when its start is told") << Qt::DirectConnection;
        QTest::newRow("in an event loop of its own") << Qt::QueuedConnection;
    }

    void aModuleStaysWhileItsCommandRuns()
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

    void aModuleGoesAsSoonAsItsCommandHasEnded()
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

    void aModuleDoesNotGoByItsOwnRequest()
    {
        Modules running;
        running.showCompanion();
        QTest::mouseClick(running.panel(), Qt::LeftButton); // in whose handler it asks to be unloaded
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

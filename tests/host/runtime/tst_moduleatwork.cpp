// SPDX-License-Identifier: MIT
#include "host/runtime/commands/CommandRunner.h"
#include "host/runtime/commands/CommandSet.h"
#include "host/runtime/commands/CommandStack.h"
#include "host/runtime/modules/ModuleManager.h"
#include "tests/support/RunningHost.h"
#include "tests/support/TestCase.h"
#include "tests/support/TestModules.h"

#include <CFxCommand.h>

#include <QWidget>

#include <optional>

using fxhost::CommandRunner;

//! When a module may be unloaded: never beneath its own code.
class TestModuleAtWork : public TestCase
{
    Q_OBJECT

private slots:
    void aModuleStaysWhileItsCommandRuns_data();
    void aModuleStaysWhileItsCommandRuns();
    void aModuleGoesAsSoonAsItsCommandHasEnded();
    void aModuleDoesNotGoByItsOwnRequest();
    void theHostsCommandsUnloadModules();
};

namespace {

//! A host with a window and the module with the panel.
struct Companions : RunningHost
{
    Companions()
    {
        if (!host.modules().load(companion))
            qFatal("the test module is not built");
        host.setMainWindow(&window);
        takeCalls();
    }
    ~Companions() { host.setMainWindow(nullptr); }
    Q_DISABLE_COPY(Companions)

    QWidget *panel() const { return window.findChild<QWidget *>(QStringLiteral("companionPanel")); }

    const QString companion = modulePath("companion");
    QWidget window;
};

} // namespace

void TestModuleAtWork::aModuleStaysWhileItsCommandRuns_data()
{
    QTest::addColumn<Qt::ConnectionType>("when");
    QTest::newRow("when its start is told") << Qt::DirectConnection;
    QTest::newRow("in an event loop of its own") << Qt::QueuedConnection;
}

void TestModuleAtWork::aModuleStaysWhileItsCommandRuns()
{
    QFETCH(Qt::ConnectionType, when);
    Companions running;
    std::optional<bool> isUnloaded;
    connect(
        &running.host.commands(), &CommandRunner::commandStarted, &running.window,
        [&] {
            isUnloaded = running.host.modules().unload(running.companion);
            running.host.commands().cancel();
        },
        when);
    running.host.commands().runLine(QStringLiteral("COMPANION wait"));
    QCOMPARE(isUnloaded, std::optional<bool>(false));
    QVERIFY(isMapped(running.companion));
    QCOMPARE(running.messages.size(), 1);
    QVERIFY2(running.messages.first().contains(running.companion), qPrintable(running.messages.first()));
    QCOMPARE(takeCalls(), QStringList(QStringLiteral("companion Execute")));
    QVERIFY(running.host.modules().unload(running.companion));
}

void TestModuleAtWork::aModuleGoesAsSoonAsItsCommandHasEnded()
{
    Companions running;
    std::optional<bool> isUnloaded;
    connect(&running.host.commands(), &CommandRunner::commandEnded, &running.window,
            [&] { isUnloaded = running.host.modules().unload(running.companion); });
    running.host.commands().runLine(QStringLiteral("COMPANION"));
    QCOMPARE(isUnloaded, std::optional<bool>(true));
    QVERIFY(!isMapped(running.companion));
}

void TestModuleAtWork::aModuleDoesNotGoByItsOwnRequest()
{
    Companions running;
    QTest::mouseClick(running.panel(), Qt::LeftButton); // in whose handler it asks to be unloaded
    QCOMPARE(takeCalls(), QStringList(QStringLiteral("companion clicked")));
    QVERIFY(running.panel());
    QCOMPARE(running.messages.size(), 1);
    QCOMPARE(running.logged().constLast(), QStringLiteral("command _MODULEUNLOAD 5102"));

    running.host.commands().runLine(QStringLiteral("MODULEUNLOAD companion_module"));
    QVERIFY(!running.panel());
    QVERIFY(!isMapped(running.companion));
    QCOMPARE(running.logged().constLast(), QStringLiteral("command _MODULEUNLOAD 5100"));
}

void TestModuleAtWork::theHostsCommandsUnloadModules()
{
    Companions running;
    std::optional<bool> isUnloaded;
    fxhost::CommandSet commands(running.host.commandStack());
    commands.add(QStringLiteral("CLEAROUT"), [&](const CFxCommandContext &) {
        isUnloaded = running.host.modules().unload(running.companion);
        return CFxCommand::normalCompletion;
    });
    running.host.commands().runLine(QStringLiteral("CLEAROUT"));
    QCOMPARE(isUnloaded, std::optional<bool>(true));
    QVERIFY(!isMapped(running.companion));
}

QTEST_MAIN(TestModuleAtWork)
#include "tst_moduleatwork.moc"

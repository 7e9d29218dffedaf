// SPDX-License-Identifier: MIT
#include "host/runtime/commands/CommandRunner.h"
#include "host/runtime/commands/CommandSet.h"
#include "tests/support/TestCase.h"
#include "tests/support/real/RealHost.h"

#include <CFxCommand.h>
#include <CFxEditorReactor.h>
#include <OdStaticRxObject.h>
#include <sdkhost/CommandStack.h>
#include <sdkhost/Editor.h>

#include <QEventLoop>
#include <QSignalSpy>

#include <memory>
#include <stdexcept>

using fxhost::CommandRun;
using fxhost::CommandRunner;
using fxhost::CommandSet;
using fxhost::CommandStack;

namespace {

struct ReleaseRun
{
    void operator()(CommandRun *run) const { run->release(); }
};
using RunHandle = std::unique_ptr<CommandRun, ReleaseRun>;

class CommandListener : public CFxEditorReactor
{
public:
    void commandWillStart(const OdString &name) override
    {
        events << "start " + QString::fromWCharArray(name.c_str());
    }
    void commandEnded(const OdString &name, int result) override
    {
        events << QString("end %1 %2").arg(QString::fromWCharArray(name.c_str())).arg(result);
    }

    QStringList events;
};

//! A host with commands: ECHO and WAIT, which waits until it is cancelled, record their runs; FAIL, THROW and
//! THROWNUMBER fail.
class Commands : public RealHost
{
public:
    CommandRunner &runner = host.commands();
    QStringList runs;

    Commands()
    {
        m_set.add("ECHO", [this](const CFxCommandContext &context) {
            runs << "ECHO " + context.argument();
            return CFxCommand::normalCompletion;
        });
        m_set.add("WAIT", [this](const CFxCommandContext &context) {
            runs << "WAIT begins";
            QEventLoop loop;
            QObject::connect(&runner, &CommandRunner::cancelRequested, &loop, &QEventLoop::quit);
            if (!context.isCancelled())
                loop.exec();
            runs << "WAIT ends";
            return context.isCancelled() ? CFxCommand::cancelled : CFxCommand::normalCompletion;
        });
        m_set.add("FAIL", [](const CFxCommandContext &) { return CFxCommand::failed; });
        m_set.add("THROW", [](const CFxCommandContext &) -> int { throw std::runtime_error("paper jam"); });
        m_set.add("THROWNUMBER", [](const CFxCommandContext &) -> int { throw 42; });
    }

    //! Calls action as soon as the next command waits in its event loop.
    template<class Action>
    void whileItWaits(Action action)
    {
        QMetaObject::invokeMethod(&runner, action, Qt::QueuedConnection);
    }

private:
    CommandSet m_set{host.commandStack()};
};

class CountedCommand : public CFxCommand
{
public:
    CountedCommand(const OdChar *globalName, const OdChar *localName, const OdChar *group = L"FX_COMMANDS")
        : m_globalName(globalName), m_localName(localName), m_group(group)
    {
    }

    OdString groupName() const override { return m_group; }
    OdString globalName() const override { return m_globalName; }
    OdString localName() const override { return m_localName; }
    int Execute(CFxCommandContext *) override { return normalCompletion; }
    void undefine() override { ++undefined; }
    void addRef() override { ++references; }
    void release() override { --references; }
    int numRefs() const override { return references; }

    int references = 1;
    int undefined = 0;

private:
    OdString m_globalName;
    OdString m_localName;
    OdString m_group;
};

} // namespace

class tst_CommandRunner : public TestCase
{
    Q_OBJECT

private slots:
    void aLineRunsItsCommand_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QStringList>("runs");
        QTest::addColumn<QStringList>("logged");
        const auto echo = [](const char *name, const char *line, const char *argument) {
            QTest::newRow(name) << QString(line) << QStringList(QString("ECHO ") + argument)
                                << QStringList("command _ECHO 5100");
        };
        echo("global name", "_ECHO hello", "hello");
        echo("local name", "ECHO hello", "hello");
        echo("lower case", "_echo hello", "hello");
        echo("mixed case without the underscore", "Echo hello", "hello");
        echo("no argument", "ECHO", "");
        echo("blanks around", "  ECHO \t a b  ", "a b");
        echo("blanks within stay", "ECHO a   b", "a   b");
        echo("quotes and semicolons stay", "ECHO \"/a;b.dwg\"", "\"/a;b.dwg\"");
        echo("a caret within stays", "ECHO ^C", "^C");
        echo("leading cancels", "^C^cECHO x", "x");
        echo("astral characters", "ECHO \U0001F4D0", "\U0001F4D0");
        QTest::newRow("nothing") << "   " << QStringList() << QStringList();
        QTest::newRow("a cancel alone") << "^C" << QStringList() << QStringList();
        // Its local name is different, so that only the global name can match.
        QTest::newRow("the global name without its underscore")
            << "circle" << QStringList() << QStringList("command _CIRCLE 5100");
    }

    void aLineRunsItsCommand()
    {
        QFETCH(QString, line);
        QFETCH(QStringList, runs);
        QFETCH(QStringList, logged);
        Commands commands;
        CountedCommand circle(L"_CIRCLE", L"KREIS");
        commands.host.commandStack().addCommand(&circle);
        commands.runner.runLine(line);
        commands.host.commandStack().removeCommand(&circle);
        QCOMPARE(commands.runs, runs);
        QCOMPARE(commands.logged(), logged);
        QCOMPARE(commands.messages, QStringList());
        QCOMPARE(circle.references, 1);
    }

    void unknownCommandIsReportedWithTheNearestName_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("meant");
        const auto row = [](const char *name, const QString &typed, const char *meant) {
            QTest::newRow(name) << typed << QString(meant);
        };
        row("a letter too few", "_RECNTADD", "_RECENTADD");
        row("a letter too many", "eccho", "_ECHO");
        row("two in the wrong order", "OEPN", "_OPEN");
        row("the nearest of several", "throwit", "_THROW");
        row("another word", "SCRIBBLE", "");
        row("a letter", "X", "");
        row("a placeholder", "Nonsense%1", "");
        row("a null character and more", QString("ECHO") + QChar::Null + "ES", "_ECHO");
    }

    void unknownCommandIsReportedWithTheNearestName()
    {
        QFETCH(QString, typed);
        QFETCH(QString, meant);
        Commands commands;
        const RunHandle run(commands.runner.run(typed));
        const QString message = "There is no command \"" + typed + "\".";
        QCOMPARE(commands.messages,
                 QStringList(meant.isEmpty() ? message : message + " Did you mean " + meant + '?'));
        QCOMPARE(commands.logged(),
                 QStringList("command " + QString(typed).replace(QChar::Null, "%00") + " unknown"));
        QCOMPARE(commands.runs, QStringList());
        QVERIFY(commands.runner.isIdle());
    }

    void commandThatThrowsFails()
    {
        Commands commands;
        const RunHandle run(commands.runner.run("THROW"));
        QCOMPARE(run->result(), CFxCommand::failed);
        commands.runner.runLine("THROWNUMBER");
        commands.runner.runLine("ECHO still here");
        QCOMPARE(commands.messages, QStringList({"The command _THROW failed: paper jam",
                                                 "The command _THROWNUMBER failed: unknown exception"}));
        QCOMPARE(commands.logged(),
                 QStringList({"command _THROW 5102", "command _THROWNUMBER 5102", "command _ECHO 5100"}));
    }

    void commandWhoseNameThrowsFails()
    {
        struct Nameless : OdStaticRxObject<CFxCommand>
        {
            OdString globalName() const override
            {
                if (isNameless)
                    throw std::runtime_error("no name");
                return L"_NAMELESS";
            }
            OdString localName() const override { return globalName(); }
            int Execute(CFxCommandContext *) override { return normalCompletion; }
            bool isNameless = false;
        } nameless;
        Commands commands;
        commands.host.commandStack().addCommand(&nameless);
        nameless.isNameless = true;
        const RunHandle run(commands.runner.run("NAMELESS"));
        nameless.isNameless = false;
        QCOMPARE(run->result(), CFxCommand::failed);
        QVERIFY(commands.runner.isIdle());
        commands.runner.runLine("NAMELESS");
        QCOMPARE(commands.logged(), QStringList({"command NAMELESS 5102", "command _NAMELESS 5100"}));
        QCOMPARE(commands.messages.size(), 1);
        commands.host.commandStack().removeCommand(&nameless);
    }

    void reactorsAndSignalsReportStartAndEnd()
    {
        Commands commands;
        CommandListener listener;
        commands.host.editor().addReactor(&listener);
        QSignalSpy started(&commands.runner, &CommandRunner::commandStarted);
        QSignalSpy ended(&commands.runner, &CommandRunner::commandEnded);
        QSignalSpy idle(&commands.runner, &CommandRunner::idle);
        commands.runner.runLine("fail now");
        commands.host.editor().removeReactor(&listener);
        QCOMPARE(listener.events, QStringList({"start _FAIL", "end _FAIL 5102"}));
        QCOMPARE(started, QList<QVariantList>({QVariantList({"_FAIL", "now"})}));
        QCOMPARE(ended, QList<QVariantList>({QVariantList({"_FAIL", 5102})}));
        QCOMPARE(idle.size(), 1);
    }

    void commandsRequestedMeanwhileWait()
    {
        Commands commands;
        RunHandle second;
        RunHandle third;
        commands.whileItWaits([&] {
            QVERIFY(commands.runner.isRunning());
            second.reset(commands.runner.run("ECHO", "second"));
            third.reset(commands.runner.run("ECHO", "third"));
            QVERIFY(!commands.runner.isIdle());
            commands.runner.cancel();
        });

        const RunHandle first(commands.runner.run("WAIT"));

        QCOMPARE(commands.runs, QStringList({"WAIT begins", "WAIT ends", "ECHO second", "ECHO third"}));
        QCOMPARE(first->result(), CFxCommand::cancelled);
        QCOMPARE(third->result(), CFxCommand::normalCompletion);
        QCOMPARE(third->numRefs(), 1);
        QVERIFY(commands.runner.isIdle());
    }

    void macroCancelsTheRunningCommand()
    {
        Commands commands;
        commands.whileItWaits([&] { commands.runner.runMacro("^C^C_ECHO after"); });
        commands.runner.runLine("WAIT");
        QCOMPARE(commands.runs, QStringList({"WAIT begins", "WAIT ends", "ECHO after"}));
        QCOMPARE(commands.logged(), QStringList({"command _WAIT 5101", "command _ECHO 5100"}));
    }

    void commandMayRequestAnother()
    {
        Commands commands;
        CommandSet more(commands.host.commandStack());
        more.add("OUTER", [&](const CFxCommandContext &) {
            const CFxString argument(L"inner");
            GetFxSystemServices()->RunCommand(L"_ECHO", &argument)->release();
            GetFxSystemServices()->RunCommand(L"_ECHO", nullptr)->release(); // gets an empty argument
            commands.runs << "OUTER continues";
            return CFxCommand::normalCompletion;
        });
        commands.runner.runLine("OUTER");
        QCOMPARE(commands.runs, QStringList({"OUTER continues", "ECHO inner", "ECHO "}));
    }

    void nothingRunsAfterStop()
    {
        Commands commands;
        RunHandle waiting;
        commands.whileItWaits([&] {
            waiting.reset(commands.runner.run("ECHO"));
            commands.runner.stop();
        });
        commands.runner.runLine("WAIT");
        QCOMPARE(waiting->numRefs(), 1);
        QCOMPARE(commands.runner.run("ECHO"), nullptr);
        commands.runner.runLine("ECHO");
        QCOMPARE(commands.runs, QStringList({"WAIT begins", "WAIT ends"}));
    }

    // The stack in which the runner finds commands.

    void aCommandIsFoundByItsNames_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("flags");
        QTest::addColumn<QString>("group");
        QTest::addColumn<bool>("found");
        QTest::newRow("global name") << "_CIRCLE" << 1 << "" << true;
        QTest::newRow("local name") << "KREIS" << 2 << "" << true;
        QTest::newRow("either name") << "KREIS" << 3 << "" << true;
        QTest::newRow("any case") << "_Circle" << 3 << "" << true;
        QTest::newRow("global name among local ones") << "_CIRCLE" << 2 << "" << false;
        QTest::newRow("local name among global ones") << "KREIS" << 1 << "" << false;
        QTest::newRow("no kind of name") << "_CIRCLE" << 0 << "" << false;
        QTest::newRow("the right group") << "_CIRCLE" << 3 << "fx_commands" << true;
        QTest::newRow("another group") << "_CIRCLE" << 3 << "OTHER" << false;
        QTest::newRow("another name") << "_LINE" << 3 << "" << false;
        QTest::newRow("an empty name") << "" << 3 << "" << false;
    }

    void aCommandIsFoundByItsNames()
    {
        QFETCH(QString, name);
        QFETCH(int, flags);
        QFETCH(QString, group);
        QFETCH(bool, found);
        CountedCommand circle(L"_CIRCLE", L"KREIS");
        CommandStack stack;
        stack.addCommand(&circle);
        OdEdCommand *const command =
            stack.lookupCommand(OdString(name.toStdWString()), flags, OdString(group.toStdWString()));
        QCOMPARE(command != nullptr, found);
        QCOMPARE(circle.references, found ? 3 : 2); // the test's, the stack's and the returned one
    }

    void namesAndGroupIdentifyACommand()
    {
        CountedCommand circle(L"_CIRCLE", L"KREIS");
        CountedCommand sameGlobalName(L"_CIRCLE", L"CERCLE");
        CountedCommand otherGroup(L"_CIRCLE", L"KREIS", L"OTHER");
        CountedCommand key(L"_circle", L"kreis");
        using List = std::vector<OdEdCommand *>;
        CommandStack stack;
        stack.addCommand(&circle);
        stack.removeCommand(&sameGlobalName);
        stack.removeCommand(&otherGroup);
        QCOMPARE(stack.commands(), List({&circle}));
        stack.removeCommand(&key);
        QCOMPARE(stack.commands(), List());
        QCOMPARE(circle.references, 1);
        QCOMPARE(circle.undefined, 1);
        QCOMPARE(key.undefined, 0);

        // A command replaces one of the same global name, but not one of another group.
        stack.addCommand(&key);
        stack.addCommand(&otherGroup);
        stack.addCommand(&sameGlobalName);
        QCOMPARE(stack.commands(), List({&sameGlobalName, &otherGroup}));
        QCOMPARE(key.references, 1);
        QCOMPARE(key.undefined, 1);
        QCOMPARE(sameGlobalName.references, 2);
        QCOMPARE(stack.lookupCommand(L"_CIRCLE", OdEdCommandStack::GlobalNames, L"OTHER"), &otherGroup);
        QCOMPARE(stack.lookupCommand(L"_CIRCLE", OdEdCommandStack::GlobalNames, L""), &sameGlobalName);
    }
};

TEST_CLASS(tst_CommandRunner);
#include "tst_commandrunner.moc"

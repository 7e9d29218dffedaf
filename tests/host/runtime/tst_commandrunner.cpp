// SPDX-License-Identifier: MIT
#include "host/runtime/commands/CommandRunner.h"
#include "host/runtime/commands/CommandSet.h"
#include "host/runtime/commands/CommandStack.h"
#include "host/runtime/editor/Editor.h"
#include "tests/support/RunningHost.h"
#include "tests/support/TestCase.h"

#include <CFxCommand.h>
#include <CFxEditorReactor.h>
#include <OdStaticRxObject.h>

#include <QEventLoop>
#include <QSignalSpy>

#include <memory>
#include <stdexcept>

using fxhost::CommandRun;
using fxhost::CommandRunner;
using fxhost::CommandSet;

namespace {

struct Release
{
    void operator()(CommandRun *run) const { run->release(); }
};
using RunHandle = std::unique_ptr<CommandRun, Release>;

class CommandListener : public CFxEditorReactor
{
public:
    void commandWillStart(const OdString &name) override
    {
        events << QLatin1String("start ") + QString::fromWCharArray(name.c_str());
    }
    void commandEnded(const OdString &name, int result) override
    {
        events << QStringLiteral("end %1 %2").arg(QString::fromWCharArray(name.c_str())).arg(result);
    }

    QStringList events;
};

//! A host with commands that write down their runs: ECHO; WAIT, which waits until it is cancelled; FAIL;
//! THROW.
class Commands : public RunningHost
{
public:
    CommandRunner &runner = host.commands();
    QStringList runs;

    Commands()
    {
        m_set.add(QStringLiteral("ECHO"), [this](const CFxCommandContext &context) {
            runs << QStringLiteral("ECHO ") + context.argument();
            return CFxCommand::normalCompletion;
        });
        m_set.add(QStringLiteral("WAIT"), [this](const CFxCommandContext &context) {
            runs << QStringLiteral("WAIT begins");
            QEventLoop loop;
            QObject::connect(&runner, &CommandRunner::cancelRequested, &loop, &QEventLoop::quit);
            if (!context.isCancelled())
                loop.exec();
            runs << QStringLiteral("WAIT ends");
            return context.isCancelled() ? CFxCommand::cancelled : CFxCommand::normalCompletion;
        });
        m_set.add(QStringLiteral("FAIL"), [](const CFxCommandContext &) { return CFxCommand::failed; });
        m_set.add(QStringLiteral("THROW"),
                  [](const CFxCommandContext &) -> int { throw std::runtime_error("paper jam"); });
        m_set.add(QStringLiteral("THROWNUMBER"), [](const CFxCommandContext &) -> int { throw 42; });
    }

    //! Does something as soon as the next command waits in its event loop.
    template<class Action>
    void whileItWaits(Action action)
    {
        QMetaObject::invokeMethod(&runner, action, Qt::QueuedConnection);
    }

private:
    CommandSet m_set{host.commandStack()};
};

} // namespace

class TestCommandRunner : public TestCase
{
    Q_OBJECT

private slots:
    void aNameMeansTheCommand_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("global name") << QStringLiteral("_ECHO");
        QTest::newRow("local name") << QStringLiteral("ECHO");
        QTest::newRow("lower case") << QStringLiteral("_echo");
        QTest::newRow("mixed case without the underscore") << QStringLiteral("Echo");
    }

    void aNameMeansTheCommand()
    {
        QFETCH(QString, name);
        Commands commands;
        const RunHandle run(commands.runner.run(name, QStringLiteral("hello")));
        QCOMPARE(commands.runs, QStringList(QStringLiteral("ECHO hello")));
        QCOMPARE(run->state(), CommandRun::State::Ended);
        QCOMPARE(run->result(), CFxCommand::normalCompletion);
        QCOMPARE(run->numRefs(), 1);
        QCOMPARE(commands.logged(), QStringList(QStringLiteral("command _ECHO 5100")));
    }

    void aGlobalNameCanBeTypedWithoutItsUnderscore()
    {
        // The local name of this one is another, so that only the underscore can lead to it.
        Commands commands;
        class Circle : public CFxCommand
        {
        public:
            OdString globalName() const override { return L"_CIRCLE"; }
            OdString localName() const override { return L"KREIS"; }
            int Execute(CFxCommandContext *) override { return 7; }
            void addRef() override {}
            void release() override {}
            int numRefs() const override { return 1; }
        } circle;
        commands.host.commandStack().addCommand(&circle);
        commands.runner.runLine(QStringLiteral("circle"));
        commands.host.commandStack().removeCommand(&circle);
        QCOMPARE(commands.logged(), QStringList(QStringLiteral("command _CIRCLE 7")));
    }

    void aLineIsANameAndAnArgument_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("argument");
        QTest::newRow("no argument") << QStringLiteral("ECHO") << QString();
        QTest::newRow("blanks around") << QStringLiteral("  ECHO \t a b  ") << QStringLiteral("a b");
        QTest::newRow("blanks within stay") << QStringLiteral("ECHO a   b") << QStringLiteral("a   b");
        QTest::newRow("quotes and semicolons stay")
            << QStringLiteral("ECHO \"/a;b.dwg\"") << QStringLiteral("\"/a;b.dwg\"");
        QTest::newRow("a caret within stays") << QStringLiteral("ECHO ^C") << QStringLiteral("^C");
        QTest::newRow("leading cancels") << QStringLiteral("^C^cECHO x") << QStringLiteral("x");
        QTest::newRow("astral characters")
            << QStringLiteral("ECHO \U0001F4D0") << QStringLiteral("\U0001F4D0");
    }

    void aLineIsANameAndAnArgument()
    {
        QFETCH(QString, line);
        QFETCH(QString, argument);
        Commands commands;
        commands.runner.runLine(line);
        QCOMPARE(commands.runs, QStringList(QStringLiteral("ECHO ") + argument));
    }

    void anEmptyLineDoesNothing()
    {
        Commands commands;
        commands.runner.runLine(QStringLiteral("   "));
        commands.runner.runLine(QStringLiteral("^C"));
        QVERIFY(commands.logged().isEmpty());
        QVERIFY(commands.messages.isEmpty());
    }

    void aMacroRunsItsCommandsInOrder()
    {
        Commands commands;
        commands.runner.runMacro(QStringLiteral("^C^C_ECHO one;_ECHO two\n_ECHO three;"));
        QCOMPARE(commands.runs, QStringList({QStringLiteral("ECHO one"), QStringLiteral("ECHO two"),
                                             QStringLiteral("ECHO three")}));
    }

    void anUnknownCommandIsToldAndLogged()
    {
        Commands commands;
        const RunHandle run(commands.runner.run(QStringLiteral("Nonsense%1")));
        QCOMPARE(run->state(), CommandRun::State::Unknown);
        QCOMPARE(commands.messages.size(), 1);
        QVERIFY(commands.messages.first().contains(QLatin1String("Nonsense%1")));
        QCOMPARE(commands.logged(), QStringList(QStringLiteral("command Nonsense%1 unknown")));
        QVERIFY(commands.runner.isIdle());
    }

    void theNearestCommandIsNamed_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("meant");
        QTest::newRow("a letter too few") << "_RECNTADD"
                                          << "_RECENTADD";
        QTest::newRow("a letter too many") << "eccho"
                                           << "_ECHO";
        QTest::newRow("two in the wrong order") << "OEPN"
                                                << "_OPEN";
        QTest::newRow("the nearest of several") << "throwit"
                                                << "_THROW";
        QTest::newRow("another word") << "SCRIBBLE"
                                      << "";
        QTest::newRow("a letter") << "X"
                                  << "";
    }

    void theNearestCommandIsNamed()
    {
        QFETCH(QString, typed);
        QFETCH(QString, meant);
        Commands commands;
        commands.runner.runLine(typed);
        const QString told = QStringLiteral("There is no command \"%1\".").arg(typed);
        QCOMPARE(commands.messages,
                 QStringList(meant.isEmpty() ? told : told + QStringLiteral(" Did you mean %1?").arg(meant)));
    }

    void aNullCharacterMakesAnotherName()
    {
        Commands commands;
        const QString name = QStringLiteral("ECHO") + QChar::Null + QStringLiteral("ES");
        const RunHandle run(commands.runner.run(name));
        QCOMPARE(run->state(), CommandRun::State::Unknown);
        QCOMPARE(commands.runs, QStringList());
        QCOMPARE(commands.logged(), QStringList(QStringLiteral("command ECHO%00ES unknown")));
    }

    void aCommandThatThrowsHasFailed()
    {
        Commands commands;
        const RunHandle run(commands.runner.run(QStringLiteral("THROW")));
        QCOMPARE(run->result(), CFxCommand::failed);
        QCOMPARE(commands.messages.size(), 1);
        QVERIFY(commands.messages.first().contains(QLatin1String("_THROW")));
        QVERIFY(commands.messages.first().contains(QLatin1String("paper jam")));
        commands.runner.runLine(QStringLiteral("THROWNUMBER"));
        commands.runner.runLine(QStringLiteral("ECHO still here"));
        QCOMPARE(commands.logged(), QStringList({QStringLiteral("command _THROW 5102"),
                                                 QStringLiteral("command _THROWNUMBER 5102"),
                                                 QStringLiteral("command _ECHO 5100")}));
    }

    void aCommandThatCannotTellItsNameHoldsUpNothing()
    {
        struct Nameless : OdStaticRxObject<CFxCommand>
        {
            OdString globalName() const override
            {
                if (isNameless)
                    throw std::runtime_error("what was it");
                return L"_NAMELESS";
            }
            OdString localName() const override { return globalName(); }
            int Execute(CFxCommandContext *) override { return normalCompletion; }
            bool isNameless = false;
        } nameless;
        Commands commands;
        commands.host.commandStack().addCommand(&nameless);
        nameless.isNameless = true;
        const RunHandle run(commands.runner.run(QStringLiteral("NAMELESS")));
        nameless.isNameless = false;
        QCOMPARE(run->result(), CFxCommand::failed);
        QVERIFY(commands.runner.isIdle());
        commands.runner.runLine(QStringLiteral("NAMELESS"));
        QCOMPARE(commands.logged(), QStringList({QStringLiteral("command NAMELESS 5102"),
                                                 QStringLiteral("command _NAMELESS 5100")}));
        QCOMPARE(commands.messages.size(), 1);
        commands.host.commandStack().removeCommand(&nameless);
    }

    void reactorsAndSignalsTellOfStartAndEnd()
    {
        Commands commands;
        CommandListener listener;
        commands.host.editor().addReactor(&listener);
        QSignalSpy started(&commands.runner, &CommandRunner::commandStarted);
        QSignalSpy ended(&commands.runner, &CommandRunner::commandEnded);
        QSignalSpy idle(&commands.runner, &CommandRunner::idle);

        commands.runner.runLine(QStringLiteral("fail now"));

        commands.host.editor().removeReactor(&listener);
        QCOMPARE(listener.events,
                 QStringList({QStringLiteral("start _FAIL"), QStringLiteral("end _FAIL 5102")}));
        QCOMPARE(started,
                 QList<QVariantList>({QVariantList({QStringLiteral("_FAIL"), QStringLiteral("now")})}));
        QCOMPARE(ended, QList<QVariantList>({QVariantList({QStringLiteral("_FAIL"), 5102})}));
        QCOMPARE(idle.size(), 1);
    }

    void whatIsAskedForWhileACommandRunsWaits()
    {
        Commands commands;
        RunHandle second;
        RunHandle third;
        commands.whileItWaits([&] {
            QVERIFY(commands.runner.isRunning());
            second.reset(commands.runner.run(QStringLiteral("ECHO"), QStringLiteral("second")));
            third.reset(commands.runner.run(QStringLiteral("ECHO"), QStringLiteral("third")));
            QCOMPARE(second->state(), CommandRun::State::Waiting);
            QVERIFY(!commands.runner.isIdle());
            commands.runner.cancel();
        });

        const RunHandle first(commands.runner.run(QStringLiteral("WAIT")));

        QCOMPARE(commands.runs, QStringList({QStringLiteral("WAIT begins"), QStringLiteral("WAIT ends"),
                                             QStringLiteral("ECHO second"), QStringLiteral("ECHO third")}));
        QCOMPARE(first->result(), CFxCommand::cancelled);
        QCOMPARE(third->result(), CFxCommand::normalCompletion);
        QVERIFY(commands.runner.isIdle());
    }

    void aMacroCancelsWhatRuns()
    {
        Commands commands;
        commands.whileItWaits([&] { commands.runner.runMacro(QStringLiteral("^C^C_ECHO after")); });
        commands.runner.runLine(QStringLiteral("WAIT"));
        QCOMPARE(commands.runs, QStringList({QStringLiteral("WAIT begins"), QStringLiteral("WAIT ends"),
                                             QStringLiteral("ECHO after")}));
        QCOMPARE(commands.logged(),
                 QStringList({QStringLiteral("command _WAIT 5101"), QStringLiteral("command _ECHO 5100")}));
    }

    void aCommandMayAskForAnother()
    {
        Commands commands;
        CommandSet more(commands.host.commandStack());
        more.add(QStringLiteral("OUTER"), [&](const CFxCommandContext &) {
            const CFxString argument(QStringLiteral("inner"));
            OdRxObject *const run = GetFxSystemServices()->RunCommand(QStringLiteral("_ECHO"), &argument);
            commands.runs << QStringLiteral("OUTER goes on");
            run->release();
            return CFxCommand::normalCompletion;
        });
        commands.runner.runLine(QStringLiteral("OUTER"));
        QCOMPARE(commands.runs, QStringList({QStringLiteral("OUTER goes on"), QStringLiteral("ECHO inner")}));
    }

    void aCommandWithoutAnArgumentGetsAnEmptyOne()
    {
        Commands commands;
        GetFxSystemServices()->RunCommand(QStringLiteral("ECHO"), nullptr)->release();
        QCOMPARE(commands.runs, QStringList(QStringLiteral("ECHO ")));
    }

    void afterTheStopNothingRunsAnyMore()
    {
        Commands commands;
        RunHandle waiting;
        commands.whileItWaits([&] {
            waiting.reset(commands.runner.run(QStringLiteral("ECHO")));
            commands.runner.stop();
        });
        commands.runner.runLine(QStringLiteral("WAIT"));
        QCOMPARE(waiting->state(), CommandRun::State::Dropped);
        QCOMPARE(waiting->numRefs(), 1);
        QCOMPARE(commands.runner.run(QStringLiteral("ECHO")), nullptr);
        commands.runner.runLine(QStringLiteral("ECHO"));
        QCOMPARE(commands.runs, QStringList({QStringLiteral("WAIT begins"), QStringLiteral("WAIT ends")}));
    }
};

QTEST_MAIN(TestCommandRunner)
#include "tst_commandrunner.moc"

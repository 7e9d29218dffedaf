// SPDX-License-Identifier: MIT
#include "host/app/ScriptRunner.h"
#include "host/runtime/Paths.h"
#include "tests/host/app/ShownProgram.h"

using namespace fxhost;

namespace {

//! A script in the program.
struct LoadedScript
{
    explicit LoadedScript(const QByteArray &content)
        : problem(runner.load(testbytes::writeFile(program.dir.filePath("script"), content)).reason())
    {
    }

    ShownProgram program;
    ScriptRunner runner{program.host.commands()};
    QString problem;
};

} // namespace

class tst_ScriptRunner : public TestCase
{
    Q_OBJECT

private slots:
    void linesAreRead_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QStringList>("lines");
        QTest::newRow("comments and blank lines are omitted")
            << QByteArray("# a comment\n\n  \t\n\r\n  _NEW  \r\n\t#_NEW\n_CLOSE")
            << QStringList{"_NEW", "_CLOSE"};
        QTest::newRow("a zero byte does not end a line")
            << QByteArray("_NEW\0W\n_CLOSE\n", 14)
            << QStringList{QString::fromLatin1("_NEW\0W", 6), "_CLOSE"};
        QTest::newRow("files are named by their bytes")
            << QByteArray("\xef\xbb\xbf# a comment\n_OPEN /gr\xfcn \xc3\xa4.dwg\n")
            << QStringList{QString("_OPEN ") + pathFromBytes("/gr\xfcn \xc3\xa4.dwg")};
    }

    void linesAreRead()
    {
        QFETCH(QByteArray, content);
        LoadedScript script(content);
        QCOMPARE(script.problem, QString());
        QTEST(script.runner.lines(), "lines");
        drainEvents();
        QVERIFY(!script.program.host.documents().current()); // nothing runs before the start
    }

    void aScriptThatCannotBeReadIsRefused()
    {
        LoadedScript script("");
        QVERIFY(!script.runner.load(script.program.dir.filePath("missing")));
        QVERIFY(!script.runner.load(script.program.dir.path()));
        QCOMPARE(script.runner.lines(), QStringList());
    }

    void aLineThatRunsNothingDoesNotDelayTheNext()
    {
        for (const char *content : {"^C\n^C\n_NEW\n", "_NOSUCH\n_NOSUCH\n_NEW\n"}) {
            LoadedScript script(content);
            QVERIFY(script.program.active);
            script.runner.startWhenActive(&script.program.window);
            QTRY_VERIFY(script.program.host.documents().current());
        }
    }

    void aLineWaitsForTheOneBeforeIt()
    {
        LoadedScript script("_DELAY 600000\n_NEW\n");
        QVERIFY(script.program.active);
        CommandRunner &commands = script.program.host.commands();
        ScriptRunner &runner = script.runner;
        MainWindow &window = script.program.window;
        const QSignalSpy ended(&commands, &CommandRunner::commandEnded);
        QStringList left;
        connect(
            &commands, &CommandRunner::commandStarted, &window,
            [&](const QString &name) {
                if (name != "_DELAY")
                    return;
                runner.startWhenActive(&window); // as when the window becomes active again
                drainEvents();
                left = runner.lines();
                commands.cancel();
            },
            Qt::QueuedConnection); // from the event loop in which the command waits
        runner.startWhenActive(&window);
        QTRY_COMPARE(ended.count(), 2);
        QCOMPARE(left, QStringList("_NEW"));
        QVERIFY(script.program.host.documents().current());
    }
};

TEST_CLASS(tst_ScriptRunner);
#include "tst_scriptrunner.moc"

// SPDX-License-Identifier: MIT
#include "host/app/ScriptRunner.h"
#include "host/runtime/Paths.h"
#include "tests/host/app/ShownProgram.h"

#include <QSignalSpy>

using namespace fxhost;

//! A script in the program, in the test's own process.
class ScriptRunnerTest : public TestCase
{
    Q_OBJECT

private slots:
    void linesThatSayNothingAreLeftOut()
    {
        ShownProgram program;
        ScriptRunner script(program.host.commands());
        QCOMPARE(script.load(written(program, "# a comment\n\n  \t\n  _NEW  \r\n\t#_NEW\n_CLOSE")),
                 QString());
        QCOMPARE(script.lines(), QStringList({"_NEW", "_CLOSE"}));
    }

    void aZeroByteHidesNothing()
    {
        ShownProgram program;
        ScriptRunner script(program.host.commands());
        QCOMPARE(script.load(written(program, QByteArray("_NEW\0W\n_CLOSE\n", 14))), QString());
        QCOMPARE(script.lines(), QStringList({QString::fromLatin1("_NEW\0W", 6), "_CLOSE"}));
    }

    void aScriptNamesFilesByTheirBytes()
    {
        ShownProgram program;
        ScriptRunner script(program.host.commands());
        QCOMPARE(script.load(written(program, "\xef\xbb\xbf# a comment\n_OPEN /gr\xfcn \xc3\xa4.dwg\n")),
                 QString());
        QCOMPARE(script.lines(),
                 QStringList(QLatin1String("_OPEN ") + pathFromBytes("/gr\xfcn \xc3\xa4.dwg")));
    }

    void aScriptThatCannotBeReadSaysWhy()
    {
        ShownProgram program;
        ScriptRunner script(program.host.commands());
        QVERIFY(!script.load(program.dir.filePath(QStringLiteral("missing"))).isEmpty());
        QVERIFY(!script.load(program.dir.path()).isEmpty());
        QCOMPARE(script.lines(), QStringList());
    }

    void aLineThatRunsNothingDoesNotHoldUpTheNext_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::newRow("a mere ^C") << QByteArray("^C");
        QTest::newRow("an unknown command") << QByteArray("_NOSUCH");
    }

    void aLineThatRunsNothingDoesNotHoldUpTheNext()
    {
        QFETCH(QByteArray, line);
        ShownProgram program;
        QVERIFY(program.active);
        ScriptRunner script(program.host.commands());
        QCOMPARE(script.load(written(program, line + "\n" + line + "\n_NEW\n")), QString());
        script.startWhenActive(&program.window);
        QTRY_VERIFY(program.host.documents().current());
    }

    void aLineWaitsForTheOneBeforeIt()
    {
        ShownProgram program;
        QVERIFY(program.active);
        const QSignalSpy ended(&program.host.commands(), &CommandRunner::commandEnded);
        ScriptRunner script(program.host.commands());
        QCOMPARE(script.load(written(program, "_DELAY 600000\n_NEW\n")), QString());
        QStringList left;
        connect(
            &program.host.commands(), &CommandRunner::commandStarted, &program.window,
            [&](const QString &name) {
                if (name != QLatin1String("_DELAY"))
                    return;
                script.startWhenActive(&program.window); // as when the window becomes active once more
                drainEvents();
                left = script.lines();
                program.host.commands().cancel();
            },
            Qt::QueuedConnection); // from the event loop in which the command waits
        script.startWhenActive(&program.window);
        QTRY_COMPARE(ended.count(), 2);
        QCOMPARE(left, QStringList("_NEW"));
        QVERIFY(program.host.documents().current());
    }

    void nothingRunsBeforeTheStart()
    {
        ShownProgram program;
        ScriptRunner script(program.host.commands());
        QCOMPARE(script.load(written(program, "_NEW\n")), QString());
        drainEvents();
        QVERIFY(!program.host.documents().current());
    }

private:
    static QString written(const ShownProgram &program, const QByteArray &content)
    {
        return testbytes::writeFile(program.dir.filePath(QStringLiteral("script")), content);
    }
};

QTEST_MAIN(ScriptRunnerTest)

#include "tst_scriptrunner.moc"

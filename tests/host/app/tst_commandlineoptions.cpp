// SPDX-License-Identifier: MIT
#include "host/app/CommandLineOptions.h"
#include "tests/support/TestCase.h"

using fxhost::CommandLineResult;
using fxhost::readCommandLine;
using Wish = CommandLineResult::Wish;

//! What the program's arguments mean, and which of them it refuses.
class CommandLineOptionsTest : public TestCase
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QCoreApplication::setApplicationName(QStringLiteral("fxhost"));
        QCoreApplication::setApplicationVersion(QStringLiteral("7.8.9"));
    }

    void noArgumentsMeanAnOrdinaryStart()
    {
        const CommandLineResult result = read({});
        QCOMPARE(result.wish, Wish::Start);
        QVERIFY(!result.options.modules);
        QVERIFY(result.options.newDocument);
        QCOMPARE(result.options.profileDir, QString());
        QCOMPARE(result.options.scriptFile, QString());
        QCOMPARE(result.options.logFile, QString());
        QVERIFY(!result.options.windowSize);
        QVERIFY(!result.options.windowPosition);
        QCOMPARE(result.options.drawings, QStringList());
    }

    void everyOptionReachesItsPlace()
    {
        const CommandLineResult result =
            read({"--module", "a.so", "--module=b.so", "--profile", "/p", "--script", "s.scr", "--log",
                  "l.txt", "--no-document", "--geometry", "800x600+10+20", "one.dwg", "two words.dwg"});
        QCOMPARE(result.wish, Wish::Start);
        QCOMPARE(result.options.modules.value(), QStringList({"a.so", "b.so"}));
        QCOMPARE(result.options.profileDir, QStringLiteral("/p"));
        QCOMPARE(result.options.scriptFile, QStringLiteral("s.scr"));
        QCOMPARE(result.options.logFile, QStringLiteral("l.txt"));
        QVERIFY(!result.options.newDocument);
        QCOMPARE(result.options.windowSize.value(), QSize(800, 600));
        QCOMPARE(result.options.windowPosition.value(), QPoint(10, 20));
        QCOMPARE(result.options.drawings, QStringList({"one.dwg", "two words.dwg"}));
    }

    void noModuleIsAnEmptyListAndNotTheDefault()
    {
        const CommandLineResult result = read({"--no-module"});
        QCOMPARE(result.wish, Wish::Start);
        QVERIFY(result.options.modules);
        QVERIFY(result.options.modules->isEmpty());
    }

    void whatFollowsTwoDashesIsADrawing()
    {
        QCOMPARE(read({"--", "--log"}).options.drawings, QStringList("--log"));
    }

    void geometryIsRead_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<bool>("placed");
        QTest::addColumn<QPoint>("position");
        QTest::newRow("size alone") << "800x600" << QSize(800, 600) << false << QPoint();
        QTest::newRow("the corner of the screen") << "800x600+0+0" << QSize(800, 600) << true << QPoint(0, 0);
        QTest::newRow("a screen further left")
            << "800x600+-900+5" << QSize(800, 600) << true << QPoint(-900, 5);
        QTest::newRow("the smallest") << "400x300" << QSize(400, 300) << false << QPoint();
    }

    void geometryIsRead()
    {
        QFETCH(QString, text);
        QFETCH(bool, placed);
        const CommandLineResult result = read({"--geometry", text});
        QCOMPARE(result.wish, Wish::Start);
        QTEST(result.options.windowSize.value(), "size");
        QCOMPARE(result.options.windowPosition.has_value(), placed);
        QTEST(result.options.windowPosition.value_or(QPoint()), "position");
    }

    void wrongUseIsRefused_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("reason");
        QTest::newRow("an unknown option") << QStringList{"--colour"} << "colour";
        QTest::newRow("an option without its value") << QStringList{"--log"} << "log";
        QTest::newRow("an empty profile") << QStringList{"--profile", ""} << "--profile needs a value";
        QTest::newRow("an empty module") << QStringList{"--module", ""} << "--module needs a value";
        QTest::newRow("an empty drawing") << QStringList{""} << "a drawing needs a name";
        QTest::newRow("two logs") << QStringList{"--log", "a", "--log", "b"}
                                  << "--log is given more than once";
        QTest::newRow("a module and none")
            << QStringList{"--module", "a", "--no-module"} << "exclude each other";
        QTest::newRow("a value where none belongs") << QStringList{"--no-module=yes"} << "no-module";
        QTest::newRow("words for a geometry")
            << QStringList{"--geometry", "large"} << "\"large\" is no geometry";
        QTest::newRow("half a geometry") << QStringList{"--geometry", "800x600+10"} << "is no geometry";
        QTest::newRow("a negative size") << QStringList{"--geometry", "-800x600"} << "is no geometry";
        QTest::newRow("a size past any screen")
            << QStringList{"--geometry", "999999x600"} << "is no geometry";
        QTest::newRow("something behind a geometry")
            << QStringList{"--geometry", "800x600+1+1\n"} << "is no geometry";
        QTest::newRow("too narrow") << QStringList{"--geometry", "399x300"} << "smaller than 400x300";
        QTest::newRow("too low") << QStringList{"--geometry", "400x299"} << "smaller than 400x300";
    }

    void wrongUseIsRefused()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, reason);
        const CommandLineResult result = read(arguments);
        QCOMPARE(result.wish, Wish::Refuse);
        QVERIFY2(result.text.startsWith(QStringLiteral("fxhost: ")), qPrintable(result.text));
        QVERIFY2(result.text.contains(reason), qPrintable(result.text));
    }

    void helpNamesEveryOption()
    {
        const CommandLineResult result = read({"--help"});
        QCOMPARE(result.wish, Wish::PrintAndEnd);
        for (const char *option : {"--module", "--no-module", "--profile", "--script", "--log",
                                   "--no-document", "--geometry", "--help", "--version", "drawing"})
            QVERIFY2(result.text.contains(QLatin1String(option)), option);
    }

    void versionIsTheProgramsOwn()
    {
        const CommandLineResult result = read({"--version"});
        QCOMPARE(result.wish, Wish::PrintAndEnd);
        QCOMPARE(result.text, QStringLiteral("fxhost 7.8.9"));
    }

private:
    static CommandLineResult read(const QStringList &arguments)
    {
        return readCommandLine(QStringList("fxhost") + arguments);
    }
};

QTEST_GUILESS_MAIN(CommandLineOptionsTest)

#include "tst_commandlineoptions.moc"

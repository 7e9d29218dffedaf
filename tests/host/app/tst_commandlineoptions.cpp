// SPDX-License-Identifier: MIT
#include "host/app/CommandLineOptions.h"
#include "host/app/StartArguments.h"
#include "host/runtime/Paths.h"
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

    void aDrawingMayBeGivenAsAUrl_data()
    {
        QTest::addColumn<QString>("drawing");
        QTest::addColumn<QString>("path");
        QTest::newRow("a URL") << "file:///a%20b%231.dwg"
                               << "/a b#1.dwg";
        QTest::newRow("any byte") << "FILE:///gr%FCn.dwg" << fxhost::pathFromBytes("/gr\xfcn.dwg");
        QTest::newRow("this computer's") << "file://localhost/a.dwg"
                                         << "/a.dwg";
        QTest::newRow("another computer's") << "file://server/a.dwg"
                                            << "file://server/a.dwg";
        QTest::newRow("a path that looks like one") << "./file:///a%20b"
                                                    << "./file:///a%20b";
        QTest::newRow("a name that looks like one") << "file:a%20b.dwg"
                                                    << "file:a%20b.dwg";
    }

    void aDrawingMayBeGivenAsAUrl()
    {
        QFETCH(QString, drawing);
        QFETCH(QString, path);
        QCOMPARE(read({drawing}).options.drawings, QStringList(path));
    }

    void whatQtIsGiven_data()
    {
        QTest::addColumn<QByteArrayList>("environment"); // of platform, Wayland and X
        QTest::addColumn<QByteArrayList>("arguments");
        QTest::addColumn<QByteArrayList>("forQt");
        const QByteArrayList x = {"", "", ":0"};
        QTest::newRow("a geometry in one word, which Qt does not know")
            << x << QByteArrayList{"--geometry", "big", "a.dwg"} << QByteArrayList{"--geometry=big", "a.dwg"};
        QTest::newRow("one as X programs have it")
            << x << QByteArrayList{"-geometry", "9x9"} << QByteArrayList{"--geometry=9x9"};
        QTest::newRow("none") << x << QByteArrayList{"--geometry"} << QByteArrayList{"--geometry"};
        QTest::newRow("drawings of that name")
            << x << QByteArrayList{"--", "--geometry", "a"} << QByteArrayList{"--", "--geometry", "a"};
        const QByteArrayList preferred = {"-platform", "xcb;wayland"};
        QTest::newRow("Wayland and X") << QByteArrayList{"", "wayland-0", ":0"} << QByteArrayList{"a.dwg"}
                                       << preferred + QByteArrayList{"a.dwg"};
        QTest::newRow("Wayland and X, another choice")
            << QByteArrayList{"wayland", "wayland-0", ":0"} << QByteArrayList() << QByteArrayList();
        QTest::newRow("Wayland alone")
            << QByteArrayList{"", "wayland-0", ""} << QByteArrayList() << QByteArrayList();
    }

    void whatQtIsGiven()
    {
        QFETCH(QByteArrayList, environment);
        QFETCH(QByteArrayList, arguments);
        QFETCH(QByteArrayList, forQt);
        const QByteArrayList names = {"QT_QPA_PLATFORM", "WAYLAND_DISPLAY", "DISPLAY"};
        for (int i = 0; i < names.size(); ++i)
            qputenv(names.at(i).constData(), environment.at(i));
        QCOMPARE(fxhost::argumentsForQt(QByteArrayList{"fxhost"} + arguments),
                 QByteArrayList{"fxhost"} + forQt);
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
        QTest::newRow("Qt's own help") << QStringList{"--help-all"} << "help-all";
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
        QVERIFY(!result.text.contains(QLatin1String("--help-all")));
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

// SPDX-License-Identifier: MIT
#include "host/app/ProgramOptions.h"
#include "host/app/StartArguments.h"
#include "host/runtime/Paths.h"
#include "tests/support/TestCase.h"

using fxhost::ProgramStart;
using fxhost::readProgramOptions;
using Wish = ProgramStart::Wish;

class tst_ProgramOptions : public TestCase
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QCoreApplication::setApplicationName("fxhost");
        QCoreApplication::setApplicationVersion("7.8.9");
    }

    void argumentsAreParsed_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QStringList>("options"); // in the words of described()
        const auto row = [](const char *name, const QStringList &arguments, const QStringList &options) {
            QTest::newRow(name) << arguments << options;
        };
        row("none", {}, {"new drawing"});
        row("all",
            {"--module", "a.so", "--module=b.so", "--profile", "/p", "--script", "s.scr", "--log", "l.txt",
             "--no-document", "--geometry", "800x600+10+20", "one.dwg", "two words.dwg"},
            {"module a.so", "module b.so", "profile /p", "script s.scr", "log l.txt", "800x600", "at 10,20",
             "one.dwg", "two words.dwg"});
        row("no module is not the default", {"--no-module"}, {"no module", "new drawing"});
        row("a drawing after two dashes", {"--", "--log"}, {"new drawing", "--log"});
        const auto drawing = [&row](const char *name, const QString &given, const QString &path) {
            row(name, {"--no-document", given}, {path});
        };
        drawing("a URL", "file:///a%20b%231.dwg", "/a b#1.dwg");
        drawing("any byte", "FILE:///gr%FCn.dwg", fxhost::pathFromBytes("/gr\xfcn.dwg"));
        drawing("a URL of this computer", "file://localhost/a.dwg", "/a.dwg");
        drawing("a URL of another computer", "file://server/a.dwg", "file://server/a.dwg");
        drawing("a path that looks like a URL", "./file:///a%20b", "./file:///a%20b");
        drawing("a name that looks like a URL", "file:a%20b.dwg", "file:a%20b.dwg");
        const auto geometry = [&row](const char *name, const QString &given, const QStringList &read) {
            row(name, {"--no-document", "--geometry", given}, read);
        };
        geometry("the corner of the screen", "800x600+0+0", {"800x600", "at 0,0"});
        geometry("a screen to the left", "800x600+-900+5", {"800x600", "at -900,5"});
        geometry("the smallest, without a position", "400x300", {"400x300"});
    }

    void argumentsAreParsed()
    {
        QFETCH(QStringList, arguments);
        const ProgramStart result = read(arguments);
        QCOMPARE(result.wish, Wish::Start);
        QTEST(described(result.options), "options");
    }

    void argumentsForQtAreAdapted_data()
    {
        QTest::addColumn<QByteArrayList>("environment"); // of platform, Wayland and X
        QTest::addColumn<QByteArrayList>("arguments");
        QTest::addColumn<QByteArrayList>("forQt");
        const auto row = [](const char *name, const QByteArrayList &environment,
                            const QByteArrayList &arguments, const QByteArrayList &forQt) {
            QTest::newRow(name) << environment << arguments << forQt;
        };
        const QByteArrayList x = {"", "", ":0"};
        row("a geometry, in one word, which Qt ignores", x, {"--geometry", "big", "a.dwg"},
            {"--geometry=big", "a.dwg"});
        row("a geometry option of X programs", x, {"-geometry", "9x9"}, {"--geometry=9x9"});
        row("a geometry option without a value", x, {"--geometry"}, {"--geometry"});
        row("drawings with the name of the option", x, {"--", "--geometry", "a"}, {"--", "--geometry", "a"});
        row("Wayland and X", {"", "wayland-0", ":0"}, {"a.dwg"}, {"-platform", "xcb;wayland", "a.dwg"});
        row("Wayland and X, another choice", {"wayland", "wayland-0", ":0"}, {}, {});
        row("Wayland alone", {"", "wayland-0", ""}, {}, {});
    }

    void argumentsForQtAreAdapted()
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

    void wrongUseIsRefused_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("reason");
        const auto row = [](const char *name, const QStringList &arguments, const char *reason) {
            QTest::newRow(name) << arguments << QString::fromLatin1(reason);
        };
        row("an unknown option", {"--colour"}, "colour");
        row("Qt's own help", {"--help-all"}, "help-all");
        row("an option without its value", {"--log"}, "log");
        row("an empty profile", {"--profile", ""}, "--profile needs a value");
        row("an empty module", {"--module", ""}, "--module needs a value");
        row("an empty drawing", {""}, "a drawing needs a name");
        row("two logs", {"--log", "a", "--log", "b"}, "--log is given more than once");
        row("a module and none", {"--module", "a", "--no-module"}, "exclude each other");
        row("a value for an option without one", {"--no-module=yes"}, "no-module");
        row("words for a geometry", {"--geometry", "large"}, "\"large\" is not a geometry");
        row("half a geometry", {"--geometry", "800x600+10"}, "is not a geometry");
        row("a negative size", {"--geometry", "-800x600"}, "is not a geometry");
        row("a size past any screen", {"--geometry", "999999x600"}, "is not a geometry");
        row("text after a geometry", {"--geometry", "800x600+1+1\n"}, "is not a geometry");
        row("too narrow", {"--geometry", "399x300"}, "smaller than 400x300");
        row("too low", {"--geometry", "400x299"}, "smaller than 400x300");
    }

    void wrongUseIsRefused()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, reason);
        const ProgramStart result = read(arguments);
        QCOMPARE(result.wish, Wish::Refuse);
        QVERIFY2(result.text.startsWith("fxhost: "), qPrintable(result.text));
        QVERIFY2(result.text.contains(reason), qPrintable(result.text));
    }

    void helpAndVersionArePrinted()
    {
        const ProgramStart result = read({"--help"});
        QCOMPARE(result.wish, Wish::PrintAndEnd);
        for (const char *option :
             {"--module", "--no-module", "--profile", "--script", "--log", "--no-document", "--new-instance",
              "--geometry", "--help", "--version", "drawing"})
            QVERIFY2(result.text.contains(QLatin1String(option)), option);
        QVERIFY(!result.text.contains("--help-all"));
        const ProgramStart version = read({"--version"});
        QCOMPARE(version.wish, Wish::PrintAndEnd);
        QCOMPARE(version.text, "fxhost 7.8.9");
    }

private:
    static ProgramStart read(const QStringList &arguments)
    {
        return readProgramOptions(QStringList("fxhost") + arguments);
    }

    static QStringList described(const fxhost::ProgramOptions &options)
    {
        QStringList words;
        if (options.modules && options.modules->isEmpty())
            words << "no module";
        const QStringList modules = options.modules.value_or(QStringList());
        for (const QString &module : modules)
            words << "module " + module;
        words << "profile " + options.profileDir << "script " + options.scriptFile
              << "log " + options.logFile;
        for (const char *unset : {"profile ", "script ", "log "})
            words.removeAll(unset);
        if (options.newDocument)
            words << "new drawing";
        if (options.windowSize)
            words << QString("%1x%2").arg(options.windowSize->width()).arg(options.windowSize->height());
        if (options.windowPosition)
            words << QString("at %1,%2").arg(options.windowPosition->x()).arg(options.windowPosition->y());
        return words + options.drawings;
    }
};

CORE_TEST_CLASS(tst_ProgramOptions);
#include "tst_programoptions.moc"

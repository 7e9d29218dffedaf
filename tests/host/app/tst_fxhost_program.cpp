// SPDX-License-Identifier: MIT
#include "tests/support/TestCase.h"
#include "tests/support/bytes/BytesOfSpecialFiles.h"
#include "tests/support/process/ProgramHome.h"

#include <QImage>

#include <csignal>

class tst_fxhost_program : public TestCase
{
    Q_OBJECT

private slots:
    void theLogListsActionsInOrder()
    {
        const ProgramHome home;
        const QString drawing = home.drawing("a plan.dwg");
        const ProgramRun run =
            home.run({"# a comment", "", "_NEW", "  open   " + drawing + "  ", "_RECENTLIMIT 5", "_HELP 3087",
                      "_CLOSE", "_DELAY 1", "_NOSUCH thing", "^C^C_NEW", "^C", "_QUIT", "_NEW"});
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.log,
                 QStringList({"command _NEW 5100", "open " + drawing + " ok", "command _OPEN 5100",
                              "command _RECENTLIMIT 5100", "help 3087", "command _HELP 5100",
                              "command _CLOSE 5100", "command _DELAY 5100", "command _NOSUCH unknown",
                              "command _NEW 5100", "command _QUIT 5100"}));
        QVERIFY2(run.errors.contains("_NOSUCH"), qPrintable(run.errors));
        QCOMPARE(home.filesInHome(), QStringList()); // all files are in the profile
    }

    void aNewDrawingIsCreatedAtTheStart()
    {
        const ProgramHome home;
        QCOMPARE(home.run({"_CLOSE", "_CLOSE", "_QUIT"}).log,
                 QStringList({"command _CLOSE 5100", "command _CLOSE 5102", "command _QUIT 5100"}));
        QCOMPARE(home.run({"_CLOSE", "_QUIT"}, {"--no-module", "--no-document"}).log,
                 QStringList({"command _CLOSE 5102", "command _QUIT 5100"}));
    }

    void drawingsAreOpenedInTheirOrderBeforeTheScript()
    {
        const ProgramHome home;
        const QString one = home.drawing("one.dwg");
        const QString two = home.drawing("two.dwg");
        const QString missing = home.path("missing.dwg");
        const ProgramRun run = home.run({"_QUIT"}, {"--no-module", "one.dwg", "missing.dwg", two});
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.log, QStringList({"open " + one + " ok", "open " + missing + " failed",
                                       "open " + two + " ok", "command _QUIT 5100"}));
        QVERIFY2(run.errors.contains(missing), qPrintable(run.errors));
    }

    void aFileThatIsNotADrawingIsRefusedWithTheReason_data()
    {
        QTest::addColumn<SpecialFile>("kind");
        QTest::addColumn<QString>("reason");
        QTest::newRow("nothing there") << SpecialFile::Nothing << "does not exist";
        QTest::newRow("a directory") << SpecialFile::Directory << "not a regular file";
        QTest::newRow("a pipe") << SpecialFile::Fifo << "not a regular file";
        QTest::newRow("an endless device") << SpecialFile::EndlessDevice << "not a regular file";
        QTest::newRow("a link to itself") << SpecialFile::LinkToItself << "cannot be read";
        QTest::newRow("below a file") << SpecialFile::BelowAFile << "does not exist";
    }

    void aFileThatIsNotADrawingIsRefusedWithTheReason()
    {
        QFETCH(SpecialFile, kind);
        QFETCH(QString, reason);
        const BytesOfSpecialFiles files;
        refuses(ProgramHome(), files.path(kind), reason);
    }

    void aTextIsNotADrawing()
    {
        const ProgramHome home;
        const QString text = home.write("text.dwg", "version https://example.org/pointer\n");
        refuses(home, text, "drawing");
    }

    void listAndLimitOutliveTheProgram()
    {
        const ProgramHome home;
        const QString a = home.drawing("a.dwg");
        const QString b = home.drawing("b%20ü.dwg");
        QCOMPARE(home.run({"_OPEN " + a, "_OPEN " + b, "_QUIT"}).exitCode, 0);
        const QStringList first = home.recent();
        QCOMPARE(first.size(), 2);
        QCOMPARE(first.constLast(), a);
        QCOMPARE(home.run({"_RECENTADD " + a, "_RECENTADD /not/there;b.dwg", "_QUIT"}).exitCode, 0);
        QCOMPARE(home.recent(), QStringList({"/not/there;b.dwg", a, first.constFirst()}));

        QCOMPARE(home.run({"_RECENTLIMIT 2", "_QUIT"}).exitCode, 0);
        QCOMPARE(home.run({"_RECENTADD /1", "_RECENTADD /2", "_RECENTADD /3", "_QUIT"}).exitCode, 0);
        QCOMPARE(home.recent(), QStringList({"/3", "/2"}));
    }

    void aDamagedRecentListIsRenamedAndReported()
    {
        const ProgramHome home;
        const QByteArray damage("\0\1 not a list", 13);
        home.write(home.recentFile(), damage);
        const ProgramRun run = home.run({"_RECENTADD /1", "_QUIT"});
        QCOMPARE(run.exitCode, 0);
        QVERIFY2(run.errors.contains(home.recentFile()), qPrintable(run.errors));
        QCOMPARE(home.recent(), QStringList("/1"));

        const QStringList kept = QDir(home.profile()).entryList({"recent.txt.damaged*"}, QDir::Files);
        QCOMPARE(kept.size(), 1);
        QFile aside(home.profile() + QLatin1Char('/') + kept.constFirst());
        QVERIFY(aside.open(QIODevice::ReadOnly));
        QCOMPARE(aside.readAll(), damage);
    }

    void theProgramStartsWithDamagedSettings()
    {
        const ProgramHome home;
        home.write("profile/settings.ini",
                   QByteArray("\0\xff[[[window]\ngeometry=@ByteArray(\x01\nrecent/maximum=-7\n", 54));
        QCOMPARE(home.run({"_NEW", "_QUIT"}).log, QStringList({"command _NEW 5100", "command _QUIT 5100"}));
    }

    void theDefaultProfileIsInTheUsersFolders()
    {
        const ProgramHome home;
        home.write("home/.config/fxhost/recent.txt", "fxhost recent documents 1\n/former\n");
        const QString script = home.write("quit.txt", "_RECENTADD /1\n_QUIT");
        QCOMPARE(home.runBare({"--no-module", "--script", script}).exitCode, 0);
        const QDir user(home.path("home"));
        QCOMPARE(linesOf(user.filePath(".local/state/fxhost/recent.txt")).mid(1),
                 QStringList({"- - /1", "- - /former"}));
        const QStringList settings = QDir(user.filePath(".config/fxhost")).entryList(QDir::Files);
        QVERIFY2(settings.contains("settings.ini") && settings.filter("recent").isEmpty(),
                 qPrintable(settings.join(' ')));
    }

    void theBrowserCanBeUnloadedAndLoadedAtRunTime()
    {
        const ProgramHome home;
        const QString drawing = home.drawing("a.dwg");
        const QString module = BROWSER_MODULE;
        const ProgramRun run = home.run({"_MODULELOAD " + module, "_OPEN " + drawing, "_RECENT",
                                         "_MODULEUNLOAD RecentDocumentBrowser", "_RECENT",
                                         "_MODULELOAD " + module, "_RECENT", "_QUIT"});
        QCOMPARE(run.exitCode, 0);
        const QString loaded = QString("module %1 loaded").arg(module);
        const QString unloaded = QString("module %1 unloaded").arg(module);
        QCOMPARE(run.log, QStringList({loaded, "command _MODULELOAD 5100", "open " + drawing + " ok",
                                       "command _OPEN 5100", "command _RECENT 5100", unloaded,
                                       "command _MODULEUNLOAD 5100", "command _RECENT unknown", loaded,
                                       "command _MODULELOAD 5100", "command _RECENT 5100",
                                       "command _QUIT 5100", unloaded}));
    }

    void aMissingModuleIsReportedAndTheProgramContinues()
    {
        const ProgramHome home;
        const QString module = home.path("missing.so");
        const ProgramRun run = home.run({"_NEW", "_QUIT"}, {"--module", module});
        QCOMPARE(run.exitCode, 0);
        QVERIFY2(run.errors.contains(module), qPrintable(run.errors));
        QCOMPARE(run.log,
                 QStringList({"module " + module + " failed", "command _NEW 5100", "command _QUIT 5100"}));
    }

    void aModuleRunsItsCommandAndIsUnloadedAtTheEnd()
    {
        const ProgramHome home;
        const QString module = PROBE_MODULE;
        const ProgramRun run =
            home.run({"_PROBE  two  words ", "_PROBE start fxshow", "_QUIT"}, {"--module", module});
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.log,
                 QStringList({"module " + module + " loaded", "command _PROBE 4711", "command _PROBE 4711",
                              "command _QUIT 5100", "module " + module + " unloaded"}));
        // The calls that the module received. It finds the programs beside the host: fxshow without its
        // argument returns 2, a program that is not found -2.
        QCOMPARE(run.output.split('\n', Qt::SkipEmptyParts),
                 QStringList({"initApp", "mainFrameCreated visible", "DocumentCreated", "Execute two  words",
                              "Execute start fxshow", "2", "DocumentDestroyed", "mainFrameDestroyed alive",
                              "uninitApp", "unloaded"}));
    }

    void aSignalEndsItAsQuitDoes_data()
    {
        QTest::addColumn<int>("signal");
        QTest::newRow("SIGTERM") << SIGTERM;
        QTest::newRow("SIGINT") << SIGINT;
        QTest::newRow("SIGHUP") << SIGHUP;
    }

    void aSignalEndsItAsQuitDoes()
    {
        QFETCH(int, signal);
        std::signal(signal, SIG_DFL); // the program inherits ignored signals
        const ProgramHome home;
        const QString module = PROBE_MODULE;
        const ProgramRun run =
            home.run({QString("_PROBE raise %1").arg(signal), "_DELAY 3600000"}, {"--module", module});
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.log.constLast(), "module " + module + " unloaded");
        QVERIFY(linesOf(home.profile() + "/settings.ini").contains("[window]"));

        const ProgramRun other =
            home.run({QString("_PROBE raise %1 %2").arg(signal).arg(SIGTERM)}, {"--module", module});
        QCOMPARE(other.exitCode, -1); // the second signal ends it at once
        QVERIFY2(other.output.endsWith(QString("\nraised %1\n").arg(signal)), qPrintable(other.output));
    }

    void aScreenshotIsAPngOfTheWholeWindow()
    {
        const ProgramHome home;
        const QString picture = home.path("picture of it");
        const ProgramRun run = home.run({"_SCREENSHOT '" + picture + "'", "_QUIT"},
                                        {"--no-module", "--geometry", "640x480+5+5"});
        QCOMPARE(run.log, QStringList({"command _SCREENSHOT 5100", "command _QUIT 5100"}));
        const QImage image(picture, "PNG");
        QCOMPARE(image.size(), QSize(640, 480));
        QVERIFY(image.convertToFormat(QImage::Format_Indexed8).colorCount() > 2); // it is not blank
    }

    void itStartsWithoutAFolderForSettings()
    {
        const ProgramHome home;
        QProcess program;
        home.startBare(program, {"--no-module", "--script", home.write("script", "_QUIT\n")},
                       {"env", "XDG_CONFIG_HOME=/proc/none", "XDG_STATE_HOME=/proc/none"});
        QVERIFY(program.waitForFinished(patience));
        QCOMPARE(program.exitCode(), 0);
        QVERIFY(program.readAllStandardError().contains("Settings are not saved"));
    }

    void aScreenshotThatCannotBeWrittenIsReported()
    {
        const ProgramRun run =
            ProgramHome().run({"_SCREENSHOT ", "_SCREENSHOT /no/such/dir/x.png", "_SCREENSHOT /", "_QUIT"});
        const QString failed = "command _SCREENSHOT 5102";
        QCOMPARE(run.log, QStringList({failed, failed, failed, "command _QUIT 5100"}));
        for (const char *message : {"needs the name", "/no/such/dir/x.png", "The picture / "})
            QVERIFY2(run.errors.contains(QLatin1String(message)), qPrintable(run.errors));
    }

    void wrongUseEndsWithCodeTwoAndTheReason_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("reason");
        QTest::newRow("an unknown option") << QStringList{"--colour"} << "colour";
        QTest::newRow("a wrong geometry") << QStringList{"--geometry", "big"} << "\"big\"";
        QTest::newRow("a missing script") << QStringList{"--script", "no.scr"} << "no.scr";
        QTest::newRow("a script that is a directory") << QStringList{"--script", "/"} << "the script /";
        QTest::newRow("a log that cannot be written")
            << QStringList{"--log", "/no/such/log"} << "/no/such/log";
        QTest::newRow("a profile that is a file") << QStringList{"--profile", "/dev/null"} << "/dev/null";
    }

    void wrongUseEndsWithCodeTwoAndTheReason()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, reason);
        const ProgramRun run = ProgramHome().runBare(QStringList("--no-module") + arguments);
        QCOMPARE(run.exitCode, 2);
        QVERIFY2(run.errors.contains(reason), qPrintable(run.errors));
        QCOMPARE(run.output, QString());
    }

    void helpAndVersionNeedNoDisplay()
    {
        const ProgramHome home("none");
        const ProgramRun help = home.runBare({"--help"});
        QCOMPARE(help.exitCode, 0);
        QVERIFY2(help.output.contains("--no-document"), qPrintable(help.output));
        QCOMPARE(help.errors, QString());
        const ProgramRun version = home.runBare({"--version"});
        QCOMPARE(version.exitCode, 0);
        QVERIFY2(version.output.startsWith("fxhost "), qPrintable(version.output));
        QCOMPARE(home.filesInHome(), QStringList());
    }

private:
    static void refuses(const ProgramHome &home, const QString &path, const QString &reason)
    {
        const ProgramRun run =
            home.run({"_OPEN " + path, "_CLOSE", "_QUIT"}, {"--no-module", "--no-document"});
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.log, QStringList({"open " + path + " failed", "command _OPEN 5102",
                                       "command _CLOSE 5102", "command _QUIT 5100"}));
        QVERIFY2(run.errors.contains(path), qPrintable(run.errors));
        QVERIFY2(run.errors.contains(reason), qPrintable(run.errors));
        QVERIFY(!QFile::exists(home.recentFile()));
    }
};

CORE_TEST_CLASS(tst_fxhost_program);
#include "tst_fxhost_program.moc"

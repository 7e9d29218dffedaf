// SPDX-License-Identifier: MIT
#include "host/runtime/commands/CommandRunner.h"
#include "host/runtime/documents/Document.h"
#include "host/runtime/documents/DocumentManager.h"
#include "host/runtime/recent/RecentFiles.h"
#include "tests/support/TestCase.h"
#include "tests/support/real/RealHost.h"

#include <QDir>
#include <QElapsedTimer>
#include <QSignalSpy>

class tst_HostCommands : public TestCase
{
    Q_OBJECT

private slots:
    void drawingsAreCreatedAndClosed()
    {
        RealHost running;
        running.host.commands().runMacro("NEW;NEW;CLOSE");
        QCOMPARE(running.host.documents().documents().size(), std::size_t(1));
        QVERIFY(running.host.documents().current()->isNew());
    }

    void openOpensItsArgument()
    {
        RealHost running;
        const QString path = running.makeDrawing("a plan; second floor.dwg");
        running.host.commands().runLine("_OPEN " + path);
        QCOMPARE(QString(running.host.documents().current()->path()), path);
        QCOMPARE(running.logged(), QStringList({QString("open %1 ok").arg(path), "command _OPEN 5100"}));
    }

    void aPathIsReadAsAUserTypesIt_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("name");
        const auto row = [](const char *name, const char *typed, const char *meant) {
            QTest::newRow(name) << QString(typed) << QString(meant);
        };
        row("in quotes", "\"a b.dwg\"", "a b.dwg");
        row("in other quotes", "'a b.dwg'", "a b.dwg");
        row("below the home folder", "~/a b.dwg", "a b.dwg");
        row("both", "\"~/a b.dwg\"", "a b.dwg");
        row("quotes that belong to the name", "\"c.dwg\"", "\"c.dwg\"");
        row("a folder of that name", "~/c.dwg", "~/c.dwg");
        row("quotes within", "d\"e\".dwg", "d\"e\".dwg");
    }

    void aPathIsReadAsAUserTypesIt()
    {
        QFETCH(QString, typed);
        QFETCH(QString, name);
        RealHost running;
        const QString folder = running.path(QString());
        qputenv("HOME", QFile::encodeName(folder));
        QVERIFY(QDir(folder).mkdir("~"));
        for (const char *file : {"a b.dwg", "c.dwg", "\"c.dwg\"", "~/c.dwg", "d\"e\".dwg"})
            running.makeDrawing(QString(file));
        const QString usual = QDir::currentPath();
        QVERIFY(QDir::setCurrent(folder));
        running.host.commands().runLine("_OPEN " + typed);
        running.host.commands().runLine("_RECENTADD /other.dwg");
        running.host.commands().runLine("_RECENTADD " + typed);
        QDir::setCurrent(usual);
        QVERIFY2(running.host.documents().current(), qPrintable(running.messages.join(' ')));
        QCOMPARE(QDir(folder).relativeFilePath(running.host.documents().current()->path()), name);
        QCOMPARE(QDir(folder).relativeFilePath(running.host.recentFiles().paths().constFirst()), name);
    }

    void openWithoutAPathAsksForOne()
    {
        RealHost running;
        QString path = running.makeDrawing("plan.dwg");
        running.host.setPathChooser([&] { return path; });
        running.host.commands().runLine("_OPEN");
        QCOMPARE(QString(running.host.documents().current()->path()), path);
        path.clear(); // the user chooses none
        running.host.commands().runLine("_OPEN");
        QCOMPARE(running.logged().constLast(), QString("command _OPEN 5101"));
        QCOMPARE(running.messages, QStringList());
    }

    void helpAsksForATopic()
    {
        RealHost running;
        QSignalSpy helpRequested(&running.host, &fxhost::FxHost::helpRequested);
        running.host.commands().runMacro("HELP;HELP 3087");
        QCOMPARE(helpRequested, QList<QVariantList>({QVariantList({0}), QVariantList({3087})}));
        QCOMPARE(running.logged(),
                 QStringList({"help 0", "command _HELP 5100", "help 3087", "command _HELP 5100"}));
    }

    void delayWaits()
    {
        RealHost running;
        QElapsedTimer timer;
        timer.start();
        running.host.commands().runLine("DELAY 50");
        QVERIFY(timer.elapsed() >= 45); // the coarse timer may be 5 % early
        QCOMPARE(running.logged(), QStringList("command _DELAY 5100"));
    }

    void delayCanBeCancelled()
    {
        RealHost running;
        QMetaObject::invokeMethod(
            &running.host, [&] { running.host.commands().runLine("^C"); }, Qt::QueuedConnection);
        running.host.commands().runLine("DELAY 3600000");
        QCOMPARE(running.logged(), QStringList("command _DELAY 5101"));
    }

    void recentLimitShowsAndSets()
    {
        RealHost running;
        running.host.commands().runLine("RECENTLIMIT 25");
        QCOMPARE(running.host.recentFiles().maximum(), 25);
        running.host.commands().runLine("RECENTLIMIT");
        QCOMPARE(running.messages.size(), 1);
        QVERIFY(running.messages.first().contains("25"));
    }

    void recentAddListsWithoutOpening()
    {
        RealHost running;
        running.host.commands().runLine("RECENTADD /no such file.dwg");
        running.host.commands().runLine("RECENTADD here.dwg");
        QCOMPARE(running.host.recentFiles().paths(),
                 QStringList({QDir::currentPath() + "/here.dwg", "/no such file.dwg"}));
        QVERIFY(running.host.documents().documents().empty());
    }

    void drawingsAreKeptAndRemoved()
    {
        RealHost running;
        const QString path = running.makeDrawing("a b.dwg");
        const QString other = running.makeDrawing("listed new.dwg");
        for (const QString &line : {QString("RECENTADD /other.dwg"), "RECENTKEEP " + other})
            running.host.commands().runLine(line);
        running.host.commands().runLine("OPEN " + path);
        running.host.commands().runMacro("RECENTKEEP;RECENTKEEP");
        QCOMPARE(running.host.recentFiles().paths(), QStringList({other, path, "/other.dwg"}));
        QVERIFY(running.host.recentFiles().entries().at(1).lastOpened.isValid());
        running.host.commands().runLine("RECENTREMOVE '" + other + "'");
        running.host.commands().runLine("RECENTCLEAR");
        QCOMPARE(running.host.recentFiles().paths(), QStringList(path));
        QCOMPARE(running.logged().filter(" 5100").size(), 7);
        running.host.commands().runMacro("NEW;RECENTKEEP"); // it has no file
        QCOMPARE(running.logged().constLast(), QString("command _RECENTKEEP 5102"));
    }

    void invalidArgumentsFailWithAMessage_data()
    {
        QTest::addColumn<QString>("line");
        for (const char *line : {"OPEN",
                                 "OPEN /missing.dwg",
                                 "CLOSE",
                                 "HELP me",
                                 "HELP -1",
                                 "DELAY",
                                 "DELAY soon",
                                 "DELAY -1",
                                 "DELAY 3600001",
                                 "DELAY 99999999999",
                                 "RECENTLIMIT 0",
                                 "RECENTLIMIT 1001",
                                 "RECENTLIMIT ten",
                                 "RECENTLIMIT -5",
                                 "RECENTADD",
                                 "RECENTKEEP",
                                 "RECENTKEEP /missing.dwg",
                                 "RECENTREMOVE",
                                 "RECENTREMOVE /not listed",
                                 "MODULELOAD",
                                 "MODULELOAD /no such.so",
                                 "MODULEUNLOAD",
                                 "MODULEUNLOAD it"})
            QTest::newRow(line) << QString(line);
    }

    void invalidArgumentsFailWithAMessage()
    {
        QFETCH(QString, line);
        RealHost running;
        running.host.commands().runLine(line);
        QCOMPARE(running.messages.size(), 1);
        QVERIFY2(running.logged().constLast().endsWith(" 5102"), qPrintable(running.logged().constLast()));
        QCOMPARE(running.host.recentFiles().maximum(), fxhost::RecentFiles::defaultMaximum);
    }
};

TEST_CLASS(tst_HostCommands);
#include "tst_hostcommands.moc"

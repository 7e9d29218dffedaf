// SPDX-License-Identifier: MIT
#include "host/runtime/commands/CommandRunner.h"
#include "host/runtime/documents/Document.h"
#include "host/runtime/documents/DocumentManager.h"
#include "host/runtime/modules/ModuleManager.h"
#include "host/runtime/recent/RecentFiles.h"
#include "tests/support/RunningHost.h"
#include "tests/support/TestCase.h"
#include "tests/support/TestModules.h"

#include <QDir>
#include <QElapsedTimer>
#include <QSignalSpy>

class TestHostCommands : public TestCase
{
    Q_OBJECT

private slots:
    void newMakesADrawing()
    {
        RunningHost running;
        running.host.commands().runLine(QStringLiteral("NEW"));
        QVERIFY(running.host.documents().current()->isNew());
    }

    void openOpensItsArgument()
    {
        RunningHost running;
        const QString path = running.makeDrawing(QStringLiteral("a plan; second floor.dwg"));
        running.host.commands().runLine(QStringLiteral("_OPEN ") + path);
        QCOMPARE(QString(running.host.documents().current()->path()), path);
        QCOMPARE(running.logged(),
                 QStringList({QStringLiteral("open %1 ok").arg(path), QStringLiteral("command _OPEN 5100")}));
    }

    void aPathIsReadAsAUserTypesIt_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("name");
        QTest::newRow("in quotes") << "\"a b.dwg\""
                                   << "a b.dwg";
        QTest::newRow("in other quotes") << "'a b.dwg'"
                                         << "a b.dwg";
        QTest::newRow("below the home folder") << "~/a b.dwg"
                                               << "a b.dwg";
        QTest::newRow("both") << "\"~/a b.dwg\""
                              << "a b.dwg";
        QTest::newRow("quotes that are the name's") << "\"c.dwg\""
                                                    << "\"c.dwg\"";
        QTest::newRow("a folder of that name") << "~/c.dwg"
                                               << "~/c.dwg";
        QTest::newRow("quotes within") << "d\"e\".dwg"
                                       << "d\"e\".dwg";
    }

    void aPathIsReadAsAUserTypesIt()
    {
        QFETCH(QString, typed);
        QFETCH(QString, name);
        RunningHost running;
        const QString folder = running.path(QString());
        qputenv("HOME", QFile::encodeName(folder));
        QVERIFY(QDir(folder).mkdir(QStringLiteral("~")));
        for (const char *file : {"a b.dwg", "c.dwg", "\"c.dwg\"", "~/c.dwg", "d\"e\".dwg"})
            running.makeDrawing(QString::fromLatin1(file));
        const QString usual = QDir::currentPath();
        QVERIFY(QDir::setCurrent(folder));
        running.host.commands().runLine(QStringLiteral("_OPEN ") + typed);
        running.host.commands().runLine(QStringLiteral("_RECENTADD /other.dwg"));
        running.host.commands().runLine(QStringLiteral("_RECENTADD ") + typed);
        QDir::setCurrent(usual);
        QVERIFY2(running.host.documents().current(), qPrintable(running.messages.join(QLatin1Char(' '))));
        QCOMPARE(QDir(folder).relativeFilePath(running.host.documents().current()->path()), name);
        QCOMPARE(QDir(folder).relativeFilePath(running.host.recentFiles().paths().constFirst()), name);
    }

    void openFailsWithOneMessage()
    {
        RunningHost running;
        running.host.commands().runLine(QStringLiteral("_OPEN /missing.dwg"));
        QCOMPARE(running.messages.size(), 1);
        QCOMPARE(running.logged().constLast(), QStringLiteral("command _OPEN 5102"));
    }

    void openWithoutAPathAsksForOne()
    {
        RunningHost running;
        const QString path = running.makeDrawing(QStringLiteral("plan.dwg"));
        running.host.setPathChooser([&] { return path; });
        running.host.commands().runLine(QStringLiteral("_OPEN"));
        QCOMPARE(QString(running.host.documents().current()->path()), path);
    }

    void openIsCancelledWhenNoPathIsChosen()
    {
        RunningHost running;
        running.host.setPathChooser([] { return QString(); });
        running.host.commands().runLine(QStringLiteral("_OPEN"));
        QCOMPARE(running.logged(), QStringList(QStringLiteral("command _OPEN 5101")));
        QVERIFY(running.messages.isEmpty());
    }

    void openWithoutAPathAndNobodyToAskFails()
    {
        RunningHost running;
        running.host.commands().runLine(QStringLiteral("_OPEN"));
        QCOMPARE(running.messages.size(), 1);
        QCOMPARE(running.logged(), QStringList(QStringLiteral("command _OPEN 5102")));
    }

    void closeClosesTheCurrentDrawing()
    {
        RunningHost running;
        running.host.documents().newDocument();
        running.host.documents().newDocument();
        running.host.commands().runLine(QStringLiteral("CLOSE"));
        QCOMPARE(running.host.documents().documents().size(), std::size_t(1));
    }

    void helpAsksForATopic()
    {
        RunningHost running;
        QSignalSpy helpRequested(&running.host, &fxhost::FxHost::helpRequested);
        running.host.commands().runMacro(QStringLiteral("HELP;HELP 3087"));
        QCOMPARE(helpRequested, QList<QVariantList>({QVariantList({0}), QVariantList({3087})}));
        QCOMPARE(running.logged(),
                 QStringList({QStringLiteral("help 0"), QStringLiteral("command _HELP 5100"),
                              QStringLiteral("help 3087"), QStringLiteral("command _HELP 5100")}));
    }

    void delayWaits()
    {
        RunningHost running;
        QElapsedTimer timer;
        timer.start();
        running.host.commands().runLine(QStringLiteral("DELAY 50"));
        QVERIFY(timer.elapsed() >= 45); // the coarse timer may be 5 % early
        QCOMPARE(running.logged(), QStringList(QStringLiteral("command _DELAY 5100")));
    }

    void delayCanBeCancelled()
    {
        RunningHost running;
        QMetaObject::invokeMethod(
            &running.host, [&] { running.host.commands().runLine(QStringLiteral("^C")); },
            Qt::QueuedConnection);
        running.host.commands().runLine(QStringLiteral("DELAY 3600000"));
        QCOMPARE(running.logged(), QStringList(QStringLiteral("command _DELAY 5101")));
    }

    void recentLimitShowsAndSets()
    {
        RunningHost running;
        running.host.commands().runLine(QStringLiteral("RECENTLIMIT 25"));
        QCOMPARE(running.host.recentFiles().maximum(), 25);
        running.host.commands().runLine(QStringLiteral("RECENTLIMIT"));
        QCOMPARE(running.messages.size(), 1);
        QVERIFY(running.messages.first().contains(QLatin1String("25")));
    }

    void recentAddListsWithoutOpening()
    {
        RunningHost running;
        running.host.commands().runLine(QStringLiteral("RECENTADD /no such file.dwg"));
        running.host.commands().runLine(QStringLiteral("RECENTADD here.dwg"));
        QCOMPARE(running.host.recentFiles().paths(),
                 QStringList({QDir::currentPath() + QStringLiteral("/here.dwg"),
                              QStringLiteral("/no such file.dwg")}));
        QVERIFY(running.host.documents().documents().empty());
    }

    void modulesComeAndGoBetweenTheLines()
    {
        RunningHost running;
        const QString path = modulePath("companion");
        takeCalls();
        running.host.commands().runMacro(
            QStringLiteral("MODULELOAD \"%1\";COMPANION;MODULEUNLOAD companion_module;COMPANION").arg(path));
        QCOMPARE(
            running.logged(),
            QStringList(
                {QStringLiteral("module %1 loaded").arg(path), QStringLiteral("command _MODULELOAD 5100"),
                 QStringLiteral("command _COMPANION 5100"), QStringLiteral("module %1 unloaded").arg(path),
                 QStringLiteral("command _MODULEUNLOAD 5100"), QStringLiteral("command COMPANION unknown")}));
        QCOMPARE(takeCalls(), QStringList(QStringLiteral("companion Execute")));
        QVERIFY(!isMapped(path));
    }

    void whatWaitsMeanwhileComesAfterTheUnloading()
    {
        RunningHost running;
        const QString path = modulePath("companion");
        QVERIFY(running.host.modules().load(path));
        QMetaObject::invokeMethod(
            &running.host,
            [&] {
                running.host.commands().runMacro(
                    QStringLiteral("MODULEUNLOAD %1;MODULELOAD %1;COMPANION").arg(path));
                running.host.commands().cancel();
            },
            Qt::QueuedConnection);
        running.host.commands().runLine(QStringLiteral("COMPANION wait"));
        QCOMPARE(
            running.logged().mid(1),
            QStringList(
                {QStringLiteral("command _COMPANION 5100"), QStringLiteral("module %1 unloaded").arg(path),
                 QStringLiteral("command _MODULEUNLOAD 5100"), QStringLiteral("module %1 loaded").arg(path),
                 QStringLiteral("command _MODULELOAD 5100"), QStringLiteral("command _COMPANION 5100")}));
        QCOMPARE(running.messages, QStringList());
    }

    void aModuleIsUnloadedByWhatNamesItAlone_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("isUnloaded");
        QTest::newRow("its path") << modulePath("first") << true;
        QTest::newRow("its file's name") << QStringLiteral("first_module.so") << true;
        QTest::newRow("its file's name without the ending") << QStringLiteral("first_module") << true;
        QTest::newRow("a part of its name") << QStringLiteral("first") << false;
        QTest::newRow("its name in capitals") << QStringLiteral("FIRST_MODULE") << false;
        QTest::newRow("a name that two modules have") << QStringLiteral("second_module") << false;
        QTest::newRow("the path of one of those") << modulePath("second") << true;
    }

    void aModuleIsUnloadedByWhatNamesItAlone()
    {
        QFETCH(QString, name);
        QFETCH(bool, isUnloaded);
        RunningHost running;
        const QString namesake = running.path(QStringLiteral("second_module.so"));
        QVERIFY(QFile::copy(modulePath("companion"), namesake));
        const QStringList paths = {modulePath("first"), modulePath("second"), namesake};
        for (const QString &path : paths)
            QVERIFY(running.host.modules().load(path));
        running.host.commands().runLine(QStringLiteral("MODULEUNLOAD ") + name);
        QCOMPARE(running.host.modules().loaded().size(), isUnloaded ? 2 : 3);
        QCOMPARE(running.logged().constLast().right(5),
                 isUnloaded ? QStringLiteral(" 5100") : QStringLiteral(" 5102"));
        if (isUnloaded)
            return;
        QCOMPARE(running.messages.size(), 1);
        for (const QString &path : paths) // what could have been meant
            QVERIFY2(running.messages.first().contains(path), qPrintable(running.messages.first()));
    }

    void unloadingWithoutANameTellsWhatIsLoaded()
    {
        RunningHost running;
        running.host.commands().runLine(QStringLiteral("MODULEUNLOAD"));
        QVERIFY2(running.messages.last().contains(QLatin1String("No module")),
                 qPrintable(running.messages.last()));
        QVERIFY(running.host.modules().load(modulePath("first")));
        running.host.commands().runLine(QStringLiteral("MODULEUNLOAD"));
        QVERIFY2(running.messages.last().contains(modulePath("first")), qPrintable(running.messages.last()));
    }

    void whatMakesNoSenseFailsWithAMessage_data()
    {
        QTest::addColumn<QString>("line");
        for (const char *line :
             {"CLOSE", "HELP me", "HELP -1", "DELAY", "DELAY soon", "DELAY -1", "DELAY 3600001",
              "DELAY 99999999999", "RECENTLIMIT 0", "RECENTLIMIT 1001", "RECENTLIMIT ten", "RECENTLIMIT -5",
              "RECENTADD", "MODULELOAD", "MODULELOAD /no such.so", "MODULEUNLOAD", "MODULEUNLOAD it"})
            QTest::newRow(line) << QString::fromLatin1(line);
    }

    void whatMakesNoSenseFailsWithAMessage()
    {
        QFETCH(QString, line);
        RunningHost running;
        running.host.commands().runLine(line);
        QCOMPARE(running.messages.size(), 1);
        QVERIFY2(running.logged().constLast().endsWith(QLatin1String(" 5102")),
                 qPrintable(running.logged().constLast()));
        QCOMPARE(running.host.recentFiles().maximum(), fxhost::RecentFiles::defaultMaximum);
    }
};

QTEST_MAIN(TestHostCommands)
#include "tst_hostcommands.moc"

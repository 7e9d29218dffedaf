// SPDX-License-Identifier: MIT
#include "host/runtime/commands/CommandRunner.h"
#include "host/runtime/documents/Document.h"
#include "host/runtime/documents/DocumentManager.h"
#include "host/runtime/recent/RecentFiles.h"
#include "tests/support/RunningHost.h"
#include "tests/support/TestCase.h"

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

    void whatMakesNoSenseFailsWithAMessage_data()
    {
        QTest::addColumn<QString>("line");
        for (const char *line : {"CLOSE", "HELP me", "HELP -1", "DELAY", "DELAY soon", "DELAY -1",
                                 "DELAY 3600001", "DELAY 99999999999", "RECENTLIMIT 0", "RECENTLIMIT 1001",
                                 "RECENTLIMIT ten", "RECENTLIMIT -5", "RECENTADD"})
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

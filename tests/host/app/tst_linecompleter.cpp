// SPDX-License-Identifier: MIT
#include "host/app/LineCompleter.h"

#include "host/runtime/Paths.h"
#include "host/runtime/commands/CommandSet.h"
#include "tests/support/TestCase.h"
#include "tests/support/bytes/BytesInStuckFolder.h"
#include "tests/support/bytes/BytesOfSpecialFiles.h"
#include "tests/support/real/RealHost.h"

using namespace fxhost;

class tst_LineCompleter : public TestCase
{
    Q_OBJECT

private slots:
    //! The home folder, which is the working directory, has a file of each kind.
    void initTestCase()
    {
        keepBytesOfPaths();
        qputenv("HOME", QFile::encodeName(m_home.path()));
        QVERIFY(QDir::setCurrent(m_home.path()));
        QDir home(m_home.path());
        for (const char *folder : {"sub", "two words"})
            QVERIFY(home.mkdir(QLatin1String(folder)));
        for (const char *name : {"plan a.dwg", "plan b.dwg", "roof.dwg", ".hidden.dwg", "sub/inner.dwg",
                                 "two words/deep.dwg", "gr\xfcn.dwg"}) {
            QFile file(home.filePath(pathFromBytes(name)));
            QVERIFY(file.open(QIODevice::WriteOnly));
        }
        QVERIFY(QFile::link(home.filePath("sub"), home.filePath("link")));
        QVERIFY(QFile::link("nowhere", home.filePath("lost")));
    }

    void lineIsCompleted_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("completed");
        QTest::addColumn<QStringList>("candidates");
        const auto row = [](const char *name, const QString &line, const QString &completed,
                            const QStringList &candidates) {
            QTest::newRow(name) << line << completed << candidates;
        };
        const QStringList plans = {"plan a.dwg", "plan b.dwg"};
        row("a command", "_op", "_OPEN ", {"_OPEN"});
        row("without the underscore", "  dela", "  DELAY ", {"DELAY"});
        row("several", "_RECENT", "_RECENT",
            {"_RECENTADD", "_RECENTCLEAR", "_RECENTKEEP", "_RECENTLIMIT", "_RECENTREMOVE"});
        row("none", "_NOSUCH", "_NOSUCH", {});
        row("an argument that is not a path", "_HELP ro", "_HELP ro", {});
        row("a file", "_OPEN ro", "_OPEN roof.dwg", {"roof.dwg"});
        row("after any command that takes a file", "screenshot  ro", "screenshot  roof.dwg", {"roof.dwg"});
        row("several files", "_OPEN p", "_OPEN \"plan ", plans);
        row("a file in quotes", "_OPEN \"plan a", "_OPEN \"plan a.dwg\"", {"plan a.dwg"});
        row("a file in single quotes", "_OPEN 'ro", "_OPEN 'roof.dwg'", {"roof.dwg"});
        row("a blank without quotes", "_OPEN plan b", "_OPEN \"plan b.dwg\"", {"plan b.dwg"});
        row("a folder", "_OPEN s", "_OPEN sub/", {"sub/"});
        row("a folder with a blank", "_OPEN t", "_OPEN \"two words/", {"two words/"});
        row("below that folder", "_OPEN \"two words/", "_OPEN \"two words/deep.dwg\"", {"deep.dwg"});
        row("a link to a folder", "_OPEN li", "_OPEN link/", {"link/"});
        row("a link to nothing", "_OPEN lo", "_OPEN lost", {"lost"});
        row("below the home folder", "_OPEN ~/su", "_OPEN ~/sub/", {"sub/"});
        row("a full path", "_OPEN " + m_home.path() + "/sub/", "_OPEN " + m_home.path() + "/sub/inner.dwg",
            {"inner.dwg"});
        row("a hidden file", "_OPEN .h", "_OPEN .hidden.dwg", {".hidden.dwg"});
        const QString bytes = pathFromBytes("gr\xfcn.dwg");
        row("a name that is not UTF-8", "_OPEN g", "_OPEN " + bytes, {bytes});
        row("in a missing folder", "_OPEN /no/such/", "_OPEN /no/such/", {});
    }

    void lineIsCompleted()
    {
        QFETCH(QString, line);
        RealHost running;
        CommandSet set(running.host.commandStack());
        set.add("SCREENSHOT", [](const CFxCommandContext &) { return 0; });
        const Completion completion = LineCompleter(running.host).complete(line);
        QTEST(completion.line, "completed");
        QTEST(completion.candidates, "candidates");
        QCOMPARE(running.messages, QStringList());
    }

    void unresponsiveFolderDoesNotBlock_data() { addStuckFolderRows(); }

    void unresponsiveFolderDoesNotBlock()
    {
        STUCK_FOLDER_OR_SKIP(folder);
        const QString path = folder.makeFile("a.dwg", "AC1015");
        const QString line = QString("_OPEN ") + QFileInfo(path).path();
        const QString link = m_home.filePath("xlink");
        QVERIFY(QFile::link(QFileInfo(path).path(), link));
        RealHost running;
        const LineCompleter completer(running.host);
        QCOMPARE(completer.complete(line + "/").line, line + "/a.dwg");

        const Alarm alarm;
        folder.stopAnswering();
        QCOMPARE(completer.complete(line + "/").line, line + "/");
        QCOMPARE(running.messages.size(), 1);
        QVERIFY2(running.messages.first().contains(QFileInfo(path).path()),
                 qPrintable(running.messages.first()));
        // A link from a responsive folder is not followed. Only a mount is recognised through it.
        if (kind == BytesInStuckFolder::Kind::Mount)
            QCOMPARE(completer.complete("_OPEN x").line, "_OPEN xlink");
        folder.answerAgain();
        QVERIFY(QFile::remove(link));
    }

private:
    QTemporaryDir m_home;
};

TEST_CLASS(tst_LineCompleter);
#include "tst_linecompleter.moc"

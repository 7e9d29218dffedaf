// SPDX-License-Identifier: MIT
#include "host/runtime/log/HostLog.h"
#include "tests/support/TestCase.h"

#include <QFile>
#include <QTemporaryDir>

using fxhost::HostLog;

namespace {

class LogFile
{
    QTemporaryDir m_folder;

public:
    const QString path = m_folder.filePath("host.log");

    QByteArray content() const
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

} // namespace

class TestHostLog : public TestCase
{
    Q_OBJECT

private slots:
    void everyKindOfEntryIsALine()
    {
        const LogFile file;
        HostLog log(file.path);
        log.command("_RECENT", 5100);
        log.unknownCommand("nonsense");
        log.open("/a b.dwg", true);
        log.open("/missing.dwg", false);
        log.help(3087);
        log.module("/m.so", HostLog::ModuleEvent::Loaded);
        log.module("/m.so", HostLog::ModuleEvent::Unloaded);
        log.module("/m.so", HostLog::ModuleEvent::Failed);
        QCOMPARE(file.content(), QByteArray("command _RECENT 5100\n"
                                            "command nonsense unknown\n"
                                            "open /a b.dwg ok\n"
                                            "open /missing.dwg failed\n"
                                            "help 3087\n"
                                            "module /m.so loaded\n"
                                            "module /m.so unloaded\n"
                                            "module /m.so failed\n"));
    }

    void aLineIsInTheFileAtOnce()
    {
        const LogFile file;
        HostLog log(file.path);
        log.help(1);
        QCOMPARE(file.content(), QByteArray("help 1\n"));
    }

    void aPathWithALineEndStaysOnItsLine()
    {
        const LogFile file;
        HostLog log(file.path);
        log.open("/two\nlines\tand \u00e4 100%1.dwg", true);
        QCOMPARE(file.content(), QByteArray("open /two%0Alines%09and \xc3\xa4 100%1.dwg ok\n"));
    }

    void aSecondRunContinuesTheFile()
    {
        const LogFile file;
        HostLog(file.path).help(1);
        HostLog(file.path).help(2);
        QCOMPARE(file.content(), QByteArray("help 1\nhelp 2\n"));
    }

    void withoutAFileNothingIsWritten()
    {
        HostLog log{QString()};
        log.help(1);
        QVERIFY(log.errorString().isEmpty());
    }

    void aFileThatCannotBeOpenedIsTold()
    {
        HostLog log("/no such directory/host.log");
        QVERIFY(!log.errorString().isEmpty());
        log.help(1);
    }
};

QTEST_GUILESS_MAIN(TestHostLog)
#include "tst_hostlog.moc"

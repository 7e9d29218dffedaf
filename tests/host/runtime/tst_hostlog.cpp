// SPDX-License-Identifier: MIT
#include "host/runtime/log/HostLog.h"

#include "tests/support/TestCase.h"
#include "tests/support/bytes/BytesOfPreview.h"

#include <QFile>
#include <QTemporaryDir>

using fxhost::HostLog;

class tst_HostLog : public TestCase
{
    Q_OBJECT

private slots:
    void everyEntryIsWrittenAtOnceAsALine()
    {
        const QTemporaryDir folder;
        const QString path = testbytes::writeFile(folder.filePath("host.log"), "help 1\n");
        HostLog log(path); // appends, as a second run does
        log.command("_RECENT", 5100);
        log.unknownCommand("nonsense");
        log.open("/a b.dwg", true);
        log.open("/missing.dwg", false);
        log.open("/two\nlines\tand \u00e4 100%1.dwg", true);
        log.help(3087);
        log.module("/m.so", HostLog::ModuleEvent::Loaded);
        log.module("/m.so", HostLog::ModuleEvent::Unloaded);
        log.module("/m.so", HostLog::ModuleEvent::Failed);
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray("help 1\n"
                                            "command _RECENT 5100\n"
                                            "command nonsense unknown\n"
                                            "open /a b.dwg ok\n"
                                            "open /missing.dwg failed\n"
                                            "open /two%0Alines%09and \xc3\xa4 100%1.dwg ok\n"
                                            "help 3087\n"
                                            "module /m.so loaded\n"
                                            "module /m.so unloaded\n"
                                            "module /m.so failed\n"));
    }

    void logThatCannotBeWrittenIsReported()
    {
        HostLog none{QString()};
        none.help(1);
        QVERIFY(none.outcome());
        HostLog nowhere("/no such directory/host.log");
        nowhere.help(1);
        QVERIFY(!nowhere.outcome().reason().isEmpty());
    }
};

CORE_TEST_CLASS(tst_HostLog);
#include "tst_hostlog.moc"

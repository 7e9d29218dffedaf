// SPDX-License-Identifier: MIT
#include "host/runtime/recent/RecentFileStore.h"

#include "host/runtime/Paths.h"
#include "tests/support/TestCase.h"
#include "tests/support/bytes/BytesOfPreview.h"
#include "tests/support/bytes/BytesOfSpecialFiles.h"
#include "tests/support/bytes/BytesOnFullDisk.h"
#include "tests/support/real/RealListFile.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <climits>

#include <sys/resource.h>
#include <sys/stat.h>

using fxhost::entriesOf;
using fxhost::pathsOf;
using fxhost::RecentEntries;
using fxhost::RecentEntry;
using fxhost::RecentFileStore;
using testbytes::writeFile;
Q_DECLARE_METATYPE(RecentEntry)

namespace {

const QByteArray listHeader = "fxhost recent documents 2\n";
const QByteArray formerHeader = "fxhost recent documents 1\n"; // with a path per line

//! The longest name that a file can have. No other file can have this name and a suffix: neither the one
//! that a list is written to first nor the one that a damaged list is renamed to.
const QString longestName = QString(NAME_MAX, 'n');

//! While it exists, this process cannot open files.
class NoMoreFiles
{
public:
    NoMoreFiles()
    {
        ::getrlimit(RLIMIT_NOFILE, &m_usual);
        const rlimit none = {0, m_usual.rlim_max};
        if (::setrlimit(RLIMIT_NOFILE, &none) != 0)
            qFatal("cannot limit open files");
    }
    ~NoMoreFiles() { ::setrlimit(RLIMIT_NOFILE, &m_usual); }
    Q_DISABLE_COPY(NoMoreFiles)

private:
    rlimit m_usual = {};
};

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

} // namespace

//! A list that several programs share, and what can happen to its file.
class tst_RecentFileStore : public TestCase
{
    Q_OBJECT

private slots:
    void savedListIsLoadedUnchanged_data()
    {
        QTest::addColumn<RecentEntries>("entries");
        QTest::addColumn<QByteArray>("content"); // null: not checked
        const QStringList odd = {
            "/with blanks /and % percent%41.dwg ",
            "/line\nend\rand\ttab\x7f.dwg",
            "/\u00fcml\u00e4ut/\u6771\u4eac/\U0001F4D0.dwg",
            "//twice//slashed/../dotted.dwg",
            "/\u2028line separator.dwg",
            QString("/null ") + QChar::Null, // which no file has, but a script may contain
            fxhost::pathFromBytes("/no\xff UTF-8 \xc3.dwg"),
            '/' + fxhost::pathFromBytes("\xef\xbb\xbf mark.dwg"),
        };
        QStringList many;
        for (int i = 0; i < 1000; ++i)
            many.append('/' + QString(4090, '\n') + QString::number(i));
        const QDateTime noon({2026, 11, 22}, {12, 0}, Qt::UTC);
        QTest::newRow("odd paths") << entriesOf(odd) << QByteArray();
        QTest::newRow("a thousand long paths") << entriesOf(many) << QByteArray();
        QTest::newRow("readable content")
            << RecentEntries(
                   {{"/pl\u00e4ne/100% neu.dwg", true, noon}, {"/b.dwg", false, noon}, {"/c", true, {}}})
            << listHeader + "kept 2026-11-22T12:00:00Z /pl\xc3\xa4ne/100%25 neu.dwg\n"
                            "- 2026-11-22T12:00:00Z /b.dwg\nkept - /c\n";
        QTest::newRow("bytes that are not UTF-8")
            << entriesOf({fxhost::pathFromBytes("/pl\xe4ne/\xc3\xa4.dwg")})
            << listHeader + "- - /pl%E4ne/%C3%A4.dwg\n";
    }

    void savedListIsLoadedUnchanged()
    {
        QFETCH(RecentEntries, entries);
        QFETCH(QByteArray, content);
        RealListFile list;
        RecentFileStore::Stored loaded = list.store.load();
        QCOMPARE(loaded.entries, RecentEntries()); // a file that does not exist yet is not an error
        QCOMPARE(loaded.outcome.reason(), QString());
        QCOMPARE(list.store.update({}, replacing(entries)).outcome.reason(), QString());
        loaded = RecentFileStore(list.path).load();
        QCOMPARE(loaded.entries, entries);
        QCOMPARE(loaded.outcome.reason(), QString());
        QVERIFY2(content.isNull() || contentOf(list.path) == content, contentOf(list.path));
        QCOMPARE(list.store.update(entries, replacing(QStringList())).outcome.reason(), QString());
        QCOMPARE(contentOf(list.path), listHeader);
    }

    void theFormerVersionIsReadAndReplaced()
    {
        RealListFile list;
        writeFile(list.path, formerHeader + "/b%25.dwg\n/- -.dwg\n");
        QCOMPARE(list.listed(), QStringList({"/b%.dwg", "/- -.dwg"}));
        QCOMPARE(list.store.update({}, adding("/a.dwg")).outcome.reason(), QString());
        QCOMPARE(contentOf(list.path), listHeader + "- - /a.dwg\n- - /b%25.dwg\n- - /- -.dwg\n");
    }

    void oddNameKeepsTheFileReadable()
    {
        RealListFile list;
        // Two bytes, each stored as if it were not UTF-8; together they are.
        list.save({'/' + fxhost::pathFromBytes("\xc3") + fxhost::pathFromBytes("\xa4"), "/b.dwg"});
        QCOMPARE(list.listed(), QStringList({"/\u00e4", "/b.dwg"}));
    }

    void aDamagedFileIsSetAside_data()
    {
        QTest::addColumn<QByteArray>("damaged");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("only zeros") << QByteArray(64, '\0');
        QTest::newRow("another header") << QByteArray("fxhost recent documents 3\n- - /a.dwg\n");
        QTest::newRow("cut inside the header") << listHeader.left(10);
        QTest::newRow("cut inside a path") << listHeader + "- - /a.dwg\n- - /home/me/b";
        QTest::newRow("an empty line") << listHeader + "- - /a.dwg\n\n- - /b.dwg\n";
        QTest::newRow("only a path") << listHeader + "/a.dwg\n";
        QTest::newRow("an unknown word") << listHeader + "keep - /a.dwg\n";
        QTest::newRow("an impossible time") << listHeader + "- 2026-02-30T12:00:00Z /a.dwg\n";
        QTest::newRow("a time of another zone") << listHeader + "- 2026-02-20T12:00:00+01:00 /a.dwg\n";
        QTest::newRow("a relative path") << listHeader + "- - a.dwg\n";
        QTest::newRow("a percent sign without digits") << listHeader + "- - /100%.dwg\n";
        QTest::newRow("a percent sign with one digit") << listHeader + "- - /a%2\n";
        QTest::newRow("an escape that was not needed") << listHeader + "- - /%41.dwg\n";
        QTest::newRow("bytes that are not UTF-8") << listHeader + "- - /\xff\xfe.dwg\n";
        QTest::newRow("an escaped letter that is UTF-8") << listHeader + "- - /%C3%A4.dwg\n";
        QTest::newRow("a control character") << listHeader + "- - /a\x01.dwg\n";
        QTest::newRow("a zero byte") << listHeader + QByteArray("- - /a\0.dwg\n", 12);
        QTest::newRow("Windows line ends") << QByteArray("fxhost recent documents 2\r\n- - /a.dwg\r\n");
        QTest::newRow("a word in a former list") << formerHeader + "- - /a.dwg\n";
        QTest::newRow("longer than any list") << listHeader + QByteArray("- - /a\n").repeated(2001);
        QTest::newRow("larger than any list") << listHeader + QByteArray(26 * 1024 * 1024, '/') + '\n';
    }

    void aDamagedFileIsSetAside()
    {
        QFETCH(QByteArray, damaged);
        RealListFile list;
        const QString aside = list.path + ".damaged";
        writeFile(list.path, damaged);
        const RecentFileStore::Stored loaded = list.store.load();
        QCOMPARE(pathsOf(loaded.entries), QStringList());
        QVERIFY2(loaded.outcome.reason().contains(list.path) && loaded.outcome.reason().contains(aside),
                 qPrintable(loaded.outcome.reason()));
        QCOMPARE(contentOf(aside), damaged);
        QVERIFY(!QFile::exists(list.path));
        QCOMPARE(list.save({"/new.dwg"}), QString());
        QCOMPARE(list.listed(), QStringList("/new.dwg"));
    }

    void filesSetAsideBeforeAreKept()
    {
        const RealListFile list;
        for (const char *generation : {"first", "second", "third"}) {
            writeFile(list.path, generation);
            RecentFileStore(list.path).load();
        }
        QCOMPARE(contentOf(list.path + ".damaged"), QByteArray("first"));
        QCOMPARE(contentOf(list.path + ".damaged-2"), QByteArray("second"));
        QCOMPARE(contentOf(list.path + ".damaged-3"), QByteArray("third"));
    }

    void anythingButAFileIsSetAside()
    {
        RealListFile list;
        const Alarm alarm;
        QVERIFY(QDir().mkpath(list.path));
        QVERIFY(!list.store.load().outcome.reason().isEmpty());
        QVERIFY(QFileInfo(list.path + ".damaged").isDir());
        QCOMPARE(mkfifo(QFile::encodeName(list.path).constData(), S_IRUSR | S_IWUSR), 0);
        QVERIFY(!list.store.load().outcome.reason().isEmpty());
        QCOMPARE(list.save({"/new.dwg"}), QString());
        QCOMPARE(list.listed(), QStringList("/new.dwg"));
    }

    void unreadableListIsLeftUnchanged()
    {
        RealListFile list;
        writeFile(list.path, listHeader + "- - /former.dwg\n");
        RecentFileStore::Stored kept;
        RecentFileStore::Stored loaded;
        {
            const NoMoreFiles shortage;
            kept = list.store.update(entriesOf({"/known.dwg"}), adding("/new.dwg"));
            loaded = RecentFileStore(list.path).load();
        }
        QVERIFY2(kept.outcome.reason().contains(list.path), qPrintable(kept.outcome.reason()));
        QCOMPARE(pathsOf(kept.entries), QStringList({"/new.dwg", "/known.dwg"}));
        QVERIFY2(loaded.outcome.reason().contains(list.path), qPrintable(loaded.outcome.reason()));
        QCOMPARE(pathsOf(loaded.entries), QStringList());
        QCOMPARE(list.files(), QStringList("recent.txt"));
        QVERIFY(!list.store.isAllWritten());
        // The entry that was new then is still new.
        kept = list.store.update(kept.entries, adding("/newer.dwg"));
        QCOMPARE(kept.outcome.reason(), QString());
        QCOMPARE(list.listed(), QStringList({"/newer.dwg", "/new.dwg", "/former.dwg"}));
        QVERIFY(list.store.isAllWritten());
    }

    void theFormerListSurvivesAFailedWrite_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("room"); // bytes
        QTest::newRow("no file can be beside it") << longestName << INT_MAX;
        QTest::newRow("the disk is full") << "recent.txt" << 30;
    }

    void theFormerListSurvivesAFailedWrite()
    {
        QFETCH(QString, name);
        QFETCH(int, room);
        RealListFile list(name);
        writeFile(list.path, listHeader + "- - /former.dwg\n");
        const BytesOnFullDisk disk(static_cast<rlim_t>(room));
        const QString problem = list.save({"/new.dwg"});
        QVERIFY2(problem.contains(list.path), qPrintable(problem));
        QCOMPARE(list.listed(), QStringList("/former.dwg"));
    }

    void damagedFileThatCannotBeRenamedIsLeftUnchanged()
    {
        allowWarning("File name too long"); // Qt warns that it cannot look for such a name
        RealListFile list(longestName);
        writeFile(list.path, "damaged");
        const QString problem = list.store.load().outcome.reason();
        QVERIFY2(problem.contains(list.path), qPrintable(problem));
        QCOMPARE(list.save({"/new.dwg"}), QString()); // already reported
        QCOMPARE(contentOf(list.path), QByteArray("damaged"));
    }
};

CORE_TEST_CLASS(tst_RecentFileStore);
#include "tst_recentfilestore.moc"

// SPDX-License-Identifier: MIT
#include "host/runtime/recent/RecentFileStore.h"

#include "host/runtime/Paths.h"
#include "tests/support/FullDisk.h"
#include "tests/support/TestCase.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <climits>

#include <sys/resource.h>
#include <sys/stat.h>

using fxhost::RecentFileStore;

namespace {

//! As long as a file's name can be: no other file beside it can have this name and a suffix, neither the one
//! that a list is written to first nor the one that a damaged list is renamed to.
const QString longestName = QString(NAME_MAX, 'n');

//! The path of a list in a folder of its own.
class ListFile
{
    QTemporaryDir m_folder;

public:
    explicit ListFile(const QString &name = "recent.txt") : path(m_folder.filePath(name)) {}

    const QString path;

    QString folder() const { return m_folder.path(); }
    QString aside(const QString &suffix = QString()) const { return path + ".damaged" + suffix; }

    void write(const QByteArray &bytes) const
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), qint64(bytes.size()));
    }

    static QByteArray contentOf(const QString &file)
    {
        QFile source(file);
        return source.open(QIODevice::ReadOnly) ? source.readAll() : QByteArray("unreadable");
    }
};

//! As long as it lives, this process cannot open files.
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

RecentFileStore::Change adding(const QString &path)
{
    return [path](const QStringList &listed) { return QStringList(path) + listed; };
}

//! \return what the person should know
QString save(RecentFileStore &store, const QStringList &paths)
{
    return store.update({}, [&](const QStringList &) { return paths; }).problem;
}

QString save(RecentFileStore &&store, const QStringList &paths)
{
    return save(store, paths);
}

} // namespace

class TestRecentFileStore : public TestCase
{
    Q_OBJECT

private slots:
    void aListComesBackAsItWasSaved()
    {
        const ListFile list;
        const QStringList paths = {
            "/home/me/plan.dwg",
            "/with blanks /and % percent%41.dwg ",
            "/line\nend\rand\ttab\x7f.dwg",
            "/\u00fcml\u00e4ut/\u6771\u4eac/\U0001F4D0.dwg",
            "//twice//slashed/../dotted.dwg",
            "/\u2028line separator.dwg",
            "/null " + QChar::Null, // which no file has, but a script may have said
            fxhost::pathFromBytes("/no\xff UTF-8 \xc3.dwg"),
            fxhost::pathFromBytes("/\xc3\xa4 and \xe4.dwg"),
            '/' + fxhost::pathFromBytes("\xef\xbb\xbf mark.dwg"),
        };
        QCOMPARE(save(RecentFileStore(list.path), paths), QString());
        const RecentFileStore::Kept loaded = RecentFileStore(list.path).load();
        QCOMPARE(loaded.paths, paths);
        QCOMPARE(loaded.problem, QString());
    }

    void aThousandLongPathsComeBack()
    {
        const ListFile list;
        QStringList paths;
        for (int i = 0; i < 1000; ++i)
            paths.append('/' + QString(4090, '\n') + QString::number(i));
        QCOMPARE(save(RecentFileStore(list.path), paths), QString());
        QCOMPARE(RecentFileStore(list.path).load().paths, paths);
    }

    void aPersonCanReadTheFile()
    {
        const ListFile list;
        save(RecentFileStore(list.path), {"/pl\u00e4ne/100% neu.dwg", "/b.dwg"});
        QCOMPARE(ListFile::contentOf(list.path),
                 QByteArray("fxhost recent documents 1\n/pl\xc3\xa4ne/100%25 neu.dwg\n/b.dwg\n"));
    }

    void bytesThatAreNoUtf8LeaveTheFileReadable()
    {
        const ListFile list;
        save(RecentFileStore(list.path), {fxhost::pathFromBytes("/pl\xe4ne/\xc3\xa4.dwg")});
        QCOMPARE(ListFile::contentOf(list.path),
                 QByteArray("fxhost recent documents 1\n/pl%E4ne/%C3%A4.dwg\n"));
    }

    void aNameInOddWordsLeavesTheFileReadable()
    {
        const ListFile list;
        // Two bytes, each carried as if it were none of UTF-8; together they are.
        const QString odd = '/' + fxhost::pathFromBytes("\xc3") + fxhost::pathFromBytes("\xa4");
        save(RecentFileStore(list.path), {odd, "/b.dwg"});
        const RecentFileStore::Kept loaded = RecentFileStore(list.path).load();
        QCOMPARE(loaded.problem, QString());
        QCOMPARE(loaded.paths, QStringList({"/\u00e4", "/b.dwg"}));
    }

    void anEmptyListIsAFileToo()
    {
        const ListFile list;
        save(RecentFileStore(list.path), {});
        const RecentFileStore::Kept loaded = RecentFileStore(list.path).load();
        QVERIFY(loaded.paths.isEmpty());
        QCOMPARE(loaded.problem, QString());
    }

    void noFileIsAnEmptyList()
    {
        const ListFile list;
        const RecentFileStore::Kept loaded = RecentFileStore(list.path).load();
        QVERIFY(loaded.paths.isEmpty());
        QCOMPARE(loaded.problem, QString());
    }

    void aDamagedFileIsSetAside_data()
    {
        QTest::addColumn<QByteArray>("damaged");
        const QByteArray header = "fxhost recent documents 1\n";
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("only zeros") << QByteArray(64, '\0');
        QTest::newRow("another header") << QByteArray("fxhost recent documents 2\n/a.dwg\n");
        QTest::newRow("cut inside the header") << header.left(10);
        QTest::newRow("cut inside a path") << header + "/a.dwg\n/home/me/b";
        QTest::newRow("an empty line") << header + "/a.dwg\n\n/b.dwg\n";
        QTest::newRow("a relative path") << header + "a.dwg\n";
        QTest::newRow("a percent sign without digits") << header + "/100%.dwg\n";
        QTest::newRow("a percent sign with one digit") << header + "/a%2\n";
        QTest::newRow("an escape that was not needed") << header + "/%41.dwg\n";
        QTest::newRow("bytes that are no UTF-8") << header + "/\xff\xfe.dwg\n";
        QTest::newRow("an escaped letter that is UTF-8") << header + "/%C3%A4.dwg\n";
        QTest::newRow("a control character") << header + "/a\x01.dwg\n";
        QTest::newRow("a zero byte") << header + QByteArray("/a\0.dwg\n", 8);
        QTest::newRow("Windows line ends") << QByteArray("fxhost recent documents 1\r\n/a.dwg\r\n");
        QTest::newRow("longer than any list") << header + QByteArray("/a\n").repeated(1001);
        QTest::newRow("larger than any list") << header + QByteArray(13 * 1024 * 1024, '/') + '\n';
    }

    void aDamagedFileIsSetAside()
    {
        QFETCH(QByteArray, damaged);
        const ListFile list;
        list.write(damaged);
        RecentFileStore store(list.path);
        const RecentFileStore::Kept loaded = store.load();
        QVERIFY(loaded.paths.isEmpty());
        const QString aside = list.aside();
        QVERIFY2(loaded.problem.contains(list.path) && loaded.problem.contains(aside),
                 qPrintable(loaded.problem));
        QCOMPARE(ListFile::contentOf(aside), damaged);
        QVERIFY(!QFile::exists(list.path));
        QCOMPARE(save(store, {"/new.dwg"}), QString());
        QCOMPARE(RecentFileStore(list.path).load().paths, QStringList("/new.dwg"));
    }

    void whatWasSetAsideBeforeIsKept()
    {
        const ListFile list;
        const QStringList generations = {"first", "second", "third"};
        for (const QString &generation : generations) {
            list.write(generation.toUtf8());
            RecentFileStore(list.path).load();
        }
        QStringList kept;
        for (const QString &suffix : {QString(), "-2", "-3"})
            kept.append(QString::fromUtf8(ListFile::contentOf(list.aside(suffix))));
        QCOMPARE(kept, generations);
    }

    void aDirectoryInItsPlaceIsSetAside()
    {
        const ListFile list;
        QVERIFY(QDir().mkpath(list.path));
        RecentFileStore store(list.path);
        QVERIFY(!store.load().problem.isEmpty());
        QVERIFY(QFileInfo(list.aside()).isDir());
        QCOMPARE(save(store, {}), QString());
    }

    void aFifoInItsPlaceDoesNotHang()
    {
        const ListFile list;
        QCOMPARE(mkfifo(QFile::encodeName(list.path).constData(), S_IRUSR | S_IWUSR), 0);
        QVERIFY(!RecentFileStore(list.path).load().problem.isEmpty());
    }

    void aListThatCannotBeReadJustNowIsLeftAlone()
    {
        const ListFile list;
        list.write("fxhost recent documents 1\n/former.dwg\n");
        RecentFileStore store(list.path);
        RecentFileStore::Kept kept;
        RecentFileStore::Kept loaded;
        {
            const NoMoreFiles shortage;
            kept = store.update({"/known.dwg"}, adding("/new.dwg"));
            loaded = RecentFileStore(list.path).load();
        }
        QVERIFY2(kept.problem.contains(list.path), qPrintable(kept.problem));
        QCOMPARE(kept.paths, QStringList({"/new.dwg", "/known.dwg"}));
        QVERIFY2(loaded.problem.contains(list.path), qPrintable(loaded.problem));
        QCOMPARE(loaded.paths, QStringList());
        QCOMPARE(QDir(list.folder()).entryList(QDir::Files), QStringList("recent.txt"));
        QVERIFY(!store.isAllWritten());
        // What was new then is new still.
        kept = store.update(kept.paths, adding("/newer.dwg"));
        QCOMPARE(kept.problem, QString());
        QCOMPARE(RecentFileStore(list.path).load().paths,
                 QStringList({"/newer.dwg", "/new.dwg", "/former.dwg"}));
        QVERIFY(store.isAllWritten());
    }

    void aListThatCannotBeWrittenIsTold()
    {
        const ListFile list;
        const QString nowhere = list.folder() + "/no such directory/recent.txt";
        const QString problem = save(RecentFileStore(nowhere), {"/a.dwg"});
        QVERIFY2(problem.contains(nowhere), qPrintable(problem));
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
        const ListFile list(name);
        list.write("fxhost recent documents 1\n/former.dwg\n");
        const FullDisk disk(static_cast<rlim_t>(room));
        const QString problem = save(RecentFileStore(list.path), {"/new.dwg"});
        QVERIFY2(problem.contains(list.path), qPrintable(problem));
        QCOMPARE(RecentFileStore(list.path).load().paths, QStringList("/former.dwg"));
    }

    void aDamagedFileThatCannotBeRenamedIsLeftAlone()
    {
        allowWarning("File name too long"); // Qt says why it cannot look for such a name
        const ListFile list(longestName);
        list.write("damaged");
        RecentFileStore store(list.path);
        const QString problem = store.load().problem;
        QVERIFY2(problem.contains(list.path), qPrintable(problem));
        QCOMPARE(save(store, {"/new.dwg"}), QString()); // it has been said already
        QCOMPARE(ListFile::contentOf(list.path), QByteArray("damaged"));
    }
};

QTEST_GUILESS_MAIN(TestRecentFileStore)
#include "tst_recentfilestore.moc"

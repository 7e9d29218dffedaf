// SPDX-License-Identifier: MIT
#include "host/runtime/recent/RecentFileStore.h"

#include "host/runtime/FileLock.h"
#include "host/runtime/Paths.h"
#include "tests/support/TestCase.h"
#include "tests/support/bytes/BytesOfPreview.h"
#include "tests/support/bytes/BytesOfSpecialFiles.h"
#include "tests/support/bytes/BytesOnFullDisk.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <climits>
#include <memory>

#include <sys/resource.h>
#include <sys/stat.h>

using fxhost::FileLock;
using fxhost::RecentFileStore;
using testbytes::writeFile;

namespace {

const QByteArray listHeader = "fxhost recent documents 1\n";

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

//! The change that moves or adds path to the front of a list of at most so many.
RecentFileStore::Change adding(const QString &path, int most = 1000)
{
    return [path, most](const QStringList &listed) {
        QStringList paths = QStringList(path) + listed;
        paths.removeDuplicates();
        return paths.mid(0, most);
    };
}

RecentFileStore::Change replacing(const QStringList &paths)
{
    return [paths](const QStringList &) { return paths; };
}

QStringList unchanged(const QStringList &listed)
{
    return listed;
}

//! A list in a folder of its own, with a store.
class ListFile
{
    QTemporaryDir m_folder;

public:
    explicit ListFile(const QString &name = "recent.txt") : path(m_folder.filePath(name)) {}

    const QString path;
    RecentFileStore store{path};

    QString beside(const QString &name) const { return m_folder.filePath(name); }
    QStringList files() const { return QDir(m_folder.path()).entryList(QDir::Files); }
    QString lockFile() const { return path + ".lock"; }
    //! \return what is reported to the user
    QString save(const QStringList &paths) { return store.update({}, replacing(paths)).outcome.reason(); }
    //! What another program does.
    QStringList listed() const { return RecentFileStore(path).load().paths; }
    void changeElsewhere(const RecentFileStore::Change &change) const
    {
        RecentFileStore(path).update({}, change);
    }
};

} // namespace

//! A list that several programs share, and what can happen to its file.
class tst_RecentFileStore : public TestCase
{
    Q_OBJECT

private slots:
    void savedListIsLoadedUnchanged_data()
    {
        QTest::addColumn<QStringList>("paths");
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
        QTest::newRow("odd paths") << odd << QByteArray();
        QTest::newRow("a thousand long paths") << many << QByteArray();
        QTest::newRow("readable content") << QStringList({"/pl\u00e4ne/100% neu.dwg", "/b.dwg"})
                                          << listHeader + "/pl\xc3\xa4ne/100%25 neu.dwg\n/b.dwg\n";
        QTest::newRow("bytes that are not UTF-8")
            << QStringList(fxhost::pathFromBytes("/pl\xe4ne/\xc3\xa4.dwg"))
            << listHeader + "/pl%E4ne/%C3%A4.dwg\n";
    }

    void savedListIsLoadedUnchanged()
    {
        QFETCH(QStringList, paths);
        QFETCH(QByteArray, content);
        ListFile list;
        RecentFileStore::Stored loaded = list.store.load();
        QCOMPARE(loaded.paths, QStringList()); // a file that does not exist yet is not an error
        QCOMPARE(loaded.outcome.reason(), QString());
        QCOMPARE(list.save(paths), QString());
        loaded = RecentFileStore(list.path).load();
        QCOMPARE(loaded.paths, paths);
        QCOMPARE(loaded.outcome.reason(), QString());
        QVERIFY(content.isNull() || contentOf(list.path) == content);
        QCOMPARE(list.store.update(paths, replacing({})).outcome.reason(), QString());
        QCOMPARE(contentOf(list.path), listHeader);
    }

    void oddNameKeepsTheFileReadable()
    {
        ListFile list;
        // Two bytes, each stored as if it were not UTF-8; together they are.
        list.save({'/' + fxhost::pathFromBytes("\xc3") + fxhost::pathFromBytes("\xa4"), "/b.dwg"});
        QCOMPARE(list.listed(), QStringList({"/\u00e4", "/b.dwg"}));
    }

    void aDamagedFileIsSetAside_data()
    {
        QTest::addColumn<QByteArray>("damaged");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("only zeros") << QByteArray(64, '\0');
        QTest::newRow("another header") << QByteArray("fxhost recent documents 2\n/a.dwg\n");
        QTest::newRow("cut inside the header") << listHeader.left(10);
        QTest::newRow("cut inside a path") << listHeader + "/a.dwg\n/home/me/b";
        QTest::newRow("an empty line") << listHeader + "/a.dwg\n\n/b.dwg\n";
        QTest::newRow("a relative path") << listHeader + "a.dwg\n";
        QTest::newRow("a percent sign without digits") << listHeader + "/100%.dwg\n";
        QTest::newRow("a percent sign with one digit") << listHeader + "/a%2\n";
        QTest::newRow("an escape that was not needed") << listHeader + "/%41.dwg\n";
        QTest::newRow("bytes that are not UTF-8") << listHeader + "/\xff\xfe.dwg\n";
        QTest::newRow("an escaped letter that is UTF-8") << listHeader + "/%C3%A4.dwg\n";
        QTest::newRow("a control character") << listHeader + "/a\x01.dwg\n";
        QTest::newRow("a zero byte") << listHeader + QByteArray("/a\0.dwg\n", 8);
        QTest::newRow("Windows line ends") << QByteArray("fxhost recent documents 1\r\n/a.dwg\r\n");
        QTest::newRow("longer than any list") << listHeader + QByteArray("/a\n").repeated(1001);
        QTest::newRow("larger than any list") << listHeader + QByteArray(13 * 1024 * 1024, '/') + '\n';
    }

    void aDamagedFileIsSetAside()
    {
        QFETCH(QByteArray, damaged);
        ListFile list;
        const QString aside = list.path + ".damaged";
        writeFile(list.path, damaged);
        const RecentFileStore::Stored loaded = list.store.load();
        QCOMPARE(loaded.paths, QStringList());
        QVERIFY2(loaded.outcome.reason().contains(list.path) && loaded.outcome.reason().contains(aside),
                 qPrintable(loaded.outcome.reason()));
        QCOMPARE(contentOf(aside), damaged);
        QVERIFY(!QFile::exists(list.path));
        QCOMPARE(list.save({"/new.dwg"}), QString());
        QCOMPARE(list.listed(), QStringList("/new.dwg"));
    }

    void filesSetAsideBeforeAreKept()
    {
        const ListFile list;
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
        ListFile list;
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
        ListFile list;
        writeFile(list.path, listHeader + "/former.dwg\n");
        RecentFileStore::Stored kept;
        RecentFileStore::Stored loaded;
        {
            const NoMoreFiles shortage;
            kept = list.store.update({"/known.dwg"}, adding("/new.dwg"));
            loaded = RecentFileStore(list.path).load();
        }
        QVERIFY2(kept.outcome.reason().contains(list.path), qPrintable(kept.outcome.reason()));
        QCOMPARE(kept.paths, QStringList({"/new.dwg", "/known.dwg"}));
        QVERIFY2(loaded.outcome.reason().contains(list.path), qPrintable(loaded.outcome.reason()));
        QCOMPARE(loaded.paths, QStringList());
        QCOMPARE(list.files(), QStringList("recent.txt"));
        QVERIFY(!list.store.isAllWritten());
        // The entry that was new then is still new.
        kept = list.store.update(kept.paths, adding("/newer.dwg"));
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
        ListFile list(name);
        writeFile(list.path, listHeader + "/former.dwg\n");
        const BytesOnFullDisk disk(static_cast<rlim_t>(room));
        const QString problem = list.save({"/new.dwg"});
        QVERIFY2(problem.contains(list.path), qPrintable(problem));
        QCOMPARE(list.listed(), QStringList("/former.dwg"));
    }

    void damagedFileThatCannotBeRenamedIsLeftUnchanged()
    {
        allowWarning("File name too long"); // Qt warns that it cannot look for such a name
        ListFile list(longestName);
        writeFile(list.path, "damaged");
        const QString problem = list.store.load().outcome.reason();
        QVERIFY2(problem.contains(list.path), qPrintable(problem));
        QCOMPARE(list.save({"/new.dwg"}), QString()); // already reported
        QCOMPARE(contentOf(list.path), QByteArray("damaged"));
    }

    // Several programs.

    void changesApplyToTheListOfAnotherProgram()
    {
        const ListFile list;
        RecentFileStore one(list.path);
        RecentFileStore other(list.path);
        QCOMPARE(one.update({}, adding("/a")).paths, QStringList("/a"));
        QCOMPARE(other.update({}, adding("/b")).paths, QStringList({"/b", "/a"}));
        QCOMPARE(one.update({"/a"}, adding("/c")).paths, QStringList({"/c", "/b", "/a"}));
        QCOMPARE(list.listed(), QStringList({"/c", "/b", "/a"}));
        // An entry that one has removed is not restored by the other.
        one.update({"/c", "/b", "/a"}, replacing({}));
        QCOMPARE(other.update({"/b", "/a"}, adding("/b")).paths, QStringList("/b"));
    }

    void listInMemoryReplacesTheFile_data()
    {
        QTest::addColumn<bool>("isDamaged");
        QTest::newRow("that was deleted") << false;
        QTest::newRow("that was damaged") << true;
    }

    void listInMemoryReplacesTheFile()
    {
        QFETCH(bool, isDamaged);
        ListFile list;
        list.store.update({}, adding("/a"));
        if (isDamaged)
            writeFile(list.path, "damaged");
        else
            QVERIFY(QFile::remove(list.path));
        const RecentFileStore::Stored kept = list.store.update({"/a"}, adding("/b"));
        QCOMPARE(kept.paths, QStringList({"/b", "/a"}));
        QCOMPARE(kept.outcome.reason().contains(list.path + ".damaged"), isDamaged);
        QCOMPARE(kept.outcome.reason().isEmpty(), !isDamaged);
        QCOMPARE(list.listed(), QStringList({"/b", "/a"}));
    }

    void nothingIsWrittenOrLostWhileTheListIsLocked()
    {
        ListFile list;
        list.store.update({}, adding("/a"));
        {
            const FileLock theirs(list.lockFile(), {});
            QVERIFY(theirs.isHeld());
            const RecentFileStore::Stored kept = list.store.update({"/a"}, adding("/b"));
            QCOMPARE(kept.paths, QStringList({"/b", "/a"}));
            QVERIFY2(kept.outcome.reason().contains(list.path), qPrintable(kept.outcome.reason()));
        }
        QCOMPARE(list.listed(), QStringList("/a"));
        RecentFileStore(list.path).update({"/a"}, adding("/c"));
        QVERIFY(!list.store.isAllWritten());
        // Entries that could not be written count as newer than those that were.
        QCOMPARE(list.store.update({"/b", "/a"}, unchanged).paths, QStringList({"/b", "/c", "/a"}));
        QVERIFY(list.store.isAllWritten());
        QCOMPARE(list.listed(), QStringList({"/b", "/c", "/a"}));
    }

    void unwrittenEntriesPushOutTheOldest()
    {
        ListFile list;
        list.save({"/a", "/b", "/c"});
        {
            const FileLock theirs(list.lockFile(), {});
            QCOMPARE(list.store.update({"/a", "/b", "/c"}, adding("/mine", 3)).paths,
                     QStringList({"/mine", "/a", "/b"}));
        }
        list.changeElsewhere(adding("/theirs", 3));
        QCOMPARE(list.store.update({"/mine", "/a", "/b"}, adding("/next", 3)).paths,
                 QStringList({"/next", "/mine", "/theirs"}));
    }

    void entriesOfAnotherProgramAreNotWrittenAgain()
    {
        ListFile list;
        {
            const FileLock theirs(list.lockFile(), {});
            list.store.update({"/a"}, adding("/b"));
        }
        RecentFileStore(list.path).update({"/a"}, adding("/b"));
        QCOMPARE(list.store.update({"/b", "/a"}, unchanged).paths, QStringList({"/b", "/a"}));
        QVERIFY(list.store.isAllWritten());
    }

    void unwrittenEntriesAreWrittenWithTheNextChange()
    {
        ListFile list("away/recent.txt");
        const QString problem = list.store.update({}, adding("/a")).outcome.reason();
        QVERIFY2(problem.contains(list.path), qPrintable(problem));
        QVERIFY(QDir().mkpath(list.beside("away")));
        list.changeElsewhere(adding("/c"));
        QCOMPARE(list.store.update({"/a"}, adding("/b")).outcome.reason(), QString());
        QCOMPARE(list.listed(), QStringList({"/b", "/a", "/c"}));
        // From then on the file counts again.
        list.changeElsewhere(replacing({}));
        QCOMPARE(list.store.update({"/b", "/a", "/c"}, adding("/b")).paths, QStringList("/b"));
    }

    void unchangedListIsNotWritten()
    {
        ListFile list;
        QCOMPARE(list.store.update({"/a"}, unchanged).paths, QStringList("/a"));
        QVERIFY(!QFile::exists(list.path));
        list.store.update({}, adding("/a"));
        const auto inode = [&list] {
            struct stat status = {};
            return ::stat(QFile::encodeName(list.path).constData(), &status) == 0 ? status.st_ino : 0;
        };
        const ino_t before = inode();
        QVERIFY(before != 0);
        QCOMPARE(list.store.update({"/a"}, unchanged).outcome.reason(), QString());
        QCOMPARE(inode(), before);
        list.store.update({"/a"}, adding("/b"));
        QVERIFY(inode() != before); // a written list is another file
    }

    void filesOfKilledWritersAreRemoved()
    {
        const ListFile list;
        const QStringList kept = {"recent.txt.ab12cd", "recent.txt.abc", "recent.txt.damaged",
                                  "recent.txt.lock", "recentxtxt.abcdef"};
        const QStringList all = kept + QStringList({"recent.txt.AbCdEf", "recent.txt.zzzzzz"});
        for (const QString &name : all)
            writeFile(list.beside(name), "half a li");
        {
            const FileLock theirs(list.lockFile(), {}); // another program may be writing
            list.listed();
            QCOMPARE(list.files().size(), kept.size() + 2);
        }
        list.listed();
        QCOMPARE(list.files(), kept);
    }

    void lockHasOneHolderAtATime()
    {
        const ListFile list;
        auto first = std::make_unique<FileLock>(list.lockFile(), std::chrono::milliseconds(0));
        QVERIFY(first->isHeld() && !first->isBusy());
        const FileLock second(list.lockFile(), std::chrono::milliseconds(10));
        QVERIFY(!second.isHeld() && second.isBusy());
        first.reset();
        QVERIFY(FileLock(list.lockFile(), {}).isHeld());
    }

    void lockThatCannotBeTakenIsNotBusy()
    {
        ListFile list;
        const FileLock nowhere(list.beside("no such folder/lock"), std::chrono::milliseconds(10));
        QVERIFY(!nowhere.isHeld() && !nowhere.isBusy());
        QVERIFY(QDir().mkpath(list.lockFile())); // a folder, which cannot be opened for writing
        QCOMPARE(list.save({"/a"}), QString());
        QCOMPARE(list.store.load().paths, QStringList("/a"));
    }
};

CORE_TEST_CLASS(tst_RecentFileStore);
#include "tst_recentfilestore.moc"

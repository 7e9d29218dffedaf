// SPDX-License-Identifier: MIT
#include "host/runtime/FileLock.h"
#include "host/runtime/recent/RecentFileStore.h"
#include "tests/support/TestCase.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <sys/stat.h>

using fxhost::FileLock;
using fxhost::RecentFileStore;

namespace {

const QString a = "/a.dwg";
const QString b = "/b.dwg";
const QString c = "/c.dwg";

//! The change that puts path in front, and leaves out where it was before.
RecentFileStore::Change adding(const QString &path)
{
    return [path](const QStringList &listed) {
        QStringList paths = QStringList(path) + listed;
        paths.removeDuplicates();
        return paths;
    };
}

//! The same to a list of three at most.
RecentFileStore::Change addingToThree(const QString &path)
{
    return [path](const QStringList &listed) { return adding(path)(listed).mid(0, 3); };
}

QStringList unchanged(const QStringList &listed)
{
    return listed;
}

} // namespace

//! One list that two programs keep.
class tst_SharedRecentList : public TestCase
{
    Q_OBJECT

private slots:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void eachAddsToWhatTheOtherHasWritten()
    {
        RecentFileStore one(file());
        RecentFileStore other(file());
        QCOMPARE(one.load().paths, QStringList());
        QCOMPARE(other.load().paths, QStringList());
        QCOMPARE(one.update({}, adding(a)).paths, QStringList({a}));
        QCOMPARE(other.update({}, adding(b)).paths, QStringList({b, a}));
        QCOMPARE(one.update({a}, adding(c)).paths, QStringList({c, b, a}));
        QCOMPARE(RecentFileStore(file()).load().paths, QStringList({c, b, a}));
    }

    void whatOneHasRemovedTheOtherDoesNotBringBack()
    {
        RecentFileStore one(file());
        RecentFileStore other(file());
        one.update({}, adding(a));
        other.update({}, unchanged);
        one.update({a}, [](const QStringList &) { return QStringList(); });
        QCOMPARE(other.update({a}, adding(b)).paths, QStringList({b}));
    }

    void theListInMemoryStandsInForAFileThatIsGone()
    {
        RecentFileStore store(file());
        store.update({}, adding(a));
        QVERIFY(QFile::remove(file()));
        const RecentFileStore::Kept kept = store.update({a}, adding(b));
        QCOMPARE(kept.paths, QStringList({b, a}));
        QCOMPARE(kept.problem, QString());
        QCOMPARE(RecentFileStore(file()).load().paths, QStringList({b, a}));
    }

    void theListInMemoryStandsInForAFileThatWasDamaged()
    {
        RecentFileStore store(file());
        store.update({}, adding(a));
        write(file(), "damaged");
        const RecentFileStore::Kept kept = store.update({a}, adding(b));
        QCOMPARE(kept.paths, QStringList({b, a}));
        QVERIFY2(kept.problem.contains(file() + ".damaged"), qPrintable(kept.problem));
        QCOMPARE(RecentFileStore(file()).load().paths, QStringList({b, a}));
    }

    void whileTheOtherHoldsTheListNothingIsWrittenNorLost()
    {
        RecentFileStore store(file());
        store.update({}, adding(a));
        {
            const FileLock theirs(lockFile(), 0);
            QVERIFY(theirs.isHeld());
            const RecentFileStore::Kept kept = store.update({a}, adding(b));
            QCOMPARE(kept.paths, QStringList({b, a}));
            QVERIFY2(kept.problem.contains(file()), qPrintable(kept.problem));
        }
        RecentFileStore other(file());
        QCOMPARE(other.load().paths, QStringList({a}));
        other.update({a}, adding(c));
        QVERIFY(!store.isAllWritten());
        // What could not be written counts as newer than what was.
        QCOMPARE(store.update({b, a}, unchanged).paths, QStringList({b, c, a}));
        QVERIFY(store.isAllWritten());
        QCOMPARE(other.load().paths, QStringList({b, c, a}));
    }

    void whatCouldNotBeWrittenPushesOutWhatIsOldest()
    {
        RecentFileStore store(file());
        store.update({}, adding(c));
        store.update({c}, adding(b));
        store.update({b, c}, adding(a));
        const QString mine = "/mine.dwg";
        {
            const FileLock theirs(lockFile(), 0);
            QCOMPARE(store.update({a, b, c}, addingToThree(mine)).paths, QStringList({mine, a, b}));
        }
        const QString theirs = "/theirs.dwg";
        RecentFileStore(file()).update({}, addingToThree(theirs));
        const QString next = "/next.dwg";
        QCOMPARE(store.update({mine, a, b}, addingToThree(next)).paths, QStringList({next, mine, theirs}));
    }

    void whatTheOtherHasWrittenAlreadyIsNotWrittenAgain()
    {
        RecentFileStore store(file());
        store.update({}, adding(a));
        {
            const FileLock theirs(lockFile(), 0);
            store.update({a}, adding(b));
        }
        RecentFileStore(file()).update({}, adding(b));
        QCOMPARE(store.update({b, a}, unchanged).paths, QStringList({b, a}));
        QVERIFY(store.isAllWritten());
    }

    void nothingIsWrittenForTheSakeOfReading()
    {
        RecentFileStore store(file());
        QCOMPARE(store.update({a}, unchanged).paths, QStringList({a}));
        QVERIFY(!QFile::exists(file()));
    }

    void whatCouldNotBeWrittenIsWrittenWithTheNextChange()
    {
        const QString folder = m_folder->filePath("away");
        const QString inFolder = folder + "/recent.txt";
        RecentFileStore store(inFolder);
        QVERIFY(!store.update({}, adding(a)).problem.isEmpty());
        QVERIFY(QDir().mkpath(folder));
        RecentFileStore(inFolder).update({}, adding(c));
        QCOMPARE(store.update({a}, adding(b)).problem, QString());
        QCOMPARE(RecentFileStore(inFolder).load().paths, QStringList({b, a, c}));
        // And from then on the file is believed again.
        RecentFileStore(inFolder).update({}, [](const QStringList &) { return QStringList(); });
        QCOMPARE(store.update({b, a, c}, adding(b)).paths, QStringList({b}));
    }

    void whatIsAsItWasIsNotWritten()
    {
        RecentFileStore store(file());
        store.update({}, adding(a));
        const auto inode = [this] {
            struct stat status = {};
            return ::stat(QFile::encodeName(file()).constData(), &status) == 0 ? status.st_ino : 0;
        };
        const ino_t before = inode();
        QVERIFY(before != 0);
        QCOMPARE(store.update({a}, unchanged).problem, QString());
        QCOMPARE(inode(), before);
        store.update({a}, adding(b));
        QVERIFY(inode() != before); // what is written is another file
    }

    void whatKilledWritersHaveLeftIsRemoved()
    {
        const QStringList kept = {"recent.txt.damaged", "recent.txt.abc", "recentxtxt.abcdef",
                                  "recent.txt.ab12cd"};
        for (const QString &name : kept)
            write(m_folder->filePath(name), "somebody's");
        for (const char *name : {"recent.txt.AbCdEf", "recent.txt.zzzzzz"})
            write(m_folder->filePath(QLatin1String(name)), "half a li");
        RecentFileStore(file()).load();
        QStringList left = QDir(m_folder->path()).entryList(QDir::Files);
        left.removeOne("recent.txt.lock");
        QCOMPARE(QSet<QString>(left.begin(), left.end()), QSet<QString>(kept.begin(), kept.end()));
    }

    void whoeverHoldsTheLockKeepsHisFiles()
    {
        const FileLock theirs(lockFile(), 0);
        const QString unfinished = m_folder->filePath("recent.txt.AbCdEf");
        write(unfinished, "he is just writing");
        RecentFileStore(file()).load();
        QVERIFY(QFile::exists(unfinished));
    }

    void aLockIsForOneAtATime()
    {
        auto first = std::make_unique<FileLock>(lockFile(), 0);
        QVERIFY(first->isHeld() && !first->isBusy());
        const FileLock second(lockFile(), 10);
        QVERIFY(!second.isHeld() && second.isBusy());
        first.reset();
        const FileLock third(lockFile(), 0);
        QVERIFY(third.isHeld());
    }

    void whereNoLockCanBeHadNobodyIsBusy()
    {
        const FileLock nowhere(m_folder->filePath("no such folder/lock"), 10);
        QVERIFY(!nowhere.isHeld() && !nowhere.isBusy());
        RecentFileStore store(file());
        QVERIFY(QDir().mkpath(lockFile())); // a folder, which cannot be opened for writing
        QCOMPARE(store.update({}, adding(a)).problem, QString());
        QCOMPARE(store.load().paths, QStringList({a}));
    }

private:
    QString file() const { return m_folder->filePath("recent.txt"); }
    QString lockFile() const { return file() + ".lock"; }
    static void write(const QString &path, const QByteArray &bytes)
    {
        QFile target(path);
        QVERIFY(target.open(QIODevice::WriteOnly));
        QCOMPARE(target.write(bytes), qint64(bytes.size()));
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

QTEST_GUILESS_MAIN(tst_SharedRecentList)
#include "tst_sharedrecentlist.moc"

// SPDX-License-Identifier: MIT
#include "host/runtime/FileLock.h"
#include "tests/support/TestCase.h"
#include "tests/support/bytes/BytesOfPreview.h"
#include "tests/support/real/RealListFile.h"

#include <QFile>

#include <memory>

#include <sys/stat.h>

using fxhost::entriesOf;
using fxhost::FileLock;
using fxhost::pathsOf;
using fxhost::RecentFileStore;
using testbytes::writeFile;

//! One list of recent documents that several programs change.
class tst_SharedRecentList : public TestCase
{
    Q_OBJECT

private slots:
    void changesApplyToTheListOfAnotherProgram()
    {
        const RealListFile list;
        RecentFileStore one(list.path);
        RecentFileStore other(list.path);
        QCOMPARE(pathsOf(one.update({}, adding("/a")).entries), QStringList("/a"));
        QCOMPARE(pathsOf(other.update({}, adding("/b")).entries), QStringList({"/b", "/a"}));
        QCOMPARE(pathsOf(one.update(entriesOf({"/a"}), adding("/c")).entries),
                 QStringList({"/c", "/b", "/a"}));
        QCOMPARE(list.listed(), QStringList({"/c", "/b", "/a"}));
        // An entry that one has removed is not restored by the other.
        one.update(entriesOf({"/c", "/b", "/a"}), replacing(QStringList()));
        QCOMPARE(pathsOf(other.update(entriesOf({"/b", "/a"}), adding("/b")).entries), QStringList("/b"));
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
        RealListFile list;
        list.store.update({}, adding("/a"));
        if (isDamaged)
            writeFile(list.path, "damaged");
        else
            QVERIFY(QFile::remove(list.path));
        const RecentFileStore::Stored kept = list.store.update(entriesOf({"/a"}), adding("/b"));
        QCOMPARE(pathsOf(kept.entries), QStringList({"/b", "/a"}));
        QCOMPARE(kept.outcome.reason().contains(list.path + ".damaged"), isDamaged);
        QCOMPARE(kept.outcome.reason().isEmpty(), !isDamaged);
        QCOMPARE(list.listed(), QStringList({"/b", "/a"}));
    }

    void nothingIsWrittenOrLostWhileTheListIsLocked()
    {
        RealListFile list;
        list.store.update({}, adding("/a"));
        {
            const FileLock theirs(list.lockFile(), {});
            QVERIFY(theirs.isHeld());
            const RecentFileStore::Stored kept = list.store.update(entriesOf({"/a"}), adding("/b"));
            QCOMPARE(pathsOf(kept.entries), QStringList({"/b", "/a"}));
            QVERIFY2(kept.outcome.reason().contains(list.path), qPrintable(kept.outcome.reason()));
        }
        QCOMPARE(list.listed(), QStringList("/a"));
        RecentFileStore(list.path).update(entriesOf({"/a"}), adding("/c"));
        QVERIFY(!list.store.isAllWritten());
        // Entries that could not be written count as newer than those that were.
        QCOMPARE(pathsOf(list.store.update(entriesOf({"/b", "/a"}), unchanged).entries),
                 QStringList({"/b", "/c", "/a"}));
        QVERIFY(list.store.isAllWritten());
        QCOMPARE(list.listed(), QStringList({"/b", "/c", "/a"}));
    }

    void unwrittenEntriesPushOutTheOldest()
    {
        RealListFile list;
        list.save({"/a", "/b", "/c"});
        {
            const FileLock theirs(list.lockFile(), {});
            QCOMPARE(pathsOf(list.store.update(entriesOf({"/a", "/b", "/c"}), adding("/mine", 3)).entries),
                     QStringList({"/mine", "/a", "/b"}));
        }
        list.changeElsewhere(adding("/theirs", 3));
        QCOMPARE(pathsOf(list.store.update(entriesOf({"/mine", "/a", "/b"}), adding("/next", 3)).entries),
                 QStringList({"/next", "/mine", "/theirs"}));
    }

    void entriesOfAnotherProgramAreNotWrittenAgain()
    {
        RealListFile list;
        {
            const FileLock theirs(list.lockFile(), {});
            list.store.update(entriesOf({"/a"}), adding("/b"));
        }
        RecentFileStore(list.path).update(entriesOf({"/a"}), adding("/b"));
        QCOMPARE(pathsOf(list.store.update(entriesOf({"/b", "/a"}), unchanged).entries),
                 QStringList({"/b", "/a"}));
        QVERIFY(list.store.isAllWritten());
    }

    void unwrittenEntriesAreWrittenWithTheNextChange()
    {
        RealListFile list("away/recent.txt");
        const QString problem = list.store.update({}, adding("/a")).outcome.reason();
        QVERIFY2(problem.contains(list.path), qPrintable(problem));
        QVERIFY(QDir().mkpath(list.beside("away")));
        list.changeElsewhere(adding("/c"));
        QCOMPARE(list.store.update(entriesOf({"/a"}), adding("/b")).outcome.reason(), QString());
        QCOMPARE(list.listed(), QStringList({"/b", "/a", "/c"}));
        // From then on the file counts again.
        list.changeElsewhere(replacing(QStringList()));
        QCOMPARE(pathsOf(list.store.update(entriesOf({"/b", "/a", "/c"}), adding("/b")).entries),
                 QStringList("/b"));
    }

    void unchangedListIsNotWritten()
    {
        RealListFile list;
        QCOMPARE(pathsOf(list.store.update(entriesOf({"/a"}), unchanged).entries), QStringList("/a"));
        QVERIFY(!QFile::exists(list.path));
        list.store.update({}, adding("/a"));
        const auto inode = [&list] {
            struct stat status = {};
            return ::stat(QFile::encodeName(list.path).constData(), &status) == 0 ? status.st_ino : 0;
        };
        const ino_t before = inode();
        QVERIFY(before != 0);
        QCOMPARE(list.store.update(entriesOf({"/a"}), unchanged).outcome.reason(), QString());
        QCOMPARE(inode(), before);
        list.store.update(entriesOf({"/a"}), adding("/b"));
        QVERIFY(inode() != before); // a written list is another file
    }

    void filesOfKilledWritersAreRemoved()
    {
        const RealListFile list;
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

    void theFormerFileIsMovedOnce()
    {
        RealListFile list;
        const QString former = list.beside("former.txt");
        const auto load = [&] { return RecentFileStore(list.path, former).load(); };
        writeFile(former, "fxhost recent documents 1\n/b\n/a\n");
        {
            const FileLock theirs(list.lockFile(), {}); // another program may be moving it
            QCOMPARE(pathsOf(load().entries), QStringList());
        }
        writeFile(former + ".lock", {});
        QCOMPARE(pathsOf(load().entries), QStringList({"/b", "/a"}));
        QCOMPARE(list.listed(), QStringList({"/b", "/a"}));
        QCOMPARE(list.files(), QStringList({"recent.txt", "recent.txt.lock"}));

        list.store.update({}, adding("/c"));
        writeFile(former, "fxhost recent documents 1\n/d\n/a\n"); // by a former version that still runs
        QCOMPARE(pathsOf(load().entries), QStringList({"/c", "/b", "/a", "/d"}));
        QVERIFY(QFile::link(list.beside("."), list.beside("linked"))); // so both folders are the same
        RecentFileStore(list.path, list.beside("linked/recent.txt")).load();
        QCOMPARE(list.listed().size(), 4);

        writeFile(former, "damaged");
        QVERIFY(load().outcome.reason().contains(former));
        QCOMPARE(load().outcome.reason(), QString());
        QVERIFY(QFile::exists(former + ".damaged"));
        QCOMPARE(list.listed().size(), 4);
    }

    void theFormerFileStaysIfItCannotBeMoved()
    {
        const RealListFile list("away/recent.txt");
        const QString former = writeFile(list.beside("former.txt"), "fxhost recent documents 1\n/a\n");
        const RecentFileStore::Stored loaded = RecentFileStore(list.path, former).load();
        QCOMPARE(pathsOf(loaded.entries), QStringList("/a"));
        QVERIFY2(loaded.outcome.reason().contains(list.path), qPrintable(loaded.outcome.reason()));
        QVERIFY(QFile::exists(former));
    }

    void lockHasOneHolderAtATime()
    {
        const RealListFile list;
        auto first = std::make_unique<FileLock>(list.lockFile(), std::chrono::milliseconds(0));
        QVERIFY(first->isHeld() && !first->isBusy());
        const FileLock second(list.lockFile(), std::chrono::milliseconds(10));
        QVERIFY(!second.isHeld() && second.isBusy());
        first.reset();
        QVERIFY(FileLock(list.lockFile(), {}).isHeld());
    }

    void lockThatCannotBeTakenIsNotBusy()
    {
        RealListFile list;
        const FileLock nowhere(list.beside("no such folder/lock"), std::chrono::milliseconds(10));
        QVERIFY(!nowhere.isHeld() && !nowhere.isBusy());
        QVERIFY(QDir().mkpath(list.lockFile())); // a folder, which cannot be opened for writing
        QCOMPARE(list.save({"/a"}), QString());
        QCOMPARE(pathsOf(list.store.load().entries), QStringList("/a"));
    }
};

CORE_TEST_CLASS(tst_SharedRecentList);
#include "tst_sharedrecentlist.moc"

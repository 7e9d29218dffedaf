// SPDX-License-Identifier: MIT
#include "host/runtime/Paths.h"
#include "host/runtime/probe/FileProbe.h"
#include "host/runtime/recent/ReachableRecentFiles.h"
#include "host/runtime/recent/RecentFiles.h"
#include "tests/support/TestCase.h"
#include "tests/support/bytes/BytesInStuckFolder.h"
#include "tests/support/bytes/BytesOfSpecialFiles.h"
#include "tests/support/real/RealProfile.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>

#include <csignal>

using fxhost::FileProbe;
using fxhost::ReachableRecentFiles;

namespace {

const qint64 usualDeadline = fxhost::ProbeWait().deadline.count(); // milliseconds

//! The process that is the helper of this one; empty when there is none, or several.
QString helperId()
{
    QProcess pgrep;
    pgrep.start("pgrep", {"-P", QString::number(QCoreApplication::applicationPid()), "fxprobe"});
    pgrep.waitForFinished();
    const QString found = QString::fromLatin1(pgrep.readAllStandardOutput()).trimmed();
    return found.contains('\n') ? QString() : found;
}

//! Ends helpers of this process. \return whether there was one
bool killHelper()
{
    QProcess pkill;
    pkill.start("pkill", {"-KILL", "-P", QString::number(QCoreApplication::applicationPid()), "fxprobe"});
    return pkill.waitForFinished() && pkill.exitCode() == 0;
}

//! The threads that programs started meanwhile can have.
class Threads
{
public:
    //! \param spared how many of a program's first ones it can have in any case
    explicit Threads(int spared = 0)
    {
        qputenv("STUCK_THREADS", QFile::encodeName(m_lever));
        qputenv("STUCK_SPARED_THREADS", QByteArray::number(spared));
    }
    ~Threads() { qunsetenv("STUCK_THREADS"); }
    Q_DISABLE_COPY(Threads)

    void runOut() const { QFile(m_lever).open(QIODevice::WriteOnly); }
    void areThereAgain() const { QFile::remove(m_lever); }

private:
    const QTemporaryDir m_folder;
    const QString m_lever = m_folder.filePath("no threads");
};

} // namespace

//! Which files answer, told without waiting for those that do not.
class tst_FileProbe : public TestCase
{
    Q_OBJECT

private slots:
    void whateverIsThereAnswers()
    {
        const BytesOfSpecialFiles files;
        QStringList paths = {"/tmp/" + QString(300, 'n'), // too long a name, and too long a path
                             QString(2100, '/') + QString(2100, 'a'),
                             "/tmp/a\n1\n.dwg",
                             "/tmp/ a b ",
                             fxhost::pathFromBytes("/tmp/\xff\xc3"),
                             "/proc/self/mem"};
        for (int kind = 0; kind <= static_cast<int>(SpecialFile::SilentDevice); ++kind)
            paths.append(files.path(static_cast<SpecialFile>(kind)));
        FileProbe probe;
        for (const QString &path : qAsConst(paths))
            QCOMPARE(probe.unresponsive({path}), QStringList());
        for (int i = 0; i < 1000; ++i)
            paths.append(QString("/tmp/there is no drawing %1.dwg").arg(i));
        QCOMPARE(probe.unresponsive(paths), QStringList());
        QCOMPARE(probe.problem(), QString());
    }

    void aBusyMachineIsNoSilentFile()
    {
        FileProbe probe;
        QCOMPARE(probe.unresponsive({"/"}), QStringList());
        // The helper does not come to look for longer than a file has.
        QTRY_VERIFY(!helperId().isEmpty()); // those of former tests may take a moment to end
        const QString id = helperId();
        QElapsedTimer clock;
        clock.start(); // before the second below begins
        QVERIFY(id.toInt() > 0 && ::kill(id.toInt(), SIGSTOP) == 0);
        QVERIFY(QProcess::startDetached("sh", {"-c", "sleep 1; kill -CONT " + id}));
        QCOMPARE(probe.unresponsive({"/tmp"}), QStringList());
        QVERIFY2(clock.elapsed() > usualDeadline, "the helper was not kept from looking");
    }

    void aHelperLeftBehindHoldsNothingOfTheHost()
    {
        FileProbe probe;
        QCOMPARE(probe.unresponsive({"/tmp/a.dwg"}), QStringList());
        QTRY_VERIFY(!helperId().isEmpty()); // those of former tests may take a moment to end
        const QString helper = QString("/proc/%1/").arg(helperId());
        QCOMPARE(QFile::symLinkTarget(helper + "cwd"), QString("/"));
        QCOMPARE(QFile::symLinkTarget(helper + "fd/2"), QString("/dev/null"));
    }

    void silentFilesAreToldFromTheOthers_data() { addStuckFolderRows(); }
    void silentFilesAreToldFromTheOthers()
    {
        STUCK_FOLDER_OR_SKIP(folder);
        const QTemporaryDir usual;
        const QString first = folder.makeFile("first.dwg", "AC1032");
        const QString missing = folder.path("missing.dwg");
        const QString link = usual.filePath("link.dwg");
        QVERIFY(QFile::link(first, link));
        const QStringList answering = {usual.filePath("a.dwg"), usual.path(), QString()};
        const QStringList paths = {answering.at(0), first, missing, answering.at(1), link, answering.at(2)};

        FileProbe probe;
        QCOMPARE(probe.unresponsive(paths), QStringList());
        folder.stopAnswering();
        // Answers are good for a moment, and then asked for again.
        QTRY_COMPARE(probe.unresponsive(paths),
                     (kind == BytesInStuckFolder::Kind::Mount ? QStringList({first, missing, link})
                                                              : QStringList({first, missing})));
        folder.answerAgain();
        QTRY_COMPARE(probe.unresponsive(paths), QStringList());
    }

    void silentFilesAreWaitedForOnce_data() { addStuckFolderRows(); }
    void silentFilesAreWaitedForOnce()
    {
        STUCK_FOLDER_OR_SKIP(folder);
        const QString file = folder.makeFile("a.dwg", "AC1032");
        folder.stopAnswering();
        FileProbe probe;
        QElapsedTimer clock;
        clock.start();
        QCOMPARE(usualDeadline, 300);
        constexpr int times = 100; // which would take half a minute
        for (int i = 0; i < times; ++i)
            QCOMPARE(probe.unresponsive({file}), QStringList(file));
        QVERIFY2(clock.elapsed() >= usualDeadline, "it was not given its time");
        QVERIFY2(clock.elapsed() < times * usualDeadline / 2, "it was waited for again");
        // Whoever is patient waits longer, and that counts from the first question too.
        FileProbe other;
        clock.restart();
        const qint64 longer = 4 * usualDeadline;
        QCOMPARE(other.unresponsive({file}), QStringList(file));
        for (int i = 0; i < times; ++i)
            QCOMPARE(other.unresponsive({file}, {std::chrono::milliseconds(longer), {}}), QStringList(file));
        QVERIFY2(clock.elapsed() >= longer, "it was not given its longer time");
        QVERIFY2(clock.elapsed() < times * longer / 2, "it was waited for as long again");
    }

    void filesOfAServerThatWasReplacedAnswer()
    {
        BytesInStuckFolder folder(BytesInStuckFolder::Kind::Mount);
        if (!folder.problem().isEmpty())
            QSKIP(qPrintable(folder.problem()));
        const QString file = folder.makeFile("a.dwg", "AC1032");
        folder.stopAnswering();
        FileProbe probe;
        QCOMPARE(probe.unresponsive({file}), QStringList(file));
        folder.replaceServer(); // the former one keeps the question
        QTRY_COMPARE(probe.unresponsive({file}), QStringList());
    }

    void whatAnsweredLongAgoIsAskedAnew_data() { addStuckFolderRows(); }
    void whatAnsweredLongAgoIsAskedAnew()
    {
        STUCK_FOLDER_OR_SKIP(folder);
        const QString file = folder.makeFile("a.dwg", "AC1032");
        FileProbe witness; // which keeps looking, so that we know when the answer has come
        FileProbe probe;
        folder.stopAnswering();
        QCOMPARE(probe.unresponsive({file}), QStringList(file));
        QCOMPARE(witness.unresponsive({file}), QStringList(file));
        folder.answerAgain();
        QTRY_COMPARE(witness.unresponsive({file}), QStringList());
        folder.stopAnswering();
        // It did answer, while nobody listened.
        fxhost::ProbeWait wait;
        wait.answersGoodFor = std::chrono::minutes(1);
        QCOMPARE(probe.unresponsive({file}, wait), QStringList(file));
    }

    void theEndDoesNotWaitForSilentFiles_data() { addStuckFolderRows(); }
    void theEndDoesNotWaitForSilentFiles()
    {
        STUCK_FOLDER_OR_SKIP(folder);
        const QString file = folder.makeFile("a.dwg", "AC1032");
        folder.stopAnswering();
        const Alarm alarm;
        {
            FileProbe probe;
            QCOMPARE(probe.unresponsive({file}), QStringList(file));
        }
        FileProbe another;
        QCOMPARE(another.unresponsive({file}), QStringList(file));
    }

    void aHelperThatDiesIsReplaced()
    {
        BytesInStuckFolder folder(BytesInStuckFolder::Kind::Calls);
        QVERIFY2(folder.problem().isEmpty(), qPrintable(folder.problem()));
        const QString file = folder.makeFile("a.dwg", "AC1032");
        folder.stopAnswering();
        FileProbe probe;
        QCOMPARE(probe.unresponsive({file}), QStringList(file));
        QVERIFY(killHelper());
        folder.answerAgain();
        // What the old one was asked, the new one must be asked again.
        QTRY_COMPARE(probe.unresponsive({file}), QStringList());
        // And a death is never a silence.
        for (int i = 0; i < 10; ++i) {
            QVERIFY(killHelper()); // there was a new one
            QCOMPARE(probe.unresponsive({QString("/tmp/there is no drawing %1.dwg").arg(i)}), QStringList());
        }
        QCOMPARE(probe.problem(), QString());
    }

    void manySilentFilesHoldUpNoOther_data() { addStuckFolderRows(); }
    void manySilentFilesHoldUpNoOther()
    {
        STUCK_FOLDER_OR_SKIP(folder);
        QStringList silent;
        for (int i = 0; i < 200; ++i)
            silent.append(folder.makeFile(QString("%1.dwg").arg(i), "AC1032"));
        folder.stopAnswering();
        FileProbe probe;
        QCOMPARE(probe.unresponsive(silent + QStringList("/tmp")), silent);
    }

    void whatNoThreadLooksAtIsSilentUntilOneDoes()
    {
        BytesInStuckFolder folder(BytesInStuckFolder::Kind::Calls);
        QVERIFY2(folder.problem().isEmpty(), qPrintable(folder.problem()));
        const QString stuck = folder.makeFile("a.dwg", "AC1032");
        const QString other = "/tmp";
        const Threads threads(1); // as many as a machine with nothing else to do would need
        threads.runOut();
        FileProbe probe;
        QCOMPARE(probe.unresponsive({stuck, other}), QStringList());
        folder.stopAnswering();
        QCOMPARE(probe.unresponsive({stuck}), QStringList(stuck)); // and holds the only thread
        QCOMPARE(probe.unresponsive({stuck, other}), QStringList({stuck, other}));
        threads.areThereAgain();
        QTRY_COMPARE(probe.unresponsive({stuck, other}), QStringList(stuck));
        folder.answerAgain();
        QTRY_COMPARE(probe.unresponsive({stuck, other}), QStringList());
    }

    void aHelperWithoutAThreadIsNone()
    {
        const Threads threads;
        threads.runOut();
        FileProbe probe;
        QElapsedTimer clock;
        clock.start();
        QCOMPARE(probe.unresponsive({"/tmp"}), QStringList());
        QVERIFY(!probe.problem().isEmpty());
        QVERIFY2(clock.elapsed() < 5000, "it was waited for as if it were busy");
    }

    void withoutAHelperNothingIsSilent()
    {
        BytesInStuckFolder folder(BytesInStuckFolder::Kind::Calls);
        QVERIFY2(folder.problem().isEmpty(), qPrintable(folder.problem()));
        const QString file = folder.makeFile("a.dwg", "AC1032");
        folder.stopAnswering();
        const QString nowhere = "/no such folder/fxprobe";
        FileProbe probe(nowhere);
        QCOMPARE(probe.unresponsive({file}), QStringList());
        QVERIFY2(probe.problem().contains(nowhere), qPrintable(probe.problem()));
        FileProbe silentOne("/bin/true"); // starts, and says nothing
        QCOMPARE(silentOne.unresponsive({file}), QStringList());
        QVERIFY(!silentOne.problem().isEmpty());
    }

    // What of the recent documents modules get to see, and what the user is told of the others.

    void withoutAHelperModulesGetAllAndTheUserOneMessage()
    {
        const QString nowhere = "/no such folder/fxprobe";
        RealProfile profile;
        fxhost::RecentFiles &listed = profile.list;
        listed.setPaths({"/a.dwg"});
        FileProbe probe(nowhere);
        QStringList said;
        const ReachableRecentFiles list(listed, probe, [&](const QString &text) { said.append(text); });
        std::vector<CFxString> paths;
        for (int i = 0; i < 3; ++i) {
            list.GetPaths(paths);
            QCOMPARE(QStringList(paths.begin(), paths.end()), listed.paths());
        }
        QCOMPARE(said.size(), 1);
        QVERIFY2(said.constFirst().contains(nowhere), qPrintable(said.constFirst()));
    }

    void modulesGetWhatAnswers_data() { addStuckFolderRows(); }
    void modulesGetWhatAnswers()
    {
        STUCK_FOLDER_OR_SKIP(folder);
        const QString away = folder.makeFile("away.dwg", "AC1032");
        const QString astral = "/\u6771\u4eac \U0001F4D0.dwg";
        RealProfile profile;
        fxhost::RecentFiles &listed = profile.list;
        listed.setPaths({astral, away, "/b.dwg"});
        FileProbe probe;
        QStringList said;
        const ReachableRecentFiles list(listed, probe, [&](const QString &text) { said.append(text); });
        const auto given = [&list] {
            std::vector<CFxString> paths{CFxString(L"left over")};
            list.GetPaths(paths);
            return QStringList(paths.begin(), paths.end());
        };
        QCOMPARE(given(), listed.paths());
        QCOMPARE(said, QStringList());

        const QStringList all = listed.paths();
        for (int round = 1; round <= 2; ++round) {
            folder.stopAnswering();
            QTRY_COMPARE(given(), QStringList({astral, "/b.dwg"}));
            QCOMPARE(given().size(), 2);
            QCOMPARE(listed.paths(), all); // kept all the same
            QCOMPARE(said.size(), round);  // once each time
            QVERIFY2(said.constLast().contains(away) && !said.constLast().contains(astral),
                     qPrintable(said.constLast()));
            folder.answerAgain();
            QTRY_COMPARE(given(), all);
        }
    }
};

CORE_TEST_CLASS(tst_FileProbe);
#include "tst_fileprobe.moc"

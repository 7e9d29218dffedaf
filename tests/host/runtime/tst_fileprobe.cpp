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

//! The helper process of this one; empty if there is none, or several.
QString helperId()
{
    QProcess pgrep;
    pgrep.start("pgrep", {"-P", QString::number(QCoreApplication::applicationPid()), "fxprobe"});
    pgrep.waitForFinished();
    const QString found = QString::fromLatin1(pgrep.readAllStandardOutput()).trimmed();
    return found.contains('\n') ? QString() : found;
}

//! Kills the helpers of this process. \return whether there was one
bool killHelper()
{
    QProcess pkill;
    pkill.start("pkill", {"-KILL", "-P", QString::number(QCoreApplication::applicationPid()), "fxprobe"});
    return pkill.waitForFinished() && pkill.exitCode() == 0;
}

//! Limits the threads of programs that are started meanwhile.
class Threads
{
public:
    //! \param spared how many a program can have in any case
    explicit Threads(int spared = 0)
    {
        qputenv("STUCK_THREADS", QFile::encodeName(m_lever));
        qputenv("STUCK_SPARED_THREADS", QByteArray::number(spared));
    }
    ~Threads() { qunsetenv("STUCK_THREADS"); }
    Q_DISABLE_COPY(Threads)

    void runOut() const { QFile(m_lever).open(QIODevice::WriteOnly); }
    void allowAgain() const { QFile::remove(m_lever); }

private:
    const QTemporaryDir m_folder;
    const QString m_lever = m_folder.filePath("no threads");
};

//! A list of recent documents, and what modules get of it.
class ModulesList
{
public:
    ModulesList(FileProbe &probe, const QStringList &paths) : m_list(m_profile.list, probe, m_profile.report)
    {
        m_profile.list.setPaths(paths);
    }
    QStringList given() const
    {
        std::vector<CFxString> paths{CFxString(L"left over")};
        m_list.GetPaths(paths);
        return {paths.begin(), paths.end()};
    }
    QStringList listed() const { return m_profile.list.paths(); }
    QStringList messages() const { return m_profile.messages; }

private:
    RealProfile m_profile;
    const ReachableRecentFiles m_list;
};

} // namespace

//! Which files respond, found without waiting for those that do not.
class tst_FileProbe : public TestCase
{
    Q_OBJECT

private slots:
    void everyKindOfFileAnswers()
    {
        const BytesOfSpecialFiles files;
        QStringList paths = {"/tmp/" + QString(300, 'n'), // too long a name, and too long a path
                             QString(2100, '/') + QString(2100, 'a'),
                             "/tmp/a\n1\n.dwg",
                             "/tmp/ a b ",
                             fxhost::pathFromBytes("/tmp/\xff\xc3"),
                             "/proc/self/mem"};
        for (int kind = 0; kind <= static_cast<int>(SpecialFile::EmptyDevice); ++kind)
            paths.append(files.path(static_cast<SpecialFile>(kind)));
        FileProbe probe;
        for (const QString &path : qAsConst(paths))
            QCOMPARE(probe.unresponsive({path}), QStringList());
        for (int i = 0; i < 1000; ++i)
            paths.append(QString("/tmp/there is no drawing %1.dwg").arg(i));
        QCOMPARE(probe.unresponsive(paths), QStringList());
        QVERIFY2(probe.outcome(), qPrintable(probe.outcome().reason()));
    }

    void busyMachineDoesNotMakeAFileUnresponsive()
    {
        FileProbe probe;
        QCOMPARE(probe.unresponsive({"/"}), QStringList());
        // The helper is stopped for longer than a file may take.
        QTRY_VERIFY(!helperId().isEmpty()); // those of former tests may take a moment to end
        const QString id = helperId();
        QElapsedTimer clock;
        clock.start(); // before the second below begins
        QVERIFY(id.toInt() > 0 && ::kill(id.toInt(), SIGSTOP) == 0);
        QVERIFY(QProcess::startDetached("sh", {"-c", "sleep 1; kill -CONT " + id}));
        QCOMPARE(probe.unresponsive({"/tmp"}), QStringList());
        QVERIFY2(clock.elapsed() > usualDeadline, "the helper was not stopped");
    }

    void helperKeepsNothingOfTheHostOpen()
    {
        FileProbe probe;
        QCOMPARE(probe.unresponsive({"/tmp/a.dwg"}), QStringList());
        QTRY_VERIFY(!helperId().isEmpty()); // those of former tests may take a moment to end
        const QString helper = QString("/proc/%1/").arg(helperId());
        QCOMPARE(QFile::symLinkTarget(helper + "cwd"), QString("/"));
        QCOMPARE(QFile::symLinkTarget(helper + "fd/2"), QString("/dev/null"));
    }

    void unresponsiveFilesAreFound_data() { addStuckFolderRows(); }
    void unresponsiveFilesAreFound()
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
        // Answers are valid for a moment only.
        QTRY_COMPARE(probe.unresponsive(paths),
                     (kind == BytesInStuckFolder::Kind::Mount ? QStringList({first, missing, link})
                                                              : QStringList({first, missing})));
        folder.answerAgain();
        QTRY_COMPARE(probe.unresponsive(paths), QStringList());
    }

    void unresponsiveFilesAreWaitedForOnce_data() { addStuckFolderRows(); }
    void unresponsiveFilesAreWaitedForOnce()
    {
        STUCK_FOLDER_OR_SKIP(folder);
        const QString file = folder.makeFile("a.dwg", "AC1032");
        folder.stopAnswering();
        FileProbe probe;
        QElapsedTimer clock;
        clock.start();
        QCOMPARE(usualDeadline, 300);
        constexpr int times = 100; // would take half a minute if each waited
        for (int i = 0; i < times; ++i)
            QCOMPARE(probe.unresponsive({file}), QStringList(file));
        QVERIFY2(clock.elapsed() >= usualDeadline, "it was not waited for");
        QVERIFY2(clock.elapsed() < times * usualDeadline / 2, "it was waited for again");
        // A caller may wait longer; that time counts from the first question too.
        FileProbe other;
        clock.restart();
        const qint64 longer = 4 * usualDeadline;
        QCOMPARE(other.unresponsive({file}), QStringList(file));
        for (int i = 0; i < times; ++i)
            QCOMPARE(other.unresponsive({file}, {std::chrono::milliseconds(longer), {}}), QStringList(file));
        QVERIFY2(clock.elapsed() >= longer, "it was not waited for longer");
        QVERIFY2(clock.elapsed() < times * longer / 2, "it was waited for longer again");
    }

    void filesOfAReplacedServerAnswer()
    {
        BytesInStuckFolder folder(BytesInStuckFolder::Kind::Mount);
        if (!folder.problem().isEmpty())
            QSKIP(qPrintable(folder.problem()));
        const QString file = folder.makeFile("a.dwg", "AC1032");
        folder.stopAnswering();
        FileProbe probe;
        QCOMPARE(probe.unresponsive({file}), QStringList(file));
        folder.replaceServer(); // the former server never answers
        QTRY_COMPARE(probe.unresponsive({file}), QStringList());
    }

    void oldAnswersAreNotUsed_data() { addStuckFolderRows(); }
    void oldAnswersAreNotUsed()
    {
        STUCK_FOLDER_OR_SKIP(folder);
        const QString file = folder.makeFile("a.dwg", "AC1032");
        FileProbe witness; // keeps asking, so that the test notices the answer
        FileProbe probe;
        folder.stopAnswering();
        QCOMPARE(probe.unresponsive({file}), QStringList(file));
        QCOMPARE(witness.unresponsive({file}), QStringList(file));
        folder.answerAgain();
        QTRY_COMPARE(witness.unresponsive({file}), QStringList());
        folder.stopAnswering();
        // There was an answer that was not read.
        fxhost::ProbeWait wait;
        wait.responsesGoodFor = std::chrono::minutes(1);
        QCOMPARE(probe.unresponsive({file}, wait), QStringList(file));
    }

    void destructorDoesNotWaitForUnresponsiveFiles_data() { addStuckFolderRows(); }
    void destructorDoesNotWaitForUnresponsiveFiles()
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
        // The new helper must be asked again what the old one was asked.
        QTRY_COMPARE(probe.unresponsive({file}), QStringList());
        // A helper that dies never makes a file unresponsive.
        for (int i = 0; i < 10; ++i) {
            QVERIFY(killHelper()); // there was a new one
            QCOMPARE(probe.unresponsive({QString("/tmp/there is no drawing %1.dwg").arg(i)}), QStringList());
        }
        QVERIFY2(probe.outcome(), qPrintable(probe.outcome().reason()));
    }

    void manyUnresponsiveFilesDoNotDelayOthers_data() { addStuckFolderRows(); }
    void manyUnresponsiveFilesDoNotDelayOthers()
    {
        STUCK_FOLDER_OR_SKIP(folder);
        QStringList unresponsive;
        for (int i = 0; i < 200; ++i)
            unresponsive.append(folder.makeFile(QString("%1.dwg").arg(i), "AC1032"));
        folder.stopAnswering();
        FileProbe probe;
        QCOMPARE(probe.unresponsive(unresponsive + QStringList("/tmp")), unresponsive);
    }

    void filesWithoutAFreeThreadAreUnresponsive()
    {
        BytesInStuckFolder folder(BytesInStuckFolder::Kind::Calls);
        QVERIFY2(folder.problem().isEmpty(), qPrintable(folder.problem()));
        const QString stuck = folder.makeFile("a.dwg", "AC1032");
        const QString other = "/tmp";
        const Threads threads(1); // as many as an idle machine needs
        threads.runOut();
        FileProbe probe;
        QCOMPARE(probe.unresponsive({stuck, other}), QStringList());
        folder.stopAnswering();
        QCOMPARE(probe.unresponsive({stuck}), QStringList(stuck)); // occupies the only thread
        QCOMPARE(probe.unresponsive({stuck, other}), QStringList({stuck, other}));
        threads.allowAgain();
        QTRY_COMPARE(probe.unresponsive({stuck, other}), QStringList(stuck));
        folder.answerAgain();
        QTRY_COMPARE(probe.unresponsive({stuck, other}), QStringList());
    }

    void helperWithoutAThreadIsReported()
    {
        const Threads threads;
        threads.runOut();
        FileProbe probe;
        QElapsedTimer clock;
        clock.start();
        QCOMPARE(probe.unresponsive({"/tmp"}), QStringList());
        QVERIFY(!probe.outcome());
        QVERIFY2(clock.elapsed() < 5000, "it was waited for");
    }

    void withoutAHelperNoFileIsUnresponsive()
    {
        BytesInStuckFolder folder(BytesInStuckFolder::Kind::Calls);
        QVERIFY2(folder.problem().isEmpty(), qPrintable(folder.problem()));
        const QString file = folder.makeFile("a.dwg", "AC1032");
        folder.stopAnswering();
        const QString nowhere = "/no such folder/fxprobe";
        FileProbe probe(nowhere);
        QCOMPARE(probe.unresponsive({file}), QStringList());
        QVERIFY2(probe.outcome().reason().contains(nowhere), qPrintable(probe.outcome().reason()));
        FileProbe mute("/bin/true"); // starts, and writes nothing
        QCOMPARE(mute.unresponsive({file}), QStringList());
        QVERIFY(!mute.outcome());
    }

    // The recent documents that modules get, and what is reported to the user about the others.

    void withoutAHelperModulesGetAllAndTheUserOneMessage()
    {
        const QString nowhere = "/no such folder/fxprobe";
        FileProbe probe(nowhere);
        const ModulesList list(probe, {"/a.dwg"});
        for (int i = 0; i < 3; ++i)
            QCOMPARE(list.given(), QStringList("/a.dwg"));
        QCOMPARE(list.messages().size(), 1);
        QVERIFY2(list.messages().constFirst().contains(nowhere), qPrintable(list.messages().constFirst()));
    }

    void modulesGetOnlyResponsiveFiles_data() { addStuckFolderRows(); }
    void modulesGetOnlyResponsiveFiles()
    {
        STUCK_FOLDER_OR_SKIP(folder);
        const QString away = folder.makeFile("away.dwg", "AC1032");
        const QString astral = "/\u6771\u4eac \U0001F4D0.dwg";
        const QStringList all = {astral, away, "/b.dwg"};
        FileProbe probe;
        const ModulesList list(probe, all);
        QCOMPARE(list.given(), all);
        QCOMPARE(list.messages(), QStringList());
        for (int round = 1; round <= 2; ++round) {
            folder.stopAnswering();
            QTRY_COMPARE(list.given(), QStringList({astral, "/b.dwg"}));
            QCOMPARE(list.given().size(), 2);
            QCOMPARE(list.listed(), all);
            const QStringList messages = list.messages();
            QCOMPARE(messages.size(), round);
            QVERIFY2(messages.constLast().contains(away) && !messages.constLast().contains(astral),
                     qPrintable(messages.constLast()));
            folder.answerAgain();
            QTRY_COMPARE(list.given(), all);
        }
    }
};

CORE_TEST_CLASS(tst_FileProbe);
#include "tst_fileprobe.moc"

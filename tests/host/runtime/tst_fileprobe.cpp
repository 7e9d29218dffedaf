// SPDX-License-Identifier: MIT
#include "host/runtime/Paths.h"
#include "host/runtime/probe/FileProbe.h"
#include "host/runtime/recent/AnsweringRecentFiles.h"
#include "host/runtime/recent/RecentFiles.h"
#include "tests/support/SpecialFiles.h"
#include "tests/support/StuckFolder.h"
#include "tests/support/TestCase.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>

#include <csignal>

using fxhost::FileProbe;

Q_DECLARE_METATYPE(StuckFolder::Kind)

//! Which files answer, and which recent documents modules get to see.
class tst_FileProbe : public TestCase
{
    Q_OBJECT

private slots:
    void whateverIsThereAnswers_data() { addSpecialFileRows(); }
    void whateverIsThereAnswers();
    void oddNamesAnswer_data();
    void oddNamesAnswer();
    void aThousandFilesAnswer();
    void aHelperLeftBehindHoldsNothingOfTheHost();
    void silentFilesAreToldFromTheOthers_data() { addKinds(); }
    void silentFilesAreToldFromTheOthers();
    void silentFilesAreWaitedForOnce_data() { addKinds(); }
    void silentFilesAreWaitedForOnce();
    void whoIsPatientWaitsLonger_data() { addKinds(); }
    void whoIsPatientWaitsLonger();
    void filesOfAServerThatWasReplacedAnswer();
    void whatAnsweredLongAgoIsAskedAnew_data() { addKinds(); }
    void whatAnsweredLongAgoIsAskedAnew();
    void theEndDoesNotWaitForSilentFiles_data() { addKinds(); }
    void theEndDoesNotWaitForSilentFiles();
    void aHelperThatDiesIsReplaced();
    void aHelperThatDiesIsNoSilentFile();
    void aHelperWithoutThreadsSaysWhatNeedsNone();
    void withoutAHelperNothingIsSilent();
    void withoutAHelperItIsSaidOnce();
    void modulesGetWhatAnswers_data() { addKinds(); }
    void modulesGetWhatAnswers();

private:
    static void addKinds();
};

namespace {

//! The process that is the helper of this one; empty when there is none, or several.
QString helperId()
{
    QProcess pgrep;
    pgrep.start(QStringLiteral("pgrep"),
                {QStringLiteral("-P"), QString::number(QCoreApplication::applicationPid()),
                 QStringLiteral("fxprobe")});
    pgrep.waitForFinished();
    const QString found = QString::fromLatin1(pgrep.readAllStandardOutput()).trimmed();
    return found.contains(QLatin1Char('\n')) ? QString() : found;
}

//! Ends helpers of this process. \return whether there was one
bool killHelper()
{
    QProcess pkill;
    pkill.start(QStringLiteral("pkill"),
                {QStringLiteral("-KILL"), QStringLiteral("-P"),
                 QString::number(QCoreApplication::applicationPid()), QStringLiteral("fxprobe")});
    return pkill.waitForFinished() && pkill.exitCode() == 0;
}

} // namespace

void tst_FileProbe::addKinds()
{
    QTest::addColumn<StuckFolder::Kind>("kind");
    QTest::newRow("a mount") << StuckFolder::Kind::Mount;
    QTest::newRow("calls that wait") << StuckFolder::Kind::Calls;
}

#define STUCK_FOLDER_OR_SKIP(folder)                                                                         \
    QFETCH(StuckFolder::Kind, kind);                                                                         \
    StuckFolder folder(kind);                                                                                \
    if (!(folder).problem().isEmpty())                                                                       \
    QSKIP(qPrintable((folder).problem()))

void tst_FileProbe::whateverIsThereAnswers()
{
    QFETCH(SpecialFile, kind);
    const SpecialFiles files;
    FileProbe probe;
    QCOMPARE(probe.silent({files.path(kind)}), QStringList());
    QCOMPARE(probe.problem(), QString());
}

void tst_FileProbe::oddNamesAnswer_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("too long a name") << QStringLiteral("/tmp/") + QString(300, QLatin1Char('n'));
    QTest::newRow("too long a path") << QString(2100, QLatin1Char('/')) + QString(2100, QLatin1Char('a'));
    QTest::newRow("a line break") << QStringLiteral("/tmp/a\n1\n.dwg");
    QTest::newRow("blanks") << QStringLiteral("/tmp/ a b ");
    QTest::newRow("no UTF-8") << fxhost::pathFromBytes("/tmp/\xff\xc3");
    QTest::newRow("below /proc") << QStringLiteral("/proc/self/mem");
}

void tst_FileProbe::oddNamesAnswer()
{
    QFETCH(QString, path);
    FileProbe probe;
    QCOMPARE(probe.silent({path}), QStringList());
}

void tst_FileProbe::aThousandFilesAnswer()
{
    QStringList paths;
    for (int i = 0; i < 1000; ++i)
        paths.append(QStringLiteral("/tmp/there is no drawing %1.dwg").arg(i));
    FileProbe probe;
    QCOMPARE(probe.silent(paths), QStringList());
}

void tst_FileProbe::silentFilesAreToldFromTheOthers()
{
    STUCK_FOLDER_OR_SKIP(folder);
    const QTemporaryDir usual;
    const QString first = folder.makeFile(QStringLiteral("first.dwg"), "AC1032");
    const QString missing = folder.path(QStringLiteral("missing.dwg"));
    const QString link = usual.filePath(QStringLiteral("link.dwg"));
    QVERIFY(QFile::link(first, link));
    const QStringList answering = {usual.filePath(QStringLiteral("a.dwg")), usual.path(), QString()};
    const QStringList paths = {answering.at(0), first, missing, answering.at(1), link, answering.at(2)};

    FileProbe probe;
    QCOMPARE(probe.silent(paths), QStringList());
    folder.stopAnswering();
    // Answers are good for a moment, and then asked for again.
    QTRY_COMPARE(probe.silent(paths), (kind == StuckFolder::Kind::Mount ? QStringList({first, missing, link})
                                                                        : QStringList({first, missing})));
    folder.answerAgain();
    QTRY_COMPARE(probe.silent(paths), QStringList());
}

void tst_FileProbe::silentFilesAreWaitedForOnce()
{
    STUCK_FOLDER_OR_SKIP(folder);
    const QString file = folder.makeFile(QStringLiteral("a.dwg"), "AC1032");
    folder.stopAnswering();
    FileProbe probe;
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(probe.silent({file}), QStringList(file));
    QCOMPARE(FileProbe::deadline, 300);
    QVERIFY2(clock.elapsed() >= FileProbe::deadline, "it was not given its time");
    clock.restart();
    constexpr int times = 100; // which would take half a minute
    for (int i = 0; i < times; ++i)
        QCOMPARE(probe.silent({file}), QStringList(file));
    QVERIFY2(clock.elapsed() < times * FileProbe::deadline / 2, "it was waited for again");
}

void tst_FileProbe::whoIsPatientWaitsLonger()
{
    STUCK_FOLDER_OR_SKIP(folder);
    const QString file = folder.makeFile(QStringLiteral("a.dwg"), "AC1032");
    folder.stopAnswering();
    FileProbe probe;
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(probe.silent({file}), QStringList(file));
    const qint64 usual = clock.elapsed();
    constexpr int patience = 4 * FileProbe::deadline;
    QCOMPARE(probe.silent({file}, 0, patience), QStringList(file));
    QVERIFY2(clock.elapsed() >= patience, "it was not given its time");
    QVERIFY2(clock.elapsed() < usual + patience, "its time did not count from the first question");
}

void tst_FileProbe::filesOfAServerThatWasReplacedAnswer()
{
    StuckFolder folder(StuckFolder::Kind::Mount);
    if (!folder.problem().isEmpty())
        QSKIP(qPrintable(folder.problem()));
    const QString file = folder.makeFile(QStringLiteral("a.dwg"), "AC1032");
    folder.stopAnswering();
    FileProbe probe;
    QCOMPARE(probe.silent({file}), QStringList(file));
    folder.replaceServer(); // the former one keeps the question
    QTRY_COMPARE_WITH_TIMEOUT(probe.silent({file}), QStringList(), 5 * FileProbe::firstRepeat);
}

void tst_FileProbe::whatAnsweredLongAgoIsAskedAnew()
{
    STUCK_FOLDER_OR_SKIP(folder);
    const QString file = folder.makeFile(QStringLiteral("a.dwg"), "AC1032");
    FileProbe witness; // which keeps looking, so that we know when the answer has come
    FileProbe probe;
    folder.stopAnswering();
    QCOMPARE(probe.silent({file}), QStringList(file));
    QCOMPARE(witness.silent({file}), QStringList(file));
    folder.answerAgain();
    QTRY_COMPARE(witness.silent({file}), QStringList());
    folder.stopAnswering();
    // It did answer, while nobody listened.
    constexpr int minute = 60000;
    QCOMPARE(probe.silent({file}, minute), QStringList(file));
}

void tst_FileProbe::theEndDoesNotWaitForSilentFiles()
{
    STUCK_FOLDER_OR_SKIP(folder);
    const QString file = folder.makeFile(QStringLiteral("a.dwg"), "AC1032");
    folder.stopAnswering();
    const Alarm alarm;
    {
        FileProbe probe;
        QCOMPARE(probe.silent({file}), QStringList(file));
    }
    FileProbe another;
    QCOMPARE(another.silent({file}), QStringList(file));
}

void tst_FileProbe::aHelperLeftBehindHoldsNothingOfTheHost()
{
    FileProbe probe;
    QCOMPARE(probe.silent({QStringLiteral("/tmp/a.dwg")}), QStringList());
    const QString helper = QStringLiteral("/proc/%1/").arg(helperId());
    QCOMPARE(QFile::symLinkTarget(helper + QStringLiteral("cwd")), QStringLiteral("/"));
    QCOMPARE(QFile::symLinkTarget(helper + QStringLiteral("fd/2")), QStringLiteral("/dev/null"));
}

void tst_FileProbe::aHelperThatDiesIsReplaced()
{
    StuckFolder folder(StuckFolder::Kind::Calls);
    QVERIFY2(folder.problem().isEmpty(), qPrintable(folder.problem()));
    const QString file = folder.makeFile(QStringLiteral("a.dwg"), "AC1032");
    folder.stopAnswering();
    FileProbe probe;
    QCOMPARE(probe.silent({file}), QStringList(file));
    QVERIFY(killHelper());
    folder.answerAgain();
    // What the old one was asked, the new one must be asked again.
    QTRY_COMPARE(probe.silent({file}), QStringList());
    QCOMPARE(probe.problem(), QString());
    QVERIFY(killHelper()); // there was a new one
}

void tst_FileProbe::aHelperThatDiesIsNoSilentFile()
{
    FileProbe probe;
    for (int i = 0; i < 10; ++i) {
        const QString file = QStringLiteral("/tmp/there is no drawing %1.dwg").arg(i);
        QCOMPARE(probe.silent({file}), QStringList());
        QVERIFY(killHelper());
    }
    QCOMPARE(probe.problem(), QString());
}

void tst_FileProbe::aHelperWithoutThreadsSaysWhatNeedsNone()
{
    // A thread's stack is as large as the limit says: more than there are addresses.
    QProcess helper;
    helper.start(QStringLiteral("prlimit"),
                 {QStringLiteral("--stack=%1:").arg(Q_INT64_C(1) << 47), QStringLiteral(FXPROBE_PROGRAM)});
    QVERIFY(helper.waitForStarted());
    helper.write(QByteArray("1 /tmp\0", 7) + QByteArray("2 \0", 3));
    QVERIFY(helper.waitForReadyRead());
    helper.closeWriteChannel();
    QVERIFY(helper.waitForFinished());
    QCOMPARE(helper.readAllStandardOutput(), QByteArray("2\n"));
}

void tst_FileProbe::withoutAHelperNothingIsSilent()
{
    StuckFolder folder(StuckFolder::Kind::Calls);
    QVERIFY2(folder.problem().isEmpty(), qPrintable(folder.problem()));
    const QString file = folder.makeFile(QStringLiteral("a.dwg"), "AC1032");
    folder.stopAnswering();
    const QString nowhere = QStringLiteral("/no such folder/fxprobe");
    FileProbe probe(nowhere);
    QCOMPARE(probe.silent({file}), QStringList());
    QVERIFY2(probe.problem().contains(nowhere), qPrintable(probe.problem()));
    FileProbe silentOne(QStringLiteral("/bin/true")); // starts, and says nothing
    QCOMPARE(silentOne.silent({file}), QStringList());
    QVERIFY(!silentOne.problem().isEmpty());
}

void tst_FileProbe::withoutAHelperItIsSaidOnce()
{
    const QString nowhere = QStringLiteral("/no such folder/fxprobe");
    fxhost::RecentFiles listed;
    listed.setPaths({QStringLiteral("/a.dwg")});
    FileProbe probe(nowhere);
    QStringList said;
    const fxhost::AnsweringRecentFiles list(listed, probe, [&](const QString &text) { said.append(text); });
    std::vector<CFxString> paths;
    for (int i = 0; i < 3; ++i) {
        list.GetPaths(paths);
        QCOMPARE(QStringList(paths.begin(), paths.end()), listed.paths());
    }
    QCOMPARE(said.size(), 1);
    QVERIFY2(said.constFirst().contains(nowhere), qPrintable(said.constFirst()));
}

void tst_FileProbe::modulesGetWhatAnswers()
{
    STUCK_FOLDER_OR_SKIP(folder);
    const QString away = folder.makeFile(QStringLiteral("away.dwg"), "AC1032");
    const QString astral = QStringLiteral("/\u6771\u4eac \U0001F4D0.dwg");
    fxhost::RecentFiles listed;
    listed.setPaths({astral, away, QStringLiteral("/b.dwg")});
    FileProbe probe;
    QStringList said;
    const fxhost::AnsweringRecentFiles list(listed, probe, [&](const QString &text) { said.append(text); });
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
        QTRY_COMPARE(given(), QStringList({astral, QStringLiteral("/b.dwg")}));
        QCOMPARE(given().size(), 2);
        QCOMPARE(listed.paths(), all); // kept all the same
        QCOMPARE(said.size(), round);  // once each time
        QVERIFY2(said.constLast().contains(away) && !said.constLast().contains(astral),
                 qPrintable(said.constLast()));
        folder.answerAgain();
        QTRY_COMPARE(given(), all);
    }
}

QTEST_GUILESS_MAIN(tst_FileProbe)
#include "tst_fileprobe.moc"

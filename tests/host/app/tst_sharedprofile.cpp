// SPDX-License-Identifier: MIT
#include "host/runtime/recent/RecentFileStore.h"
#include "tests/support/TestCase.h"
#include "tests/support/process/ProgramHome.h"

#include <algorithm>
#include <chrono>
#include <memory>
#include <thread>
#include <vector>

using fxhost::RecentFileStore;

namespace {

bool isLong()
{
    return qEnvironmentVariableIsSet("LONG_RUN");
}

constexpr int timeLimit = 20 * patience;

//! The paths in the list's file; a description when the file is incomplete.
QStringList listIn(const ProgramHome &home)
{
    if (!QFile::exists(home.recentFile()))
        return {};
    QFile file(home.recentFile());
    if (!file.open(QIODevice::ReadOnly))
        return {"unreadable"};
    const QString content = QString::fromUtf8(file.readAll());
    if (!content.startsWith("fxhost recent documents 2\n") || !content.endsWith('\n'))
        return {QString("damaged: ") + content};
    return ProgramHome::pathsIn(content);
}

} // namespace

//! Programs that share a profile, and killed programs. The preset `long` repeats it more often.
class tst_SharedProfile : public TestCase
{
    Q_OBJECT

private slots:
    void twoProgramsLoseNoEntry()
    {
        const int count = isLong() ? 500 : 60;
        const ProgramHome home;
        QCOMPARE(home.run({"_RECENTLIMIT 1000", "_QUIT"}).exitCode, 0);
        QSet<QString> all;
        QList<QStringList> opened;
        std::vector<std::unique_ptr<QProcess>> programs;
        for (const char *name : {"one", "other"}) {
            QStringList script;
            QStringList paths;
            for (int i = 0; i < count; ++i) {
                paths.append(home.drawing(QString("%1 %2.dwg").arg(QLatin1String(name)).arg(i)));
                script << QString("_OPEN ") + paths.constLast() << "_CLOSE";
            }
            script << QString("_RECENTKEEP ") + paths.constFirst() << "_QUIT";
            opened.append(paths);
            all += QSet<QString>(paths.begin(), paths.end());
            programs.push_back(std::make_unique<QProcess>());
            home.start(*programs.back(), QLatin1String(name), script);
        }
        // Any reader finds the list whole, and never shorter than before.
        int reads = 0;
        int length = 0;
        const auto isRunning = [](const auto &program) { return program->state() != QProcess::NotRunning; };
        const bool ended = QTest::qWaitFor(
            [&] {
                const QStringList list = listIn(home);
                if (list.size() < length || (!list.isEmpty() && !list.constFirst().startsWith('/')))
                    return true;
                length = list.size();
                ++reads;
                return std::none_of(programs.begin(), programs.end(), isRunning);
            },
            timeLimit);
        QVERIFY2(ended && std::none_of(programs.begin(), programs.end(), isRunning),
                 qPrintable(QString("after %1 entries: ").arg(length) + listIn(home).value(0)));
        for (const auto &program : programs)
            QCOMPARE(program->exitCode(), 0);

        const QStringList list = listIn(home);
        QCOMPARE(list.size(), 2 * count);
        QCOMPARE(QSet<QString>(list.begin(), list.end()), all);
        const QStringList kept = list.mid(0, 2);
        for (QStringList &paths : opened) { // each program's paths are in the order of opening
            QVERIFY(kept.contains(paths.takeFirst()));
            QStringList own = list;
            own.erase(
                std::remove_if(own.begin(), own.end(), [&](const QString &p) { return !paths.contains(p); }),
                own.end());
            std::reverse(own.begin(), own.end());
            QCOMPARE(own, paths);
        }
        const auto isOfOne = [](const QString &path) { return path.contains("/one "); };
        int turns = 0;
        for (int i = 1; i < list.size(); ++i)
            turns += isOfOne(list.at(i)) != isOfOne(list.at(i - 1));
        // In a short run on a busy machine one may end before the other begins.
        QVERIFY2(!isLong() || turns > count / 10, qPrintable(QString::number(turns)));
        qInfo("2 programs, %d drawings each: %d entries, %d turns, list read %d times", count, list.size(),
              turns, reads);
    }

    void aKilledProgramLeavesTheOldOrTheNewList()
    {
        const int kills = isLong() ? 200 : 15;
        constexpr uint seed = 20261121;
        QRandomGenerator random(seed);
        const ProgramHome home;
        QCOMPARE(home.run({"_RECENTLIMIT 1000", "_QUIT"}).exitCode, 0);
        QStringList script; // long enough for a late kill
        for (int i = 0; i < 1000; ++i)
            script << QString("_RECENTADD /drawings/%1.dwg").arg(i);
        int atRest = 0;
        int written = 0;
        for (int round = 0; round < kills; ++round) {
            RecentFileStore(home.recentFile()).update({}, [](const fxhost::RecentEntries &) {
                return fxhost::RecentEntries();
            });
            QProcess program;
            home.start(program, "killed", script);
            const auto done = [&] { return home.logOf("killed").size(); };
            const int after = 1 + random.bounded(40); // commands
            QVERIFY(waitUntil([&] { return done() >= after; }));
            // A write takes about a millisecond; this is a random moment of the next ones.
            std::this_thread::sleep_for(std::chrono::microseconds(random.bounded(3000)));
            program.kill();
            QVERIFY(program.waitForFinished());
            QCOMPARE(program.exitStatus(), QProcess::CrashExit);

            const int logged = done(); // each after its write
            const QStringList list = listIn(home);
            QVERIFY2(list.size() == logged || list.size() == logged + 1,
                     qPrintable(QString("%1 of %2: ").arg(list.size()).arg(logged) + list.value(0)));
            for (int i = 0; i < list.size(); ++i)
                QCOMPARE(list.at(i), QString("/drawings/%1.dwg").arg(list.size() - 1 - i));
            atRest += list.size() == logged;
            written += list.size();
        }
        // The next start removes incomplete files.
        const auto unfinished = [&] {
            return QDir(home.profile())
                .entryList(QDir::Files)
                .filter(QRegularExpression("^recent\\.txt\\.[A-Za-z]{6}$"));
        };
        const int left = unfinished().size();
        QCOMPARE(home.run({"_QUIT"}).exitCode, 0);
        QCOMPARE(unfinished(), QStringList());
        qInfo(
            "%d kills, seed %u: %d entries written, list as logged %d times and one ahead %d times, %d files "
            "left incomplete",
            kills, seed, written, atRest, kills - atRest, left);
    }
};

CORE_TEST_CLASS(tst_SharedProfile);
#include "tst_sharedprofile.moc"

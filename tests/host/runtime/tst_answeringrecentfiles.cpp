// SPDX-License-Identifier: MIT
#include "host/runtime/probe/FileProbe.h"
#include "host/runtime/recent/AnsweringRecentFiles.h"
#include "host/runtime/recent/RecentFiles.h"
#include "tests/support/StuckFolder.h"
#include "tests/support/TestCase.h"

using fxhost::FileProbe;

//! Which recent documents modules get to see, and what the user is told of the others.
class tst_AnsweringRecentFiles : public TestCase
{
    Q_OBJECT

private slots:
    void withoutAHelperItIsSaidOnce();
    void modulesGetWhatAnswers_data() { addStuckFolderRows(); }
    void modulesGetWhatAnswers();
};

void tst_AnsweringRecentFiles::withoutAHelperItIsSaidOnce()
{
    const QString nowhere = "/no such folder/fxprobe";
    fxhost::RecentFiles listed;
    listed.setPaths({"/a.dwg"});
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

void tst_AnsweringRecentFiles::modulesGetWhatAnswers()
{
    STUCK_FOLDER_OR_SKIP(folder);
    const QString away = folder.makeFile("away.dwg", "AC1032");
    const QString astral = "/\u6771\u4eac \U0001F4D0.dwg";
    fxhost::RecentFiles listed;
    listed.setPaths({astral, away, "/b.dwg"});
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

QTEST_GUILESS_MAIN(tst_AnsweringRecentFiles)
#include "tst_answeringrecentfiles.moc"

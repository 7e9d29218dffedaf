// SPDX-License-Identifier: MIT
#include "tests/support/FileManager.h"
#include "tests/support/Hand.h"
#include "tests/support/RunningProgram.h"
#include "tests/support/TestCase.h"

//! "Show in Folder" of the program, with a stand-in for the file manager.
class tst_FolderOnDesktop : public TestCase
{
    Q_OBJECT

private slots:
    void fileManagerGetsThePath_data();
    void fileManagerGetsThePath();
};

void tst_FolderOnDesktop::fileManagerGetsThePath_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("arguments");
    QTest::newRow("blanks") << "two  blanks"
                            << " a b .dwg" << 1;
    QTest::newRow("umlauts") << "Gr\u00f6\u00dfe"
                             << "\u00dcbersicht.dwg" << 1;
    QTest::newRow("ampersand") << "a & b"
                               << "c&&d.dwg" << 1;
    QTest::newRow("percent") << "100%"
                             << "50%20off %1 %n.dwg" << 1;
    QTest::newRow("apostrophe") << "it's"
                                << "'x'.dwg" << 1;
    QTest::newRow("what a shell would take apart") << "$HOME"
                                                   << "`id` $(id) ; * ? \\ <.dwg" << 1;
    QTest::newRow("a leading dash") << "-r"
                                    << "--help.dwg" << 1;
    QTest::newRow("double quotes") << "3\" pipe"
                                   << "4\".dwg" << 2; // the command ends its first argument at the blank
}

void tst_FolderOnDesktop::fileManagerGetsThePath()
{
    QFETCH(QString, folder);
    QFETCH(QString, name);
    QFETCH(int, arguments);
    RunningProgram program({name}, folder);
    const FileManager fileManager(0, FileManager::Others::Found);
    QVERIFY(program.start({QStringLiteral("_NEW"), QStringLiteral("_RECENT")}));
    QTRY_COMPARE(RunningProgram::activeTitle(), RunningProgram::popupTitle());
    Hand::moveTo(RunningProgram::folderButton);
    Hand::click();
    QTRY_COMPARE(RunningProgram::popup(), WId(0));
    // A path that holds quotes breaks its own, and nothing else comes of it.
    QString path = program.paths().constFirst();
    const QStringList expected =
        arguments == 1 ? QStringList(path) : path.remove(QLatin1Char('"')).split(QLatin1Char(' '));
    QCOMPARE(fileManager.starts(), QVector<QStringList>{expected});
    QVERIFY(program.opened().isEmpty());
    QVERIFY(program.quit());
}

QTEST_MAIN(tst_FolderOnDesktop)
#include "tst_folderondesktop.moc"

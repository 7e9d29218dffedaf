// SPDX-License-Identifier: MIT
#include "tests/support/FreshSession.h"
#include "tests/support/Hand.h"
#include "tests/support/RunningProgram.h"
#include "tests/support/TestCase.h"

#include <QFile>
#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>
#include <QSet>
#include <QStandardPaths>

//! "Show in Folder" of the program, with the file manager that people have and with a stand-in.
class tst_FolderOnDesktop : public TestCase
{
    Q_OBJECT

private slots:
    void fileManagerGetsThePath_data();
    void fileManagerGetsThePath();
    void realFileManagerShowsTheFolder();
};

namespace {

const QStringList script{QStringLiteral("_NEW"), QStringLiteral("_RECENT")};

//! On the folder button of the popup's first tile: right of the name, left of the pin.
const QPoint folderButton = RunningProgram::popupPlace.topLeft() + QPoint(138, 83);

//! How many different colours the window shows where the file manager has its files: right of its places,
//! under its bar.
int coloursOfFiles(WId window)
{
    const QRect place = Hand::realGeometry(window);
    const QRect files = place.adjusted(place.width() / 3, place.height() / 5, -20, -20);
    const QImage image = QGuiApplication::primaryScreen()
                             ->grabWindow(0, files.x(), files.y(), files.width(), files.height())
                             .toImage();
    QSet<QRgb> colours;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            colours.insert(image.pixel(x, y));
    }
    return colours.size();
}

} // namespace

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
    // Found first, it writes down what it was called with.
    const QString fileManager = program.folder() + QStringLiteral("/nautilus");
    const QString calls = program.folder() + QStringLiteral("/calls");
    QFile stub(fileManager);
    QVERIFY(stub.open(QIODevice::WriteOnly));
    stub.write("#!/bin/sh\nprintf '%s\\n' \"$#\" \"$@\" >>\"$(dirname \"$0\")/calls\"\n");
    stub.close();
    QVERIFY(stub.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    QVERIFY(program.start(
        script, {QStringLiteral("env"),
                 QStringLiteral("PATH=%1:%2").arg(program.folder(), qEnvironmentVariable("PATH"))}));
    QTRY_COMPARE(RunningProgram::activeTitle(), RunningProgram::popupTitle());
    Hand::moveTo(folderButton);
    Hand::click();
    QTRY_COMPARE(RunningProgram::popup(), WId(0));
    QFile file(calls);
    QVERIFY2(file.open(QIODevice::ReadOnly), "the file manager was not called");
    // A path that holds quotes breaks its own, and nothing else comes of it.
    QString text = QStringLiteral("%1\n%2\n").arg(arguments).arg(program.paths().constFirst());
    if (arguments > 1)
        text.replace(QLatin1Char(' '), QLatin1Char('\n')).remove(QLatin1Char('"'));
    QCOMPARE(QString::fromUtf8(file.readAll()), text);
    QVERIFY(program.opened().isEmpty());
    QVERIFY(program.quit());
}

void tst_FolderOnDesktop::realFileManagerShowsTheFolder()
{
    if (QStandardPaths::findExecutable(QStringLiteral("nautilus")).isEmpty() ||
        QStandardPaths::findExecutable(QStringLiteral("dbus-run-session")).isEmpty())
        QSKIP("nautilus or dbus-run-session is not installed");
    RunningProgram program({QStringLiteral("ground floor.dwg")}, QStringLiteral("h\u00e4user & g\u00e4rten"));
    QVERIFY(program.start(script, freshSession(program.folder())));
    QTRY_COMPARE(RunningProgram::activeTitle(), RunningProgram::popupTitle());
    Hand::moveTo(folderButton);
    Hand::click();
    // It needs a while to come up on a busy machine.
    const QString title = QStringLiteral("h\u00e4user & g\u00e4rten");
    QTRY_COMPARE_WITH_TIMEOUT(RunningProgram::activeTitle(), title, 60000);
    // An empty folder has one colour, an icon with a name under it has many. It is drawn more than once, with
    // nothing in between, so that whoever asks again may find nothing.
    const auto showsFiles = [&] { return coloursOfFiles(RunningProgram::findWindow(title)) > 5; };
    QVERIFY(QTest::qWaitFor(showsFiles, 60000));
    Hand::keepScreenshot(QStringLiteral("folder-in-the-file-manager"));
    // The first of its windows keeps the command running, and the program waits for the command's end.
    Hand::key(QStringLiteral("alt+F4"));
    QTRY_COMPARE_WITH_TIMEOUT(RunningProgram::popup(), WId(0), 20000);
    QTRY_VERIFY(RunningProgram::activeTitle().startsWith(QLatin1String("fxhost")));
    QVERIFY(program.quit());
    QTRY_VERIFY_WITH_TIMEOUT(!sessionRuns(program.folder()), 20000); // it writes into the folder
}

QTEST_MAIN(tst_FolderOnDesktop)
#include "tst_folderondesktop.moc"

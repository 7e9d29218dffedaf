// SPDX-License-Identifier: MIT
#include "samples/DrawingWriter.h"
#include "tests/support/Hand.h"
#include "tests/support/TestCase.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

//! The program as a user starts it, in a process of its own: from the script to the opened drawing and out.
class tst_ProgramOnDesktop : public TestCase
{
    Q_OBJECT

private slots:
    void initTestCase();
    void drawingIsOpenedThroughThePopup();
    void helpIconLeadsToTheHelpWindow();

private:
    void start(QProcess *program);
    QStringList log() const;
    //! The window of that name on screen; 0 when there is none.
    static WId findWindow(const QString &name);
    //! Types a command and waits for the program's end.
    static void quit(QProcess *program);

    QTemporaryDir m_folder;
    QStringList m_paths;
};

namespace {

// The grid as the popup lays it out under a header of two lines, in pixels.
constexpr int columnWidth = 181;
constexpr int tileMiddle = 91;
constexpr int firstRowMiddle = 130;

} // namespace

void tst_ProgramOnDesktop::initTestCase()
{
    QFile script(m_folder.filePath(QStringLiteral("script")));
    QVERIFY(script.open(QIODevice::WriteOnly));
    for (const char *name : {"roof.dwg", "cellar & garage.dwg", "gr\xc3\xbcndung.dwg"}) {
        QImage picture(180, 112, QImage::Format_RGB32);
        picture.fill(Qt::darkCyan);
        QFile drawing(m_folder.filePath(QString::fromUtf8(name)));
        QVERIFY(drawing.open(QIODevice::WriteOnly));
        drawing.write(fxsamples::drawingFile(picture, {}));
        m_paths.prepend(drawing.fileName());
        script.write("_RECENTADD " + drawing.fileName().toUtf8() + '\n');
    }
    script.write("_NEW\n_RECENT\n");
}

void tst_ProgramOnDesktop::start(QProcess *program)
{
    Hand::moveTo(QPoint(0, 0));
    QFile::remove(m_folder.filePath(QStringLiteral("log")));
    program->setProcessChannelMode(QProcess::ForwardedChannels);
    program->start(QStringLiteral(FXHOST_FILE),
                   {QStringLiteral("--profile"), m_folder.filePath(QStringLiteral("profile")),
                    QStringLiteral("--script"), m_folder.filePath(QStringLiteral("script")),
                    QStringLiteral("--log"), m_folder.filePath(QStringLiteral("log")),
                    QStringLiteral("--geometry"), QStringLiteral("1300x900+60+60"),
                    QStringLiteral("--no-document")});
    QVERIFY(program->waitForStarted());
}

QStringList tst_ProgramOnDesktop::log() const
{
    QFile file(m_folder.filePath(QStringLiteral("log")));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'))
                                          : QStringList();
}

WId tst_ProgramOnDesktop::findWindow(const QString &name)
{
    QProcess search;
    search.start(QStringLiteral("xdotool"),
                 {QStringLiteral("search"), QStringLiteral("--onlyvisible"), QStringLiteral("--name"), name});
    search.waitForFinished();
    return search.readAllStandardOutput().trimmed().toULongLong();
}

void tst_ProgramOnDesktop::quit(QProcess *program)
{
    for (const char *key : {"underscore", "Q", "U", "I", "T", "Return"})
        Hand::key(QLatin1String(key));
    QVERIFY(program->waitForFinished());
    QCOMPARE(program->exitStatus(), QProcess::NormalExit);
    QCOMPARE(program->exitCode(), 0);
}

void tst_ProgramOnDesktop::drawingIsOpenedThroughThePopup()
{
    QProcess program;
    start(&program);
    QTRY_VERIFY(log().contains(QStringLiteral("command _RECENT 5100")));
    WId popup = 0;
    QTRY_VERIFY((popup = findWindow(QStringLiteral("^RecentDocMainWindow$"))) != 0);
    const QRect place(288, 349, 724, 201); // the main window's 1300 x 900 less the popup's size, halved
    QTRY_COMPARE(Hand::realGeometry(popup), place);
    Hand::keepScreenshot(QStringLiteral("program-with-popup"));

    Hand::moveTo(place.topLeft() + QPoint(tileMiddle + columnWidth, firstRowMiddle));
    Hand::doubleClick();
    QTRY_VERIFY(log().contains(QStringLiteral("open %1 ok").arg(m_paths.at(1))));
    QTRY_COMPARE(findWindow(QStringLiteral("^RecentDocMainWindow$")), WId(0));
    QTRY_VERIFY(findWindow(QStringLiteral("cellar & garage.dwg")) != 0);
    Hand::keepScreenshot(QStringLiteral("program-with-opened-drawing"));
    quit(&program); // the keys reach the command line by themselves
    const QStringList lines = log();
    QCOMPARE(lines.filter(QStringLiteral("open ")).size(), 1);
    QCOMPARE(lines.filter(QStringLiteral("module ")),
             QStringList({QStringLiteral("module %1 loaded").arg(QStringLiteral(MODULE_FILE)),
                          QStringLiteral("module %1 unloaded").arg(QStringLiteral(MODULE_FILE))}));
}

void tst_ProgramOnDesktop::helpIconLeadsToTheHelpWindow()
{
    QProcess program;
    start(&program);
    WId popup = 0;
    QTRY_VERIFY((popup = findWindow(QStringLiteral("^RecentDocMainWindow$"))) != 0);
    const QRect place = Hand::realGeometry(popup);
    Hand::moveTo(QPoint(place.right() - 8, place.top() + 14));
    Hand::click();
    QTRY_VERIFY(log().contains(QStringLiteral("help 3087")));
    QTRY_VERIFY(log().contains(QStringLiteral("command _RHELP 5100")));
    QTRY_COMPARE(findWindow(QStringLiteral("^RecentDocMainWindow$")), WId(0));
    Hand::keepScreenshot(QStringLiteral("program-with-help"));
    program.terminate();
    QVERIFY(program.waitForFinished());
}

QTEST_MAIN(tst_ProgramOnDesktop)
#include "tst_programondesktop.moc"

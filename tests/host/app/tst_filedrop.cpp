// SPDX-License-Identifier: MIT
#include "host/runtime/Paths.h"
#include "host/runtime/recent/RecentFiles.h"
#include "tests/host/app/ShownProgram.h"

#include <QDir>
#include <QDragEnterEvent>
#include <QMimeData>

using namespace fxhost;

//! Files dropped on the main window. Drags from real programs are in tests/desktop.
class FileDropTest : public TestCase
{
    Q_OBJECT

private slots:
    void initTestCase() { keepBytesOfPaths(); }
    void filesAreTaken();
    void namesKeepTheirBytes();
    void moreThanFilesOpensTheFiles();
    void whatIsNoFileIsRefused_data();
    void whatIsNoFileIsRefused();
    void theOtherProgramKeepsItsFile();
    void fileThatIsNoDrawingGetsAMessage();
    void aDropOnTheCommandLineIsOneOnTheWindow();
    void aDropWaitsForTheRunningCommand();
};

namespace {

//! What another program offers, dragged over the widget at its centre and dropped there.
struct Offer
{
    explicit Offer(const QList<QUrl> &urls) { data.setUrls(urls); }

    bool enter(QWidget *widget)
    {
        QDragEnterEvent event(widget->rect().center(), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                              Qt::NoModifier);
        event.setDropAction(Qt::MoveAction);
        event.ignore();
        QCoreApplication::sendEvent(widget, &event);
        action = event.dropAction();
        return event.isAccepted();
    }

    void drop(QWidget *widget)
    {
        QDropEvent event(widget->rect().center(), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                         Qt::NoModifier);
        event.setDropAction(Qt::MoveAction);
        QCoreApplication::sendEvent(widget, &event);
        action = event.dropAction();
    }

    QMimeData data;
    Qt::DropAction action = Qt::IgnoreAction;
};

} // namespace

void FileDropTest::filesAreTaken()
{
    ShownProgram program;
    const QStringList paths = {program.drawing(QStringLiteral("a b & 100% \u00fc#1.dwg")),
                               program.drawing(QStringLiteral("second.dwg"))};
    // As the browser's own URLs are built: one slash more than usual.
    Offer offer({QUrl::fromLocalFile(paths.at(0)), QUrl(QStringLiteral("file:///") + paths.at(1))});
    QVERIFY(offer.enter(&program.window));
    offer.drop(&program.window);
    QVERIFY(program.openPaths().isEmpty()); // the other program has its answer first
    QTRY_COMPARE(program.openPaths(), paths);
    QCOMPARE(program.host.recentFiles().paths().first(), paths.at(1));
}

void FileDropTest::namesKeepTheirBytes()
{
    ShownProgram program;
    const QString path = program.drawing(pathFromBytes("gr\xfcn \xc3\xa4 100%.dwg"));
    const QByteArray url =
        "file://" + QFile::encodeName(program.dir.path()) + "/gr%FCn%20%C3%A4%20100%25.dwg";
    Offer offer({QUrl::fromEncoded(url)});
    QVERIFY(offer.enter(&program.window));
    offer.drop(&program.window);
    QTRY_COMPARE(program.openPaths(), QStringList(path));
}

void FileDropTest::moreThanFilesOpensTheFiles()
{
    ShownProgram program;
    const QString path = program.drawing(QStringLiteral("a.dwg"));
    Offer offer({QUrl(QStringLiteral("https://example.com/a.dwg")), QUrl::fromLocalFile(path)});
    QVERIFY(offer.enter(&program.window));
    offer.drop(&program.window);
    QTRY_COMPARE(program.openPaths(), QStringList(path));
    drainEvents();
    QCOMPARE(program.openPaths(), QStringList(path));
}

void FileDropTest::whatIsNoFileIsRefused_data()
{
    QTest::addColumn<QList<QUrl>>("urls");
    QTest::newRow("nothing") << QList<QUrl>();
    QTest::newRow("a web page") << QList<QUrl>{QUrl(QStringLiteral("https://example.com/a.dwg"))};
    QTest::newRow("an empty address") << QList<QUrl>{QUrl()};
}

void FileDropTest::whatIsNoFileIsRefused()
{
    QFETCH(QList<QUrl>, urls);
    ShownProgram program;
    Offer offer(urls);
    QVERIFY(!offer.enter(&program.window));
}

void FileDropTest::theOtherProgramKeepsItsFile()
{
    ShownProgram program;
    Offer offer({QUrl::fromLocalFile(program.drawing(QStringLiteral("a.dwg")))});
    QVERIFY(offer.enter(&program.window));
    QCOMPARE(offer.action, Qt::CopyAction);
    offer.drop(&program.window);
    QCOMPARE(offer.action, Qt::CopyAction);
}

void FileDropTest::fileThatIsNoDrawingGetsAMessage()
{
    ShownProgram program;
    Offer offer({QUrl::fromLocalFile(program.dir.filePath(QStringLiteral("missing.dwg")))});
    QVERIFY(offer.enter(&program.window));
    offer.drop(&program.window);
    QTRY_VERIFY2(program.history().contains(QStringLiteral("missing.dwg")), qPrintable(program.history()));
    QVERIFY(program.openPaths().isEmpty());
}

void FileDropTest::aDropOnTheCommandLineIsOneOnTheWindow()
{
    ShownProgram program;
    // Qt hands a drop to the first parent that takes drops.
    QWidget *taker = program.input();
    while (!taker->acceptDrops())
        taker = taker->parentWidget();
    QCOMPARE(taker, &program.window);
}

void FileDropTest::aDropWaitsForTheRunningCommand()
{
    ShownProgram program;
    const QString path = program.drawing(QStringLiteral("a.dwg"));
    CommandSet commands(program.host.commandStack());
    QStringList seen;
    commands.add(QStringLiteral("DROPINSIDE"), [&](const CFxCommandContext &) {
        Offer offer({QUrl::fromLocalFile(path)});
        offer.enter(&program.window);
        offer.drop(&program.window);
        drainEvents();
        seen = program.openPaths();
        return 5100;
    });
    program.enter(QStringLiteral("DROPINSIDE"));
    QVERIFY(seen.isEmpty());
    QTRY_COMPARE(program.openPaths(), QStringList(path));
}

QTEST_MAIN(FileDropTest)
#include "tst_filedrop.moc"

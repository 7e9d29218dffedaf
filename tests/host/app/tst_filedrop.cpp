// SPDX-License-Identifier: MIT
#include "host/runtime/Paths.h"
#include "host/runtime/recent/RecentFiles.h"
#include "tests/host/app/ShownProgram.h"

#include <QDir>
#include <QDragEnterEvent>
#include <QMimeData>

using namespace fxhost;

namespace {

//! Data of another program, dragged over the centre of a widget and dropped there.
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

//! Files dropped on the main window.
class tst_FileDrop : public TestCase
{
    Q_OBJECT

private slots:
    void initTestCase() { keepBytesOfPaths(); }
    void droppedFilesAreOpened()
    {
        ShownProgram program;
        const QByteArray url =
            "file://" + QFile::encodeName(program.dir.path()) + "/gr%FCn%20%C3%A4%20100%25.dwg";
        const QStringList paths = {program.drawing(QStringLiteral("a b & 100% \u00fc#1.dwg")),
                                   program.drawing(pathFromBytes("gr\xfcn \xc3\xa4 100%.dwg")),
                                   program.drawing(QStringLiteral("last.dwg"))};
        // Like the browser's own URLs the last one has one slash more than usual.
        Offer offer({QUrl(QStringLiteral("https://example.com/a.dwg")), QUrl::fromLocalFile(paths.at(0)),
                     QUrl::fromEncoded(url), QUrl(QStringLiteral("file:///") + paths.at(2))});
        QVERIFY(offer.enter(&program.window));
        QCOMPARE(offer.action, Qt::CopyAction); // the other program keeps its files
        offer.drop(&program.window);
        QCOMPARE(offer.action, Qt::CopyAction);
        QVERIFY(program.openPaths().isEmpty()); // the other program gets its reply first
        QTRY_COMPARE(program.openPaths(), paths);
        drainEvents();
        QCOMPARE(program.openPaths(), paths);
        QCOMPARE(program.host.recentFiles().paths().first(), paths.at(2));
    }

    void anythingButAFileIsRefused()
    {
        ShownProgram program;
        const QList<QList<QUrl>> offers{{}, {QUrl(QStringLiteral("https://example.com/a.dwg"))}, {QUrl()}};
        for (const QList<QUrl> &urls : offers)
            QVERIFY2(!Offer(urls).enter(&program.window), qPrintable(QUrl::toStringList(urls).join(' ')));
    }

    void fileThatIsNotADrawingIsReported()
    {
        ShownProgram program;
        Offer offer({QUrl::fromLocalFile(program.dir.filePath(QStringLiteral("missing.dwg")))});
        QVERIFY(offer.enter(&program.window));
        offer.drop(&program.window);
        QTRY_VERIFY2(program.history().contains(QStringLiteral("missing.dwg")),
                     qPrintable(program.history()));
        QVERIFY(program.openPaths().isEmpty());
    }

    void theWindowTakesDropsOnTheCommandLine()
    {
        ShownProgram program;
        // Qt sends a drop to the first parent that accepts drops.
        QWidget *target = program.input();
        while (!target->acceptDrops())
            target = target->parentWidget();
        QCOMPARE(target, &program.window);
    }

    void aDropWaitsForTheRunningCommand()
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
};

TEST_CLASS(tst_FileDrop);
#include "tst_filedrop.moc"

// SPDX-License-Identifier: MIT
#include "host/app/EndSignals.h"
#include "host/app/HelpWindow.h"
#include "host/runtime/HostSettings.h"
#include "host/runtime/Paths.h"
#include "host/runtime/recent/RecentFiles.h"
#include "tests/host/app/ShownProgram.h"
#include "tests/support/bytes/BytesInStuckFolder.h"
#include "tests/support/bytes/BytesOfSpecialFiles.h"

#include <QDragEnterEvent>
#include <QFileDialog>
#include <QListView>

#include <csignal>
#include <functional>

using namespace fxhost;

namespace {

//! Runs the command that asks for a drawing, and calls answer with the dialog.
void ask(ShownProgram &program, const std::function<void(QFileDialog *)> &answer)
{
    QTimer look;
    bool isAnswered = false;
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
        auto *const dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        if (!dialog || isAnswered)
            return;
        isAnswered = true;
        answer(dialog);
    });
    look.start(1);
    program.enter("_OPEN");
    QVERIFY(isAnswered);
}

void choose(QFileDialog *dialog, const QString &path)
{
    auto *const name = dialog->findChild<QLineEdit *>("fileNameEdit");
    name->setText(path);
    QTest::keyClick(name, Qt::Key_Return);
}

//! The dialog's first directory.
QString firstDirectory(ShownProgram &program)
{
    QString directory;
    ask(program, [&](QFileDialog *dialog) {
        directory = dialog->directory().path();
        dialog->reject();
    });
    return directory;
}

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

//! Drawings opened by the dialog and by drops on the main window.
class tst_OpenDialog : public TestCase
{
    Q_OBJECT

private slots:
    void helpIsShownOverTheDialog()
    {
        ShownProgram program;
        ask(program, [](QFileDialog *dialog) {
            const bool isActive = waitUntil([dialog] { return QApplication::activeWindow() == dialog; });
            QTest::keyClick(dialog, Qt::Key_F1);
            auto *const help = dialog->findChild<HelpWindow *>();
            const bool isShown = help && help->isVisible();
            dialog->reject(); // it would block
            QVERIFY(isActive);
            QVERIFY(isShown);
        });
    }

    void initTestCase()
    {
        keepBytesOfPaths();
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_memory.path());
    }

    void theChosenDrawingIsOpened()
    {
        ShownProgram program;
        const QString path = program.drawing("a.dwg");
        ask(program, [&](QFileDialog *dialog) { choose(dialog, path); });
        QCOMPARE(program.openPaths(), QStringList(path));
        QCOMPARE(program.host.settings().lastDirectory(), program.dir.path());
        QCOMPARE(firstDirectory(program), program.dir.path()); // the next time
    }

    void drawingsTemplatesAndBackupsAreOffered()
    {
        ShownProgram program;
        for (const char *name : {"a.DWG", "b.bak", "c.BAK", "Plan.Dwg", "notes.txt", "t.dwt"})
            program.drawing(name);
        program.host.settings().setLastDirectory(program.dir.path());
        ask(program, [&](QFileDialog *dialog) {
            const auto *view = dialog->findChild<QListView *>("listView");
            const auto offered = [view] {
                QStringList names;
                for (int row = 0; row < view->model()->rowCount(view->rootIndex()); ++row)
                    names.append(view->model()->index(row, 0, view->rootIndex()).data().toString());
                names.sort();
                return names;
            };
            QTRY_VERIFY(offered().contains("t.dwt"));
            drainEvents();
            QCOMPARE(offered(), QStringList({"Plan.Dwg", "a.DWG", "b.bak", "c.BAK", "profile", "t.dwt"}));
            dialog->reject();
        });
    }

    void cancellingOpensNothing()
    {
        ShownProgram program;
        ask(program, [&](QFileDialog *dialog) {
            dialog->selectFile(program.drawing("a.dwg"));
            dialog->reject();
        });
        QCOMPARE(program.openPaths(), QStringList());
        QCOMPARE(program.host.settings().lastDirectory(), QString());
        QVERIFY(program.window.findChildren<QFileDialog *>().isEmpty());
    }

    void theDialogIsDeletedWithItsWindow()
    {
        ShownProgram program;
        auto window = std::make_unique<MainWindow>(program.host);
        window->show();
        QPointer<QFileDialog> shown;
        QTimer::singleShot(0, &program.window, [&] {
            QTRY_VERIFY(QApplication::activeModalWidget());
            shown = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
            window.reset();
        });
        QCOMPARE(program.host.pathChooser()(), QString());
        QVERIFY(!window && !shown);
    }

    void aSignalEndsTheProgram()
    {
        ShownProgram program;
        const EndSignals ending;
        connect(&ending, &EndSignals::endRequested, &program.window, &QWidget::close);
        QTimer::singleShot(0, &program.window,
                           [&] { ask(program, [](QFileDialog *) { std::raise(SIGTERM); }); });
        QCOMPARE(QCoreApplication::exec(), 0);
        QVERIFY(!program.window.isVisible());
    }

    void anUnresponsiveFolderDoesNotBlock_data() { addStuckFolderRows(); }

    void anUnresponsiveFolderDoesNotBlock()
    {
        STUCK_FOLDER_OR_SKIP(folder);
        ShownProgram program;
        const QString path = folder.makeFile("a.dwg", testbytes::DrawingBytes().bytes());
        ask(program, [&](QFileDialog *dialog) {
            dialog->setDirectory(
                QFileInfo(path).path()); // Qt remembers it, but not the folder of a typed path
            choose(dialog, path);
        });
        QCOMPARE(program.openPaths(), QStringList(path));

        const Alarm alarm;
        folder.stopAnswering();
        QCOMPARE(firstDirectory(program), QDir::homePath());
        folder.answerAgain();
    }

    void droppedFilesAreOpened()
    {
        ShownProgram program;
        const QByteArray url =
            "file://" + QFile::encodeName(program.dir.path()) + "/gr%FCn%20%C3%A4%20100%25.dwg";
        const QStringList paths = {program.drawing("a b & 100% \u00fc#1.dwg"),
                                   program.drawing(pathFromBytes("gr\xfcn \xc3\xa4 100%.dwg")),
                                   program.drawing("last.dwg")};
        // Like the browser's own URLs the last one has one slash more than usual.
        Offer offer({QUrl("https://example.com/a.dwg"), QUrl::fromLocalFile(paths.at(0)),
                     QUrl::fromEncoded(url), QUrl(QString("file:///") + paths.at(2))});
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
        const QList<QList<QUrl>> offers{{}, {QUrl("https://example.com/a.dwg")}, {QUrl()}};
        for (const QList<QUrl> &urls : offers)
            QVERIFY2(!Offer(urls).enter(&program.window), qPrintable(QUrl::toStringList(urls).join(' ')));
    }

    void fileThatIsNotADrawingIsReported()
    {
        ShownProgram program;
        Offer offer({QUrl::fromLocalFile(program.dir.filePath("missing.dwg"))});
        QVERIFY(offer.enter(&program.window));
        offer.drop(&program.window);
        QTRY_VERIFY2(program.history().contains("missing.dwg"), qPrintable(program.history()));
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
        const QString path = program.drawing("a.dwg");
        CommandSet commands(program.host.commandStack());
        QStringList seen;
        commands.add("DROPINSIDE", [&](const CFxCommandContext &) {
            Offer offer({QUrl::fromLocalFile(path)});
            offer.enter(&program.window);
            offer.drop(&program.window);
            drainEvents();
            seen = program.openPaths();
            return 5100;
        });
        program.enter("DROPINSIDE");
        QVERIFY(seen.isEmpty());
        QTRY_COMPARE(program.openPaths(), QStringList(path));
    }

private:
    QTemporaryDir m_memory; //!< where Qt's dialogs store their settings
};

TEST_CLASS(tst_OpenDialog);
#include "tst_opendialog.moc"

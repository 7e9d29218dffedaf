// SPDX-License-Identifier: MIT
#include "host/app/EndSignals.h"
#include "host/runtime/HostSettings.h"
#include "tests/host/app/ShownProgram.h"
#include "tests/support/bytes/BytesInStuckFolder.h"
#include "tests/support/bytes/BytesOfSpecialFiles.h"

#include <QDir>
#include <QFileDialog>
#include <QSettings>
#include <QTimer>

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
    program.enter(QStringLiteral("_OPEN"));
    QVERIFY(isAnswered);
}

void choose(QFileDialog *dialog, const QString &path)
{
    auto *const name = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
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

} // namespace

class tst_OpenDialog : public TestCase
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_memory.path());
    }

    void theChosenDrawingIsOpened()
    {
        ShownProgram program;
        const QString path = program.drawing(QStringLiteral("a.dwg"));
        ask(program, [&](QFileDialog *dialog) { choose(dialog, path); });
        QCOMPARE(program.openPaths(), QStringList(path));
        QCOMPARE(program.host.settings().lastDirectory(), program.dir.path());
        QCOMPARE(firstDirectory(program), program.dir.path()); // the next time
    }

    void cancellingOpensNothing()
    {
        ShownProgram program;
        ask(program, [&](QFileDialog *dialog) {
            dialog->selectFile(program.drawing(QStringLiteral("a.dwg")));
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
        const QString path = folder.makeFile(QStringLiteral("a.dwg"), testbytes::DrawingBytes().bytes());
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

private:
    QTemporaryDir m_memory; //!< where Qt's dialogs store their settings
};

TEST_CLASS(tst_OpenDialog);
#include "tst_opendialog.moc"

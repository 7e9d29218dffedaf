// SPDX-License-Identifier: MIT
#include "host/app/recent/RecentDrawingsDialog.h"
#include "host/app/recent/RecentDrawingsModel.h"
#include "host/runtime/recent/RecentFiles.h"
#include "tests/host/app/ShownProgram.h"
#include "tests/support/bytes/BytesInStuckFolder.h"
#include "tests/support/bytes/BytesOfSpecialFiles.h"
#include "tests/support/real/RealListFile.h"

#include <QMessageBox>
#include <QPushButton>
#include <QSpinBox>
#include <QTreeView>

using namespace fxhost;

namespace {

//! The program with the dialog over a list of drawings.
struct ShownList : ShownProgram
{
    explicit ShownList(const QStringList &listed)
    {
        list.setPaths(listed);
        enter("_RECENTMANAGE");
        dialog = window.findChild<RecentDrawingsDialog *>();
        // Not isActiveWindow(), which is true while its parent has the keyboard.
        if (!waitUntil([this] { return dialog && QApplication::activeWindow() == dialog; }))
            qFatal("the dialog does not become active");
        table = dialog->findChild<QTreeView *>();
    }

    void press(const QString &text) const { press(dialog, text); }
    static void press(const QWidget *parent, const QString &text)
    {
        const auto buttons = parent->findChildren<QPushButton *>();
        for (QPushButton *button : buttons) {
            if (button->text().remove('&') == text && button->isEnabled()) {
                button->click();
                return;
            }
        }
        qFatal("no button %s can be pressed", qPrintable(text));
    }
    //! The texts of a column.
    QStringList column(int column) const
    {
        QStringList texts;
        for (int row = 0; row < table->model()->rowCount(); ++row)
            texts.append(table->model()->index(row, column).data().toString());
        return texts;
    }
    QStringList names() const { return column(RecentDrawingsModel::Name); }
    QStringList selected() const
    {
        QStringList texts;
        const QModelIndexList rows = table->selectionModel()->selectedRows();
        for (const QModelIndex &index : rows)
            texts.append(index.data().toString());
        return texts;
    }
    void select(const QString &name) const
    {
        table->setCurrentIndex(table->model()->index(names().indexOf(name), 0));
    }

    RecentFiles &list = host.recentFiles();
    QPointer<RecentDrawingsDialog> dialog;
    QTreeView *table;
};

} // namespace

//! The dialog of the recent drawings.
class tst_RecentDrawings : public TestCase
{
    Q_OBJECT

private slots:
    void eachDrawingShowsItsState_data() { addStuckFolderRows(); }

    void eachDrawingShowsItsState()
    {
        STUCK_FOLDER_OR_SKIP(folder);
        const QString away = folder.makeFile("away.dwg", "AC1032");
        const QTemporaryDir home;
        const QString here = testbytes::writeFile(home.filePath("line\nend.dwg"), "AC1032");
        folder.stopAnswering();
        const Alarm alarm;
        ShownList shown({here, away, "/nowhere/missing.dwg"});
        QCOMPARE(shown.names(), QStringList({"line end.dwg", "away.dwg", "missing.dwg"}));
        QCOMPARE(shown.column(RecentDrawingsModel::Folder).constLast(), QString("/nowhere"));
        // On a busy machine, others may seem unresponsive at first.
        QTRY_COMPARE(shown.column(RecentDrawingsModel::State),
                     QStringList({"", "Does not respond", "Missing"}));
        shown.list.setKept({here, away, "/nowhere/missing.dwg"}, true);
        QCOMPARE(shown.column(RecentDrawingsModel::State),
                 QStringList({"Kept", "Kept, does not respond", "Kept, missing"}));
        const auto isGrey = [&](int row) {
            return shown.table->model()->index(row, 0).data(Qt::ForegroundRole).isValid();
        };
        QVERIFY(!isGrey(0) && isGrey(1) && isGrey(2));

        folder.answerAgain();
        QTRY_COMPARE(shown.column(RecentDrawingsModel::State),
                     QStringList({"Kept", "Kept", "Kept, missing"}));
        QVERIFY(!isGrey(1));
        QVERIFY(QFile::remove(here));
        shown.window.activateWindow();
        shown.dialog->activateWindow();
        QTRY_COMPARE(shown.column(RecentDrawingsModel::State).constFirst(), QString("Kept, missing"));
    }

    void theRecordedTimeIsShownOrTheFilesDate()
    {
        const QTemporaryDir home;
        const QString file = testbytes::writeFile(home.filePath("a.dwg"), "AC1032");
        ShownList shown({"/missing.dwg", file});
        const auto opened = [&shown](int row) { return shown.column(RecentDrawingsModel::Opened).at(row); };
        QVERIFY(opened(0).isEmpty());
        QTRY_VERIFY2(opened(1).endsWith(" (file date)"), qPrintable(opened(1)));
        const QDateTime time({2020, 2, 20}, {20, 20});
        shown.list.add(file, time.toUTC());
        QCOMPARE(shown.column(RecentDrawingsModel::Opened),
                 QStringList({QLocale().toString(time, QLocale::ShortFormat), QString()}));
    }

    void everyChangeCanBeUndone()
    {
        const QStringList all = {"/a", "/b", "/c", "/d"};
        ShownList shown(all);
        shown.select("b");
        QTest::keyClick(shown.table, Qt::Key_Down, Qt::ShiftModifier);
        QTest::keyClick(shown.table, Qt::Key_Delete);
        QCOMPARE(shown.names(), QStringList({"a", "d"}));
        QCOMPARE(shown.selected(), QStringList("d")); // where they were
        shown.press("Keep");
        QCOMPARE(shown.names(), QStringList({"d", "a"}));
        QCOMPARE(shown.selected(), QStringList("d"));
        shown.press("Remove All...");
        auto *question = shown.dialog->findChild<QMessageBox *>();
        QVERIFY(question->text().contains('1') && question->informativeText().contains('1'));
        shown.press(question, "Remove");
        QCOMPARE(shown.list.paths(), QStringList("/d"));
        shown.list.add("/e"); // is not undone
        shown.press("Stop Keeping");
        QTRY_COMPARE(shown.column(RecentDrawingsModel::State), QStringList({"Missing", "Missing"}));
        for (const QStringList &names :
             {QStringList{"d", "e"}, QStringList{"d", "a", "e"}, QStringList{"a", "d", "e"}}) {
            QTest::keyClick(shown.table, Qt::Key_Z, Qt::ControlModifier);
            QCOMPARE(shown.names(), names);
        }
        shown.press("Undo");
        QCOMPARE(shown.names(), QStringList({"a", "b", "c", "d", "e"}));
    }

    void theLimitCanBePassedThroughAndUndone()
    {
        const QStringList all = {"/a", "/b", "/c", "/d"};
        ShownList shown(all);
        auto *limit = shown.dialog->findChild<QSpinBox *>();
        limit->setValue(3);
        limit->setValue(2);
        QCOMPARE(shown.list.paths(), all.mid(0, 2));
        limit->setValue(3);
        QCOMPARE(shown.list.paths(), all.mid(0, 3));
        limit->setFocus();
        QTest::keyClick(limit, Qt::Key_Return);
        QVERIFY(shown.dialog->isVisible()); // Enter opens nothing here
        shown.press("Undo");
        QCOMPARE(shown.list.paths(), all);
        QCOMPARE(limit->value(), 10);
        shown.enter("_RECENTLIMIT 20");
        QTRY_COMPARE(limit->value(), 20);
    }

    void theSelectedDrawingsAreOpenedInTheirOrder()
    {
        const QTemporaryDir home;
        QStringList paths;
        for (const char *name : {"a", "b", "c"})
            paths.append(testbytes::writeFile(home.filePath(name), testbytes::DrawingBytes().bytes()));
        ShownList shown(paths);
        shown.select("b");
        QTest::keyClick(shown.table, Qt::Key_Up, Qt::ShiftModifier);
        QTest::keyClick(shown.table, Qt::Key_Return);
        QTRY_COMPARE(shown.openPaths(), paths.mid(0, 2));
        QTRY_VERIFY(!shown.dialog);

        shown.enter("_RECENTMANAGE");
        auto *table = shown.window.findChild<RecentDrawingsDialog *>()->findChild<QTreeView *>();
        const QPoint last = table->visualRect(table->model()->index(2, 0)).center();
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, last);
        QTest::mouseDClick(table->viewport(), Qt::LeftButton, {}, last);
        QTRY_COMPARE(shown.openPaths(), paths);
    }

    void tabReachesEverything()
    {
        const ShownList shown({"/a", "/b"});
        shown.press("Keep"); // so that every button can be pressed
        QStringList reached;
        for (int i = 0; i < 8; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            const auto *button = qobject_cast<QPushButton *>(QApplication::focusWidget());
            reached.append(button ? button->text() : QApplication::focusWidget()->metaObject()->className());
        }
        QCOMPARE(reached, QStringList({"&Open", "Stop &Keeping", "&Remove", "Remove &All...", "&Undo",
                                       "QSpinBox", "Close", "fxhost::RecentDrawingsTable"}));
    }

    void theListOfAnotherHostAppears()
    {
        ShownList shown({"/a", "/b"});
        shown.select("b");
        RecentFileStore(shown.dir.filePath("profile/recent.txt")).update({}, adding("/theirs"));
        emit qGuiApp->applicationStateChanged(Qt::ApplicationActive);
        QCOMPARE(shown.names(), QStringList({"theirs", "a", "b"}));
        QCOMPARE(shown.selected(), QStringList("b"));
        shown.list.setPaths({});
        QCOMPARE(shown.selected(), QStringList());
        shown.enter("_RECENTMANAGE");
        QCOMPARE(shown.window.findChildren<RecentDrawingsDialog *>().size(), 1);
    }
};

TEST_CLASS(tst_RecentDrawings);
#include "tst_recentdrawings.moc"

// SPDX-License-Identifier: MIT
#include "host/app/CommandLineWidget.h"
#include "tests/support/TestCase.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>

using fxhost::CommandLineWidget;

namespace {

class ShownCommandLine : public CommandLineWidget
{
public:
    ShownCommandLine()
    {
        show();
        if (!waitForExposed(this))
            qFatal("the command line does not appear");
    }

    QLineEdit *input() const { return findChild<QLineEdit *>("commandInput"); }
    QPlainTextEdit *history() const { return findChild<QPlainTextEdit *>("commandHistory"); }
    QString typed() const { return input()->text(); }
    void press(Qt::Key key) const { QTest::keyClick(input(), key); }
    void enter(const QString &line) const
    {
        input()->setText(line);
        press(Qt::Key_Return);
    }
};

} // namespace

class tst_CommandLineWidget : public TestCase
{
    Q_OBJECT

private slots:
    void enterEmitsTheTrimmedLine()
    {
        ShownCommandLine line;
        const QSignalSpy lines(&line, &CommandLineWidget::lineEntered);
        line.enter("   "); // runs nothing
        QCOMPARE(line.historyText(), "Command: ");
        line.enter("  _OPEN  /a b.dwg  ");
        QCOMPARE(lines, QList<QVariantList>{{QStringLiteral("_OPEN  /a b.dwg")}});
        QCOMPARE(line.typed(), QString());
    }

    void selectedHistoryIsNotDragged()
    {
        ShownCommandLine line;
        line.showMessage("a long message to select");
        QWidget *text = line.history()->viewport();
        const QPoint place(10, 10);
        line.history()->selectAll();
        QTest::mousePress(text, Qt::RightButton, Qt::NoModifier, place); // for its context menu
        QVERIFY(line.history()->textCursor().hasSelection());
        QTest::mousePress(text, Qt::LeftButton, Qt::ShiftModifier, place); // changes the selection
        QVERIFY(line.history()->textCursor().hasSelection());
        QTest::mousePress(text, Qt::LeftButton, Qt::NoModifier, place);
        QVERIFY(!line.history()->textCursor().hasSelection());
        QTest::mouseRelease(text, Qt::LeftButton, Qt::NoModifier, place);
    }

    void theHistoryShowsCommandsAndMessagesInOrder()
    {
        ShownCommandLine line;
        line.echo("_RECENTLIMIT");
        line.showMessage("10\n<b>/tmp/a&amp;b.dwg</b>"); // is not markup
        const QString text = "Command: _RECENTLIMIT\n10\n<b>/tmp/a&amp;b.dwg</b>";
        QCOMPARE(line.historyText(), text);
        line.history()->setFocus();
        QTest::keyClicks(line.history(), "x"); // the history is read-only
        QCOMPARE(line.historyText(), text);
    }

    void upAndDownRecallEnteredLines()
    {
        ShownCommandLine line;
        for (const char *entered : {"first", "again", "again"}) // a repeated line is stored once
            line.enter(QLatin1String(entered));
        QTest::keyClicks(line.input(), "half a li");
        QStringList seen;
        for (const Qt::Key key :
             {Qt::Key_Up, Qt::Key_Up, Qt::Key_Up, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down}) {
            line.press(key);
            seen.append(line.typed());
        }
        // No line is older than the first one, and none newer than the unfinished one.
        QCOMPARE(seen, QStringList({"again", "first", "first", "again", "half a li", "half a li"}));
    }

    void theOldestOfManyLinesIsDropped()
    {
        ShownCommandLine line;
        constexpr int moreThanAreKept = 500;
        for (int i = 0; i < moreThanAreKept; ++i)
            line.enter(QString("line %1").arg(i));
        QString oldest;
        do {
            oldest = line.typed();
            line.press(Qt::Key_Up);
        } while (line.typed() != oldest);
        QVERIFY2(oldest != "line 0", qPrintable(oldest));
        QVERIFY2(oldest.startsWith("line "), qPrintable(oldest));
        QTest::keyClick(line.input(), Qt::Key_Escape);
        line.press(Qt::Key_Up);
        QCOMPARE(line.typed(), QString("line %1").arg(moreThanAreKept - 1));
    }

    void escapeClearsTheInputThenCancels()
    {
        ShownCommandLine line;
        const QSignalSpy cancels(&line, &CommandLineWidget::cancelRequested);
        QTest::keyClicks(line.input(), "_QU");
        line.press(Qt::Key_Escape);
        QCOMPARE(line.typed(), QString());
        QCOMPARE(cancels.count(), 0);
        line.press(Qt::Key_Escape);
        QCOMPARE(cancels.count(), 1);
    }

    void theHistoryScrollsToItsEndUnlessTheUserScrollsUp()
    {
        ShownCommandLine line;
        constexpr int moreThanFit = 100;
        for (int i = 0; i < moreThanFit; ++i)
            line.showMessage(QString("line %1").arg(i));
        QScrollBar *bar = line.history()->verticalScrollBar();
        QVERIFY(bar->maximum() > 0);
        QCOMPARE(bar->value(), bar->maximum());

        line.press(Qt::Key_PageUp);
        const int place = bar->value();
        QVERIFY(place < bar->maximum());
        line.showMessage("one more");
        QCOMPARE(bar->value(), place);

        line.enter("x");
        QCOMPARE(bar->value(), bar->maximum());
    }

    void theUsualHeightShowsFourWholeLinesOfHistory()
    {
        ShownCommandLine line;
        line.resize(line.sizeHint());
        for (int i = 0; i < 4; ++i)
            line.showMessage(QString::number(i));
        QTRY_COMPARE(line.history()->verticalScrollBar()->maximum(), 0);
        line.showMessage("one more");
        QTRY_COMPARE(line.history()->verticalScrollBar()->maximum(), 1);
    }

    void aLongListOfCompletionsIsCut()
    {
        ShownCommandLine line;
        const QStringList names = QVector<QString>(101, "a%2.dwg").toList();
        line.setCompleter([names](const QString &typed) { return fxhost::Completion{typed, names}; });
        line.press(Qt::Key_Tab);
        QVERIFY2(line.historyText().endsWith("a%2.dwg  and 1 more"),
                 qPrintable(line.historyText().right(40)));
    }

    void aForwardedKeyIsTypedIntoTheInput()
    {
        ShownCommandLine line;
        line.history()->setFocus();
        QVERIFY(!line.hasInputFocus());
        QKeyEvent key(QEvent::KeyPress, Qt::Key_N, Qt::NoModifier, "n");
        line.typeKey(&key);
        QCOMPARE(line.typed(), "n");
        QVERIFY(line.hasInputFocus());
    }
};

TEST_CLASS(tst_CommandLineWidget);
#include "tst_commandlinewidget.moc"

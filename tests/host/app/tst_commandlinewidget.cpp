// SPDX-License-Identifier: MIT
#include "host/app/CommandLineWidget.h"
#include "tests/support/TestCase.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSignalSpy>

using fxhost::CommandLineWidget;

namespace {

//! A command line on screen, and hands on it.
class ShownCommandLine : public CommandLineWidget
{
public:
    ShownCommandLine()
    {
        show();
        m_exposed = waitForExposed(this);
    }

    bool isExposed() const { return m_exposed; }
    QLineEdit *input() const { return findChild<QLineEdit *>(QStringLiteral("commandInput")); }
    QPlainTextEdit *history() const { return findChild<QPlainTextEdit *>(QStringLiteral("commandHistory")); }
    QString typed() const { return input()->text(); }
    void press(Qt::Key key) const { QTest::keyClick(input(), key); }
    void enter(const QString &line) const
    {
        input()->setText(line);
        press(Qt::Key_Return);
    }

private:
    bool m_exposed = false;
};

} // namespace

//! What a person sees of and does with the command line.
class CommandLineWidgetTest : public TestCase
{
    Q_OBJECT

private slots:
    void enterHandsTheLineOnWithoutOuterBlanks()
    {
        ShownCommandLine line;
        QVERIFY(line.isExposed());
        const QSignalSpy lines(&line, &CommandLineWidget::lineEntered);
        line.enter(QStringLiteral("  _OPEN  /a b.dwg  "));
        QCOMPARE(lines, QList<QVariantList>{{QStringLiteral("_OPEN  /a b.dwg")}});
        QCOMPARE(line.typed(), QString());
    }

    void selectedHistoryIsNotDragged()
    {
        ShownCommandLine line;
        QVERIFY(line.isExposed());
        line.showMessage(QStringLiteral("a long message that somebody selects"));
        QWidget *text = line.history()->viewport();
        const QPoint place(10, 10);
        line.history()->selectAll();
        QTest::mousePress(text, Qt::RightButton, Qt::NoModifier, place); // for a menu that copies it
        QVERIFY(line.history()->textCursor().hasSelection());
        QTest::mousePress(text, Qt::LeftButton, Qt::ShiftModifier, place); // for more, or less
        QVERIFY(line.history()->textCursor().hasSelection());
        QTest::mousePress(text, Qt::LeftButton, Qt::NoModifier, place);
        QVERIFY(!line.history()->textCursor().hasSelection());
        QTest::mouseRelease(text, Qt::LeftButton, Qt::NoModifier, place);
    }

    void anEmptyLineRunsNothing()
    {
        ShownCommandLine line;
        QVERIFY(line.isExposed());
        const QSignalSpy lines(&line, &CommandLineWidget::lineEntered);
        line.enter(QStringLiteral("   "));
        QCOMPARE(lines.count(), 0);
        QCOMPARE(line.historyText(), QStringLiteral("Command: "));
    }

    void theHistoryShowsCommandsAndMessagesInOrder()
    {
        ShownCommandLine line;
        QVERIFY(line.isExposed());
        line.echo(QStringLiteral("_RECENTLIMIT"));
        line.showMessage(QStringLiteral("10\nand more"));
        QCOMPARE(line.historyText(), QStringLiteral("Command: _RECENTLIMIT\n10\nand more"));
    }

    void aMessageIsNoMarkup()
    {
        ShownCommandLine line;
        QVERIFY(line.isExposed());
        line.showMessage(QStringLiteral("<b>/tmp/a&amp;b.dwg</b>"));
        QCOMPARE(line.historyText(), QStringLiteral("<b>/tmp/a&amp;b.dwg</b>"));
    }

    void upAndDownBringBackWhatWasEntered()
    {
        ShownCommandLine line;
        QVERIFY(line.isExposed());
        line.enter(QStringLiteral("first"));
        line.enter(QStringLiteral("second"));
        line.press(Qt::Key_Up);
        QCOMPARE(line.typed(), QStringLiteral("second"));
        line.press(Qt::Key_Up);
        QCOMPARE(line.typed(), QStringLiteral("first"));
        line.press(Qt::Key_Up); // there is nothing older
        QCOMPARE(line.typed(), QStringLiteral("first"));
        line.press(Qt::Key_Down);
        QCOMPARE(line.typed(), QStringLiteral("second"));
    }

    void downComesBackToTheLineThatWasBeingTyped()
    {
        ShownCommandLine line;
        QVERIFY(line.isExposed());
        line.enter(QStringLiteral("first"));
        QTest::keyClicks(line.input(), QStringLiteral("half a li"));
        line.press(Qt::Key_Up);
        line.press(Qt::Key_Down);
        QCOMPARE(line.typed(), QStringLiteral("half a li"));
        line.press(Qt::Key_Down);
        QCOMPARE(line.typed(), QStringLiteral("half a li"));
    }

    void aRepeatedLineIsRecalledOnce()
    {
        ShownCommandLine line;
        QVERIFY(line.isExposed());
        line.enter(QStringLiteral("first"));
        line.enter(QStringLiteral("again"));
        line.enter(QStringLiteral("again"));
        line.press(Qt::Key_Up);
        line.press(Qt::Key_Up);
        QCOMPARE(line.typed(), QStringLiteral("first"));
    }

    void theOldestOfManyLinesIsForgotten()
    {
        ShownCommandLine line;
        QVERIFY(line.isExposed());
        constexpr int moreThanAreKept = 500;
        for (int i = 0; i < moreThanAreKept; ++i)
            line.enter(QStringLiteral("line %1").arg(i));
        QString oldest;
        do {
            oldest = line.typed();
            line.press(Qt::Key_Up);
        } while (line.typed() != oldest);
        QVERIFY2(oldest != QLatin1String("line 0"), qPrintable(oldest));
        QVERIFY2(oldest.startsWith(QLatin1String("line ")), qPrintable(oldest));
        QTest::keyClick(line.input(), Qt::Key_Escape);
        line.press(Qt::Key_Up);
        QCOMPARE(line.typed(), QStringLiteral("line %1").arg(moreThanAreKept - 1));
    }

    void escapeClearsFirstAndCancelsThen()
    {
        ShownCommandLine line;
        QVERIFY(line.isExposed());
        const QSignalSpy cancels(&line, &CommandLineWidget::cancelRequested);
        QTest::keyClicks(line.input(), QStringLiteral("_QU"));
        line.press(Qt::Key_Escape);
        QCOMPARE(line.typed(), QString());
        QCOMPARE(cancels.count(), 0);
        line.press(Qt::Key_Escape);
        QCOMPARE(cancels.count(), 1);
    }

    void theHistoryFollowsItsEndUnlessSomebodyReadsFurtherUp()
    {
        ShownCommandLine line;
        QVERIFY(line.isExposed());
        constexpr int moreThanFit = 100;
        for (int i = 0; i < moreThanFit; ++i)
            line.showMessage(QStringLiteral("line %1").arg(i));
        QScrollBar *bar = line.history()->verticalScrollBar();
        QVERIFY(bar->maximum() > 0);
        QCOMPARE(bar->value(), bar->maximum());

        line.press(Qt::Key_PageUp);
        const int place = bar->value();
        QVERIFY(place < bar->maximum());
        line.showMessage(QStringLiteral("one more"));
        QCOMPARE(bar->value(), place);

        line.enter(QStringLiteral("x"));
        QCOMPARE(bar->value(), bar->maximum());
    }

    void theUsualHeightShowsFourWholeLinesOfHistory()
    {
        ShownCommandLine line;
        QVERIFY(line.isExposed());
        line.resize(line.sizeHint());
        for (int i = 0; i < 4; ++i)
            line.showMessage(QString::number(i));
        QTRY_COMPARE(line.history()->verticalScrollBar()->maximum(), 0);
        line.showMessage(QStringLiteral("one more"));
        QTRY_COMPARE(line.history()->verticalScrollBar()->maximum(), 1);
    }

    void aKeyFromElsewhereIsTypedIntoTheInput()
    {
        ShownCommandLine line;
        QVERIFY(line.isExposed());
        line.history()->setFocus();
        QVERIFY(!line.hasInputFocus());
        QKeyEvent key(QEvent::KeyPress, Qt::Key_N, Qt::NoModifier, QStringLiteral("n"));
        line.typeKey(&key);
        QCOMPARE(line.typed(), QStringLiteral("n"));
        QVERIFY(line.hasInputFocus());
    }

    void theHistoryCannotBeChangedByTyping()
    {
        ShownCommandLine line;
        QVERIFY(line.isExposed());
        line.showMessage(QStringLiteral("as it was"));
        line.history()->setFocus();
        QTest::keyClicks(line.history(), QStringLiteral("x"));
        QCOMPARE(line.historyText(), QStringLiteral("as it was"));
    }
};

QTEST_MAIN(CommandLineWidgetTest)

#include "tst_commandlinewidget.moc"

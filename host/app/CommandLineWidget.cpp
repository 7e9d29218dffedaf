// SPDX-License-Identifier: MIT
#include "host/app/CommandLineWidget.h"

#include <QCoreApplication>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextLayout>
#include <QVBoxLayout>
#include <QtMath>

namespace fxhost {

namespace {

QString prompt()
{
    return CommandLineWidget::tr("Command:");
}

// Enough for a working session, and a limit for scripts that run for a long time.
constexpr int historyLines = 2000;
constexpr int recalledLines = 200;
constexpr int listedCandidates = 100; // more would not be read
// Enough to show a command and its output without taking space from the drawing.
constexpr int visibleLines = 4;
constexpr int fewestVisibleLines = 1;

//! The height of a line in a text document, in pixels. Text documents round it up further than QFontMetrics
//! does.
int lineHeight(const QFont &font)
{
    QTextLayout layout(QStringLiteral("X"), font);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    return qCeil(line.height());
}

} // namespace

CommandLineWidget::CommandLineWidget(QWidget *parent) : QWidget(parent)
{
    const QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);

    m_history = new QPlainTextEdit(this);
    m_history->setObjectName(QStringLiteral("commandHistory"));
    m_history->setAccessibleName(tr("Command history"));
    m_history->setReadOnly(true);
    m_history->setMaximumBlockCount(historyLines);
    m_history->setFont(font);
    m_history->setFrameShape(QFrame::NoFrame);
    m_history->setFocusPolicy(Qt::ClickFocus);
    m_history->viewport()->installEventFilter(this);

    m_input = new QLineEdit(this);
    m_input->setObjectName(QStringLiteral("commandInput"));
    m_input->setAccessibleName(tr("Command"));
    m_input->setFont(font);
    m_input->setFrame(false);
    m_input->setAcceptDrops(false); // so that the window opens files dropped here
    m_input->installEventFilter(this);
    setFocusProxy(m_input);

    auto *promptLabel = new QLabel(prompt(), this);
    promptLabel->setFont(font);
    promptLabel->setBuddy(m_input);

    // The prompt and the input look like one line of the history, so they share its background.
    auto *inputRow = new QWidget(this);
    inputRow->setBackgroundRole(QPalette::Base);
    inputRow->setAutoFillBackground(true);
    auto *inputLayout = new QHBoxLayout(inputRow);
    const int margin = qRound(m_history->document()->documentMargin());
    inputLayout->setContentsMargins(margin, margin / 2, margin, margin / 2);
    inputLayout->setSpacing(fontMetrics().horizontalAdvance(QLatin1Char(' ')));
    inputLayout->addWidget(promptLabel);
    inputLayout->addWidget(m_input);

    auto *separator = new QFrame(this);
    separator->setFrameShape(QFrame::HLine);
    separator->setForegroundRole(QPalette::Mid);
    separator->setFrameShadow(QFrame::Plain);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_history, 1);
    layout->addWidget(separator);
    layout->addWidget(inputRow);
}

void CommandLineWidget::showMessage(const QString &text)
{
    // Scroll to the new text only if the end was visible, so that the user can read older lines undisturbed.
    QScrollBar *bar = m_history->verticalScrollBar();
    const bool atEnd = bar->value() == bar->maximum();
    m_history->appendPlainText(text);
    if (atEnd)
        bar->setValue(bar->maximum());
}

void CommandLineWidget::echo(const QString &line)
{
    showMessage(prompt() + QLatin1Char(' ') + line);
}

bool CommandLineWidget::hasInputFocus() const
{
    return window()->focusWidget() == m_input;
}

void CommandLineWidget::typeKey(QKeyEvent *event)
{
    m_input->setFocus(Qt::OtherFocusReason);
    QCoreApplication::sendEvent(m_input, event);
}

QString CommandLineWidget::historyText() const
{
    return m_history->toPlainText();
}

QSize CommandLineWidget::sizeHint() const
{
    return {QWidget::sizeHint().width(), heightForLines(visibleLines)};
}

QSize CommandLineWidget::minimumSizeHint() const
{
    return {QWidget::minimumSizeHint().width(), heightForLines(fewestVisibleLines)};
}

int CommandLineWidget::heightForLines(int lines) const
{
    // One pixel more, because QPlainTextEdit scrolls if its text ends at the last pixel.
    const int frame = 2 * qRound(m_history->document()->documentMargin()) + 1;
    const int historyHeight = lines * lineHeight(m_history->font()) + frame;
    return historyHeight + layout()->sizeHint().height() - m_history->sizeHint().height();
}

bool CommandLineWidget::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_history->viewport() && event->type() == QEvent::MouseButtonPress)
        deselectAt(static_cast<const QMouseEvent *>(event));
    if (watched == m_input && event->type() == QEvent::KeyPress &&
        handleKey(static_cast<const QKeyEvent *>(event)))
        return true;
    return QWidget::eventFilter(watched, event);
}

//! Clears the selection, so that a press on selected text does not drag it. Qt also starts such a drag from a
//! timer, and a drag that starts while the button is released waits for a release that has already happened.
void CommandLineWidget::deselectAt(const QMouseEvent *press)
{
    if (press->button() == Qt::LeftButton && !(press->modifiers() & Qt::ShiftModifier))
        m_history->setTextCursor(m_history->cursorForPosition(press->pos()));
}

bool CommandLineWidget::handleKey(const QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Tab:
        if (event->modifiers() != Qt::NoModifier)
            return false; // Ctrl+Tab switches between the drawings
        complete();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        enterLine();
        return true;
    case Qt::Key_Up:
        recall(m_recalled - 1);
        return true;
    case Qt::Key_Down:
        recall(m_recalled + 1);
        return true;
    case Qt::Key_PageUp:
        m_history->verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepSub);
        return true;
    case Qt::Key_PageDown:
        m_history->verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepAdd);
        return true;
    case Qt::Key_Escape:
        // The first press clears the line, the next one cancels the running command.
        if (m_input->text().isEmpty())
            emit cancelRequested();
        m_input->clear();
        m_recalled = m_entered.size();
        return true;
    default:
        return false;
    }
}

void CommandLineWidget::complete()
{
    const QString line = m_input->text().left(m_input->cursorPosition());
    const Completion completion = m_completer ? m_completer(line) : Completion{line, {}};
    const QStringList &candidates = completion.candidates;
    if (completion.line != line) {
        m_input->setSelection(0, line.size());
        m_input->insert(completion.line); // unlike setText(), can be undone
    } else if (m_completed == line && candidates.size() > 1) {
        const QString shown = candidates.mid(0, listedCandidates).join(QLatin1String("  "));
        const int more = candidates.size() - listedCandidates;
        showMessage(more > 0 ? tr("%1  and %2 more").arg(shown, QString::number(more)) : shown);
    }
    m_completed = completion.line;
}

void CommandLineWidget::enterLine()
{
    const QString line = m_input->text().trimmed();
    m_input->clear();
    m_draft.clear();
    if (!line.isEmpty() && (m_entered.isEmpty() || m_entered.constLast() != line))
        m_entered.append(line);
    if (m_entered.size() > recalledLines)
        m_entered.removeFirst();
    m_recalled = m_entered.size();
    // Show the end, even if the user was reading older lines, so that the command's output is visible.
    m_history->verticalScrollBar()->setValue(m_history->verticalScrollBar()->maximum());
    if (line.isEmpty())
        echo(line);
    else
        emit lineEntered(line);
}

void CommandLineWidget::recall(int index)
{
    if (index < 0 || index > m_entered.size())
        return;
    if (m_recalled == m_entered.size())
        m_draft = m_input->text();
    m_recalled = index;
    m_input->setText(index == m_entered.size() ? m_draft : m_entered.at(index));
}

} // namespace fxhost

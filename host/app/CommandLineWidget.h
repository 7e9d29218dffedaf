// SPDX-License-Identifier: MIT
#pragma once

#include "host/app/LineCompleter.h"

#include <QStringList>
#include <QWidget>

#include <functional>
#include <utility>

class QKeyEvent;
class QLineEdit;
class QMouseEvent;
class QPlainTextEdit;

namespace fxhost {

//! The command line: a history of what was entered and answered, and below it a line to type in. GUI thread.
class CommandLineWidget : public QWidget
{
    Q_OBJECT
public:
    //! \param line what stands before the cursor
    using Completer = std::function<Completion(const QString &line)>;

    explicit CommandLineWidget(QWidget *parent = nullptr);

    //! What the Tab key asks. Without it nothing is completed.
    void setCompleter(Completer completer) { m_completer = std::move(completer); }

    //! Adds a text of the program to the history.
    //! \param text may have more than one line
    void showMessage(const QString &text);
    //! Adds a command line to the history as if it had been typed, so that the history tells what ran.
    void echo(const QString &line);

    //! Gives the input the keyboard focus and lets it handle a key that was pressed elsewhere.
    void typeKey(QKeyEvent *event);
    //! Whether key events reach the input already.
    bool hasInputFocus() const;

    QString historyText() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    //! Enter was pressed behind something other than blanks. \param line without the blanks around it
    void lineEntered(const QString &line);
    //! Escape was pressed in an empty line: the user wants the running command to end, or to leave the line.
    void cancelRequested();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void deselectAt(const QMouseEvent *press);
    bool handleKey(const QKeyEvent *event);
    void complete();
    void enterLine();
    void recall(int index);
    int heightForLines(int lines) const;

    QPlainTextEdit *m_history;
    QLineEdit *m_input;
    QStringList m_entered;
    int m_recalled = 0; //!< index into m_entered; its size stands for the line being typed
    QString m_draft;    //!< the line being typed while an older one is shown
    Completer m_completer;
    QString m_completed; //!< what the last Tab made of the line, up to the cursor
};

} // namespace fxhost

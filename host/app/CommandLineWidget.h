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

//! The command line: a history of commands and messages above an input line. GUI thread.
class CommandLineWidget : public QWidget
{
    Q_OBJECT
public:
    //! \param line the text before the cursor
    using Completer = std::function<Completion(const QString &line)>;

    explicit CommandLineWidget(QWidget *parent = nullptr);

    //! Sets the function that the Tab key calls. Without one, nothing is completed.
    void setCompleter(Completer completer) { m_completer = std::move(completer); }

    //! Adds a message to the history.
    //! \param text can have more than one line
    void showMessage(const QString &text);
    //! Adds a command line to the history as if it had been typed, so that the history contains every command
    //! that ran.
    void echo(const QString &line);

    //! Sets the keyboard focus to the input line and passes it a key event that another widget received.
    void typeKey(QKeyEvent *event);
    //! True if the input line has the window's keyboard focus.
    bool hasInputFocus() const;

    QString historyText() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    //! Enter was pressed in a line that is not blank.
    //! \param line without leading and trailing blanks
    void lineEntered(const QString &line);
    //! Escape was pressed in an empty line: the user wants to cancel the running command, or to leave the
    //! line.
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
    int m_recalled = 0; //!< index into m_entered; m_entered.size() is the line being typed
    QString m_draft;    //!< the line being typed while an older one is shown
    Completer m_completer;
    QString m_completed; //!< the line up to the cursor after the last Tab
};

} // namespace fxhost

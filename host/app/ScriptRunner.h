// SPDX-License-Identifier: MIT
#pragma once

#include <sdkhost/Outcome.h>

#include <QObject>
#include <QStringList>
#include <QTimer>

class QWidget;

namespace fxhost {

class CommandRunner;

//! Runs the commands of a script as if a user entered them: each line after the previous one has ended. GUI
//! thread.
class ScriptRunner : public QObject
{
    Q_OBJECT
public:
    //! \param commands must outlive the runner
    explicit ScriptRunner(CommandRunner &commands, QObject *parent = nullptr);

    //! Reads a script: UTF-8, one command per line. Blank lines and lines that start with # are ignored.
    sdkhost::Outcome load(const QString &path);
    //! Starts the script when the window becomes active, or after a few seconds if it does not. Before that,
    //! a window manager may still move the window, and a popup would be placed relative to the old position.
    //! \param window already shown, but not necessarily active; must live until the script has started
    void startWhenActive(QWidget *window);

    //! The lines that have not run yet.
    const QStringList &lines() const { return m_lines; }

private:
    void runNext();

    CommandRunner &m_commands;
    QStringList m_lines;
    QTimer m_next; //!< runs the next line from the event loop, so that lines do not run nested
};

} // namespace fxhost

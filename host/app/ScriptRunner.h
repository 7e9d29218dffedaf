// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/Outcome.h"

#include <QObject>
#include <QStringList>
#include <QTimer>

class QWidget;

namespace fxhost {

class CommandRunner;

//! Runs the commands of a script as a user would enter them: each line once the one before it has ended.
//! GUI thread.
class ScriptRunner : public QObject
{
    Q_OBJECT
public:
    //! \param commands must outlive the runner
    explicit ScriptRunner(CommandRunner &commands, QObject *parent = nullptr);

    //! Reads a script: UTF-8, a command line each line; blank lines and those that start with # are left out.
    Outcome load(const QString &path);
    //! Runs the first line once the window is active, the others in their turn. Until then a window manager
    //! may still move the window, and a popup over it would be placed by where it was. \param window is being
    //! shown; must live until the script has started
    void startWhenActive(QWidget *window);

    //! The lines that did not run yet.
    const QStringList &lines() const { return m_lines; }

private:
    void runNext();

    CommandRunner &m_commands;
    QStringList m_lines;
    QTimer m_next; //!< runs the next line from the event loop, so that no line nests in another's call
};

} // namespace fxhost

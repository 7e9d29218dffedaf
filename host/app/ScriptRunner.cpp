// SPDX-License-Identifier: MIT
#include "host/app/ScriptRunner.h"

#include "host/runtime/Paths.h"
#include "host/runtime/commands/CommandRunner.h"

#include <QFile>
#include <QWidget>
#include <QWindow>

#include <chrono>

namespace fxhost {

namespace {

//! How long a script waits for the window to become active.
constexpr std::chrono::seconds activationWait{3};

} // namespace

ScriptRunner::ScriptRunner(CommandRunner &commands, QObject *parent) : QObject(parent), m_commands(commands)
{
    m_next.setSingleShot(true);
    m_next.setInterval(0);
    connect(&m_next, &QTimer::timeout, this, &ScriptRunner::runNext);
    connect(&m_commands, &CommandRunner::idle, &m_next, qOverload<>(&QTimer::start));
}

sdkhost::Outcome ScriptRunner::load(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return Outcome::failed(file.errorString());
    const QByteArray content = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return Outcome::failed(file.errorString());

    QString text = pathFromBytes(content); // because it may contain file names
    if (text.startsWith(QChar::ByteOrderMark))
        text.remove(0, 1);
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        const QString command = line.trimmed();
        if (!command.isEmpty() && !command.startsWith(QLatin1Char('#')))
            m_lines.append(command);
    }
    return {};
}

void ScriptRunner::startWhenActive(QWidget *window)
{
    if (window->isActiveWindow()) {
        m_next.start();
        return;
    }
    connect(window->windowHandle(), &QWindow::activeChanged, &m_next, qOverload<>(&QTimer::start));
    // Without a window manager, no window becomes active.
    QTimer::singleShot(activationWait, &m_next, qOverload<>(&QTimer::start));
}

void ScriptRunner::runNext()
{
    // Another command may have started meanwhile; when it ends, this is called again.
    if (m_lines.isEmpty() || !m_commands.isIdle())
        return;
    m_commands.runLine(m_lines.takeFirst());
    // An unknown command, or only ^C, ran nothing whose end would start the timer.
    if (m_commands.isIdle())
        m_next.start();
}

} // namespace fxhost

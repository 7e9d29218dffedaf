// SPDX-License-Identifier: MIT
#include "host/runtime/log/HostLog.h"

#include "host/runtime/Paths.h"

#include <sdkhost/GuiThread.h>

namespace fxhost {

HostLog::HostLog(const QString &path) : m_file(path)
{
    if (!path.isEmpty())
        m_file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered);
}

Outcome HostLog::outcome() const
{
    return m_file.error() == QFileDevice::NoError ? Outcome() : Outcome::failed(m_file.errorString());
}

void HostLog::command(const QString &name, int result)
{
    write(QStringLiteral("command %1 %2").arg(name, QString::number(result)));
}

void HostLog::unknownCommand(const QString &name)
{
    write(QStringLiteral("command %1 unknown").arg(name));
}

void HostLog::open(const QString &path, bool ok)
{
    write(QStringLiteral("open %1 %2").arg(path, ok ? QStringLiteral("ok") : QStringLiteral("failed")));
}

void HostLog::help(int topic)
{
    write(QStringLiteral("help %1").arg(topic));
}

void HostLog::module(const QString &path, ModuleEvent event)
{
    QString word;
    switch (event) {
    case ModuleEvent::Loaded:
        word = QStringLiteral("loaded");
        break;
    case ModuleEvent::Unloaded:
        word = QStringLiteral("unloaded");
        break;
    case ModuleEvent::Failed:
        word = QStringLiteral("failed");
        break;
    }
    write(QStringLiteral("module %1 %2").arg(path, word));
}

void HostLog::write(const QString &line)
{
    SDKHOST_ASSERT_GUI_THREAD();
    if (m_file.isOpen())
        m_file.write(percentEncoded(pathBytes(line), isControl) +
                     '\n'); // a single write, because two hosts may share the log
}

} // namespace fxhost

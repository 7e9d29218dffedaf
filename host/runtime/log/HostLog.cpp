// SPDX-License-Identifier: MIT
#include "host/runtime/log/HostLog.h"

#include "host/runtime/Paths.h"

namespace fxhost {

namespace {

QString oneLine(const QString &text)
{
    QString line;
    for (const QChar c : text) {
        if (c.category() == QChar::Other_Control)
            line += QStringLiteral("%%1").arg(uint(c.unicode()), 2, 16, QLatin1Char('0')).toUpper();
        else
            line += c;
    }
    return line;
}

} // namespace

HostLog::HostLog(const QString &path) : m_file(path)
{
    if (!path.isEmpty())
        m_file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered);
}

QString HostLog::errorString() const
{
    return m_file.error() == QFileDevice::NoError ? QString() : m_file.errorString();
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
    if (m_file.isOpen())
        m_file.write(pathBytes(oneLine(line)) + '\n'); // one write, so that lines of two hosts do not mix
}

} // namespace fxhost

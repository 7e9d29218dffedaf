// SPDX-License-Identifier: MIT
#include "host/runtime/HostSettings.h"

#include "host/runtime/Paths.h"
#include "host/runtime/recent/RecentFiles.h"

#include <sdkhost/GuiThread.h>

#include <QDir>
#include <QFileDevice>
#include <QFileInfo>
#include <QSettings>

#include <utility>

namespace fxhost {

namespace {

constexpr char recentMaximumKey[] = "recent/maximum";
constexpr char windowGeometryKey[] = "window/geometry";
constexpr char lastDirectoryKey[] = "open/directory";

//! Reads the sections of an INI file, with lines of KEY=VALUE. The value is percent-encoded.
bool readSettings(QIODevice &file, QSettings::SettingsMap &settings)
{
    QByteArray section;
    while (!file.atEnd()) {
        const QByteArray line = file.readLine().trimmed();
        const int sign = line.indexOf('=');
        if (line.startsWith('[') && line.endsWith(']'))
            section = line.mid(1, line.size() - 2) + '/';
        else if (sign > 0)
            settings.insert(QString::fromUtf8(section + line.left(sign).trimmed()),
                            pathFromBytes(QByteArray::fromPercentEncoding(line.mid(sign + 1).trimmed())));
        else if (!line.isEmpty() && !line.startsWith(';')) // a semicolon starts a comment
            return false;
    }
    return true;
}

bool writeSettings(QIODevice &file, const QSettings::SettingsMap &settings)
{
    QByteArray section;
    for (auto setting = settings.begin(); setting != settings.end(); ++setting) {
        const QByteArray key = setting.key().toUtf8();
        const int slash = key.indexOf('/');
        if (slash < 0)
            continue; // not one of ours, which are all in sections
        const QByteArray itsSection = key.left(slash);
        if (std::exchange(section, itsSection) != itsSection)
            file.write('[' + itsSection + "]\n");
        file.write(key.mid(slash + 1) + '=' + pathBytes(setting.value().toString()).toPercentEncoding("/") +
                   '\n');
    }
    // QSettings does not detect errors that occur when the buffer is written, and would leave an empty file.
    auto *const device = qobject_cast<QFileDevice *>(&file);
    return device && device->flush();
}

std::unique_ptr<QSettings> open(const QString &path)
{
    // Not Qt's own format, which does not detect a full disk.
    static const QSettings::Format format =
        QSettings::registerFormat(QStringLiteral("ini"), readSettings, writeSettings);
    return std::make_unique<QSettings>(path, format);
}

} // namespace

HostSettings::HostSettings(const QString &profileDir, MessageSink report) : m_report(std::move(report))
{
    const QString path = QDir(profileDir).filePath(QStringLiteral("settings.ini"));
    m_file = open(path);
    if (m_file->status() == QSettings::NoError)
        return;
    const QString aside = setAside(path); // QSettings would replace it with the part that it could read
    m_report(aside.isEmpty() ? tr("The settings file %1 cannot be read.").arg(path)
                             : tr("The settings file %1 cannot be read. It was renamed to %2, and the "
                                  "default settings are used.")
                                   .arg(path, aside));
    m_file = open(path);
}

HostSettings::~HostSettings() = default;

//! Reads what other programs have stored, and writes changed settings.
void HostSettings::sync()
{
    SDKHOST_ASSERT_GUI_THREAD();
    m_file->sync();
    if (m_file->status() == QSettings::NoError || std::exchange(m_isFailureReported, true))
        return;
    m_report(tr("The settings file %1 cannot be written and was left unchanged. Is the disk full?")
                 .arg(m_file->fileName()));
}

void HostSettings::set(const char *key, const QString &value)
{
    m_file->setValue(QLatin1String(key), value);
    sync();
}

int HostSettings::recentMaximum()
{
    sync();
    bool isNumber = false;
    const int maximum = m_file->value(QLatin1String(recentMaximumKey)).toInt(&isNumber);
    const bool isAllowed = isNumber && RecentFiles::isAllowedMaximum(maximum);
    return isAllowed ? maximum : RecentFiles::defaultMaximum;
}

void HostSettings::setRecentMaximum(int maximum)
{
    set(recentMaximumKey, QString::number(maximum));
}

QByteArray HostSettings::windowGeometry() const
{
    return QByteArray::fromBase64(m_file->value(QLatin1String(windowGeometryKey)).toByteArray());
}

void HostSettings::setWindowGeometry(const QByteArray &geometry)
{
    set(windowGeometryKey, QString::fromLatin1(geometry.toBase64()));
}

QString HostSettings::lastDirectory() const
{
    return m_file->value(QLatin1String(lastDirectoryKey)).toString();
}

void HostSettings::setLastDirectory(const QString &directory)
{
    set(lastDirectoryKey, directory);
}

} // namespace fxhost

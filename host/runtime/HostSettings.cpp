// SPDX-License-Identifier: MIT
#include "host/runtime/HostSettings.h"

#include "host/runtime/Paths.h"
#include "host/runtime/recent/RecentFiles.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>

namespace fxhost {

namespace {

constexpr char recentMaximumKey[] = "recent/maximum";
constexpr char windowGeometryKey[] = "window/geometry";
constexpr char lastDirectoryKey[] = "open/directory";

} // namespace

HostSettings::HostSettings(const QString &profileDir)
{
    const QString path = QDir(profileDir).filePath(QStringLiteral("settings.ini"));
    m_file = std::make_unique<QSettings>(path, QSettings::IniFormat);
    if (m_file->status() == QSettings::NoError)
        return;
    const QString aside = setAside(path); // QSettings would write what it could read over the rest
    m_problem = aside.isEmpty() ? tr("The settings file %1 cannot be read.").arg(path)
                                : tr("The settings file %1 cannot be read. It was renamed to %2, and the "
                                     "settings are the default ones.")
                                      .arg(path, aside);
    m_file = std::make_unique<QSettings>(path, QSettings::IniFormat);
}

HostSettings::~HostSettings() = default;

int HostSettings::recentMaximum()
{
    m_file->sync();
    bool isNumber = false;
    const int maximum = m_file->value(QLatin1String(recentMaximumKey)).toInt(&isNumber);
    const bool isAllowed = isNumber && RecentFiles::isAllowedMaximum(maximum);
    return isAllowed ? maximum : RecentFiles::defaultMaximum;
}

void HostSettings::setRecentMaximum(int maximum)
{
    m_file->setValue(QLatin1String(recentMaximumKey), maximum);
}

QByteArray HostSettings::windowGeometry() const
{
    return m_file->value(QLatin1String(windowGeometryKey)).toByteArray();
}

void HostSettings::setWindowGeometry(const QByteArray &geometry)
{
    m_file->setValue(QLatin1String(windowGeometryKey), geometry);
}

QString HostSettings::lastDirectory() const
{
    return m_file->value(QLatin1String(lastDirectoryKey)).toString();
}

void HostSettings::setLastDirectory(const QString &directory)
{
    m_file->setValue(QLatin1String(lastDirectoryKey), directory);
}

} // namespace fxhost

// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"

#include <sdkhost/MessageSink.h>

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

#include <memory>

class QSettings;

namespace fxhost {

//! The host's stored settings, except for the recent documents: settings.ini in the profile. GUI thread.
class FXHOST_API HostSettings
{
    Q_DECLARE_TR_FUNCTIONS(fxhost::HostSettings)
public:
    //! \param profileDir an existing directory
    //! \param report receives the error if the file cannot be read, and, once, the error if it cannot be
    //! written; the file is then unchanged
    HostSettings(const QString &profileDir, MessageSink report);
    ~HostSettings();

    HostSettings(const HostSettings &) = delete;
    HostSettings &operator=(const HostSettings &) = delete;

    //! The maximum number of recent documents; the default if no valid number is stored. Reads the file,
    //! which another program with the same profile may have changed.
    int recentMaximum();
    void setRecentMaximum(int maximum);

    //! The result of QWidget::saveGeometry(); empty if none is stored.
    QByteArray windowGeometry() const;
    void setWindowGeometry(const QByteArray &geometry);

    //! The folder in which the user last chose a drawing; empty if none is stored.
    QString lastDirectory() const;
    void setLastDirectory(const QString &directory);

private:
    void sync();
    void set(const char *key, const QString &value);

    MessageSink m_report;
    bool m_isFailureReported = false;
    std::unique_ptr<QSettings> m_file;
};

} // namespace fxhost

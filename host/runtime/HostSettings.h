// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"
#include "host/runtime/MessageSink.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

#include <memory>

class QSettings;

namespace fxhost {

//! What the host remembers between runs besides the recent documents: settings.ini in the profile. GUI
//! thread.
class FXHOST_API HostSettings
{
    Q_DECLARE_TR_FUNCTIONS(fxhost::HostSettings)
public:
    //! \param profileDir an existing directory
    //! \param report gets what was wrong with the file when it is read, and, once, that settings cannot be
    //! written, which are left as they were then
    HostSettings(const QString &profileDir, MessageSink report);
    ~HostSettings();

    HostSettings(const HostSettings &) = delete;
    HostSettings &operator=(const HostSettings &) = delete;

    //! How many recent documents are kept; the default when none or a wrong number is stored. Another program
    //! with the same profile may have stored it just now.
    int recentMaximum();
    void setRecentMaximum(int maximum);

    //! As QWidget::saveGeometry() gave it; empty when none is stored.
    QByteArray windowGeometry() const;
    void setWindowGeometry(const QByteArray &geometry);

    //! Where the last drawing was chosen; empty when none was.
    QString lastDirectory() const;
    void setLastDirectory(const QString &directory);

private:
    void sync();
    void set(const char *key, const QString &value);

    MessageSink m_report;
    bool m_isToldOfFailure = false;
    std::unique_ptr<QSettings> m_file;
};

} // namespace fxhost

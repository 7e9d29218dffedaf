// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace fxhost {

//! Notifies when SIGTERM, SIGINT or SIGHUP requests that the program quit. A signal that was ignored when the
//! program was started, as with nohup, stays ignored. A second signal terminates the program immediately.
//! Only one object can exist at a time. GUI thread.
class EndSignals : public QObject
{
    Q_OBJECT
public:
    explicit EndSignals(QObject *parent = nullptr);
    //! Afterwards, each of these signals terminates the program immediately.
    ~EndSignals() override;

signals:
    //! Emitted from the running event loop, which may be a dialog's.
    void endRequested();
};

} // namespace fxhost

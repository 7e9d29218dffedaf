// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace fxhost {

//! Notifies when the system asks the program to end: by SIGTERM, SIGINT or SIGHUP, unless whoever started it
//! had that one ignored, as nohup does. The next of them ends it at once. One object at a time. GUI thread.
class EndSignals : public QObject
{
    Q_OBJECT
public:
    explicit EndSignals(QObject *parent = nullptr);
    //! From now on each of them ends the program at once.
    ~EndSignals() override;

signals:
    //! From the event loop that runs, which may be a dialog's.
    void endRequested();
};

} // namespace fxhost

// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"

#include <sdkhost/Outcome.h>

#include <QCoreApplication>
#include <QHash>
#include <QStringList>

#include <chrono>
#include <optional>

class QProcess;

namespace fxhost {

//! How long to wait for files.
struct ProbeWait
{
    //! How long a file may take to respond.
    std::chrono::milliseconds deadline{300};
    //! A response that is not older than this is still valid.
    std::chrono::milliseconds responsesGoodFor{0};
};

//! Finds unresponsive files, for example on a server that is not available, where every access blocks. A
//! helper process accesses the files. If it cannot end because it is blocked, it is left running. GUI thread.
class FXHOST_API FileProbe
{
    Q_DECLARE_TR_FUNCTIONS(fxhost::FileProbe)
public:
    //! An unresponsive file is accessed again after firstRetry, and then after twice as long each time, up to
    //! lastRetry, because its server may have been replaced while the first access is still blocked.
    static constexpr std::chrono::milliseconds firstRetry{2000};
    static constexpr std::chrono::milliseconds lastRetry{600000};

    //! \param helper the program to start; if empty, the one in the folder of this library
    explicit FileProbe(const QString &helper = QString());
    //! Does not wait for unresponsive files.
    ~FileProbe();

    FileProbe(const FileProbe &) = delete;
    FileProbe &operator=(const FileProbe &) = delete;

    //! Accesses files, all at the same time, and waits until each has responded or reached the deadline. The
    //! deadline starts when the helper begins to access the file, so that a busy machine does not make files
    //! unresponsive. If a file has already been unresponsive for longer, it is not waited for until it has
    //! responded. An error is a response, too.
    //! \param paths full paths
    //! \return the unresponsive files among paths; none if there is no helper
    QStringList unresponsive(const QStringList &paths, const ProbeWait &wait = {});

    //! A failure, for the user, if the helper does not work. It is started again after lastRetry.
    const Outcome &outcome() const { return m_outcome; }

private:
    using Clock = std::chrono::steady_clock;

    struct Request
    {
        QString path;
        bool hasBegun; //!< the helper is accessing it
    };
    struct Waiting
    {
        Clock::time_point requestedAt;          //!< the last time
        std::optional<Clock::time_point> since; //!< when the helper first began to access it
    };

    bool startHelper();
    bool isRunning() const;
    //! Requests those of paths that have not responded, and requests unresponsive ones again after a while.
    void requestMissing(const QStringList &paths);
    void request(const QString &path);
    void readResponses();
    void waitFor(const QStringList &paths, std::chrono::milliseconds deadline);
    void forgetResponsesBefore(Clock::time_point time);

    QString m_program;
    QProcess *m_helper = nullptr;
    Outcome m_outcome;
    Clock::time_point m_failedAt; //!< only valid after a failure
    int m_lastNumber = 0;
    QHash<int, Request> m_requests;                //!< by number, until the response
    QHash<QString, Waiting> m_waiting;             //!< by path, until the response to one of its requests
    QHash<QString, Clock::time_point> m_responded; //!< by path, the time of the last response
};

} // namespace fxhost

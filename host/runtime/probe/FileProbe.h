// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"

#include <QCoreApplication>
#include <QElapsedTimer>
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
    //! A response that is no older than this counts as a new one.
    std::chrono::milliseconds responsesGoodFor{0};
};

//! Finds unresponsive files: those on a server that is away, for example, where every access waits without
//! end. A helper process accesses them, and is left behind when it cannot end. GUI thread.
class FXHOST_API FileProbe
{
    Q_DECLARE_TR_FUNCTIONS(fxhost::FileProbe)
public:
    //! An unresponsive file is tried again after the first time, and then after twice as long each time, up
    //! to the second: its server may have been replaced while the former access still waits.
    static constexpr std::chrono::milliseconds firstRetry{2000};
    static constexpr std::chrono::milliseconds lastRetry{600000};

    //! \param helper the program to start; empty for the one in the folder of this library
    explicit FileProbe(const QString &helper = QString());
    //! Does not wait for files that do not respond.
    ~FileProbe();

    FileProbe(const FileProbe &) = delete;
    FileProbe &operator=(const FileProbe &) = delete;

    //! Accesses files, all at the same time, and waits until each has responded or reached the deadline. That
    //! counts from when the helper began to access it: what a busy machine needs until then is not the
    //! file's. A file that has been unresponsive for longer is not waited for again, until its response has
    //! come. An error is a response. \param paths full paths \return those of paths that are unresponsive.
    //! None when there is no helper: then nothing can be known.
    QStringList unresponsive(const QStringList &paths, const ProbeWait &wait = {});

    //! Why there is no helper; empty when there is one, or none was needed yet. It is started again after
    //! lastRetry.
    QString problem() const { return m_problem; }

private:
    struct Request
    {
        QString path;
        bool hasBegun; //!< whether the helper is accessing it
    };
    struct Waiting
    {
        qint64 requestedAt = 0;      //!< last, in milliseconds of the clock, like all times here
        std::optional<qint64> since; //!< when the helper first began to access it, once it has
    };

    bool startHelper();
    bool isRunning() const;
    //! Requests those of paths that have not responded, and once more those that have long been unresponsive.
    void requestMissing(const QStringList &paths);
    void request(const QString &path);
    void readResponses();
    void waitFor(const QStringList &paths, std::chrono::milliseconds deadline);
    void forgetResponsesBefore(qint64 time);

    QString m_program;
    QProcess *m_helper = nullptr;
    QString m_problem;
    qint64 m_failedAt = 0;
    int m_lastNumber = 0;
    QHash<int, Request> m_requests;     //!< by their numbers, until the response
    QHash<QString, Waiting> m_waiting;  //!< until the response to one of their requests
    QHash<QString, qint64> m_responded; //!< when
    QElapsedTimer m_clock;
};

} // namespace fxhost

// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"

#include <QElapsedTimer>
#include <QHash>
#include <QStringList>

class QProcess;

namespace fxhost {

//! Finds out which files do not answer: those on a server that is away, say, where whoever looks at one waits
//! for ever. A helper process looks at them, and is left behind when it cannot end. GUI thread.
class FXHOST_API FileProbe
{
public:
    //! How long a file may take to answer, in milliseconds.
    static constexpr int deadline = 300;

    //! \param helper the program to start; empty for the one that stands beside this library
    explicit FileProbe(const QString &helper = QString());
    //! Does not wait for files that do not answer.
    ~FileProbe();

    FileProbe(const FileProbe &) = delete;
    FileProbe &operator=(const FileProbe &) = delete;

    //! Looks at files, all at the same time, and waits until each has answered or the deadline has passed. A
    //! file that was silent before is not waited for again: it is silent until its answer has come. An error
    //! is an answer like any other.
    //! \param freshFor an answer that is no older than so many milliseconds is taken for a new one
    //! \return which of paths are silent. None when there is no helper: then nothing can be known.
    QStringList silent(const QStringList &paths, int freshFor = 0);

    //! Why there is no helper; empty when there is one, or none was needed yet.
    QString problem() const { return m_problem; }

private:
    bool startHelper();
    bool isRunning() const;
    int ask(const QString &path);
    void hear();
    template<class Condition>
    bool waitUntil(Condition condition, int longest);

    QString m_program;
    QProcess *m_helper = nullptr;
    QString m_problem;
    int m_lastNumber = 0;
    QHash<int, QString> m_asked;       //!< by the number of the request, until it is answered
    QHash<QString, int> m_unanswered;  //!< the other way round
    QHash<QString, qint64> m_answered; //!< when, in milliseconds of the clock
    QElapsedTimer m_clock;
};

} // namespace fxhost

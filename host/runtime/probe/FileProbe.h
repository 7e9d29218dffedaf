// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"

#include <QElapsedTimer>
#include <QHash>
#include <QStringList>

#include <optional>

class QProcess;

namespace fxhost {

//! Finds out which files do not answer: those on a server that is away, say, where whoever looks at one waits
//! for ever. A helper process looks at them, and is left behind when it cannot end. GUI thread.
class FXHOST_API FileProbe
{
public:
    //! How long a file may take to answer unless somebody says otherwise, in milliseconds.
    static constexpr int deadline = 300;
    //! A silent file is asked for again after so many milliseconds, and then after twice as many each time up
    //! to the second number: its server may have been replaced by another while the old question still waits.
    static constexpr int firstRepeat = 2000;
    static constexpr int lastRepeat = 600000;

    //! \param helper the program to start; empty for the one that stands beside this library
    explicit FileProbe(const QString &helper = QString());
    //! Does not wait for files that do not answer.
    ~FileProbe();

    FileProbe(const FileProbe &) = delete;
    FileProbe &operator=(const FileProbe &) = delete;

    //! Looks at files, all at the same time, and waits until each has answered or had its time. That counts
    //! from when the helper first began to look at it: what a busy machine needs until then is not the
    //! file's, and a file that has been silent for longer is not waited for again. It is silent until its
    //! answer has come. An error is an answer like any other.
    //! \param paths full paths
    //! \param freshFor an answer that is no older than so many milliseconds is taken for a new one
    //! \param patience how long a file may take, in milliseconds
    //! \return which of paths are silent. None when there is no helper: then nothing can be known.
    QStringList silent(const QStringList &paths, int freshFor = 0, int patience = deadline);

    //! Why there is no helper; empty when there is one, or none was needed yet. It is tried again after the
    //! second number above.
    QString problem() const { return m_problem; }

private:
    struct Question
    {
        QString path;
        bool hasBegun; //!< whether the helper is looking at it
    };
    struct Silence
    {
        qint64 askedAt = 0;          //!< last, in milliseconds of the clock, like all times here
        std::optional<qint64> since; //!< when the helper first began to look, once it has
    };

    bool startHelper();
    bool isRunning() const;
    //! Asks for those of paths whose answers are missing, and for those that have long been silent once more.
    void askFor(const QStringList &paths);
    void ask(const QString &path);
    void hear();
    void waitFor(const QStringList &paths, int patience);
    void forgetAnswersBefore(qint64 time);

    QString m_program;
    QProcess *m_helper = nullptr;
    QString m_problem;
    qint64 m_failedAt = 0;
    int m_lastNumber = 0;
    QHash<int, Question> m_asked;      //!< by the number of the request, until it is answered
    QHash<QString, Silence> m_silent;  //!< until one of their questions is answered
    QHash<QString, qint64> m_answered; //!< when
    QElapsedTimer m_clock;
};

} // namespace fxhost

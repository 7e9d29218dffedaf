// SPDX-License-Identifier: MIT
#pragma once

#include <QProcessEnvironment>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>

class QProcess;

//! What a run of the program left behind.
struct ProgramRun
{
    int exitCode = -1; //!< -1: it crashed, or did not end in time
    QString output;    //!< of the standard output
    QString errors;    //!< of the standard error stream
    QStringList log;   //!< the lines of --log
};

//! A home directory of its own for runs of the real program without a display. Everything that it may write
//! lies below one temporary directory.
class ProgramHome
{
public:
    ProgramHome();

    QString profile() const { return path(QStringLiteral("profile")); }
    QString recentFile() const { return profile() + QStringLiteral("/recent.txt"); }
    //! A path below the temporary directory, beside the profile.
    QString path(const QString &name) const;
    //! From now on no platform can show a window.
    void loseDisplay();
    //! Writes a file that counts as a drawing: it begins with a version. \return its path
    QString drawing(const QString &name) const;
    //! Every file below the home directory, which is not the profile.
    QStringList filesInHome() const;

    //! Runs the program with the profile, a log and a script; the script should end with _QUIT.
    //! \param script lines; the program gets no script when there are none
    ProgramRun run(const QStringList &script,
                   const QStringList &more = {QStringLiteral("--no-module")}) const;
    //! Starts the program in the same way and does not wait for it. Several may run at a time.
    //! \param name what its script and its log are called
    std::unique_ptr<QProcess> start(const QString &name, const QStringList &script,
                                    const QStringList &more = {QStringLiteral("--no-module")}) const;
    //! The log's lines of a program that start() has started.
    QStringList logOf(const QString &name) const;
    //! Runs the program with these arguments and no others.
    ProgramRun runBare(const QStringList &arguments) const;

private:
    QStringList arguments(const QString &name, const QStringList &script) const;
    void start(QProcess &process, const QStringList &arguments) const;

    QTemporaryDir m_dir;
    QProcessEnvironment m_environment;
};

//! The lines of a text file, without their ends.
QStringList linesOf(const QString &path);

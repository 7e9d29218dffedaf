// SPDX-License-Identifier: MIT
#pragma once

#include <QDir>
#include <QStringList>
#include <QTemporaryDir>

class QProcess;

//! The results of a run of the program.
struct ProgramRun
{
    int exitCode = -1; //!< -1 after a crash or a timeout
    QString output;    //!< of the standard output
    QString errors;    //!< of the standard error stream
    QStringList log;   //!< the lines of --log
};

//! A home directory for runs of the program as a process. All that it may write is below one temporary
//! directory.
class ProgramHome
{
public:
    //! \param platform of its windows: "offscreen", "xcb" for the display, or "none", with which no window
    //! opens
    explicit ProgramHome(const QString &platform = "offscreen");

    //! A path below the temporary directory, beside the profile; a full path is kept.
    QString path(const QString &name) const { return QDir(m_dir.path()).filePath(name); }
    QString profile() const { return path("profile"); }
    QString recentFile() const { return profile() + "/recent.txt"; }
    //! The recent drawings that the file lists.
    QStringList recent() const;
    //! The paths in the content of such a file, as they are encoded there.
    static QStringList pathsIn(const QString &content);
    //! Writes the file path(name), and makes the folders above it. \return its path
    QString write(const QString &name, const QByteArray &bytes) const;
    //! Writes a file that counts as a drawing: it begins with a version. \return its path
    QString drawing(const QString &name) const;
    //! Every file below the home directory, which is not the profile.
    QStringList filesInHome() const;

    //! Runs the program with the profile, a log and a script, which should end with _QUIT.
    //! \param script lines; without lines the program gets no script
    ProgramRun run(const QStringList &script, const QStringList &more = {"--no-module"}) const;
    //! Runs the program with these arguments and no others.
    ProgramRun runBare(const QStringList &arguments) const;
    //! Starts the program like run() without waiting for it. Several may run at a time.
    //! \param name begins the names of its script and its log
    //! \param around a program that runs it, with its arguments; may be empty
    void start(QProcess &process, const QString &name, const QStringList &script,
               const QStringList &more = {"--no-module"}, const QStringList &around = {}) const;
    //! The same with these arguments and no others.
    void startBare(QProcess &process, const QStringList &arguments, const QStringList &around = {}) const;
    //! The log's lines of a program that start() has started.
    QStringList logOf(const QString &name) const;

private:
    QStringList arguments(const QString &name, const QStringList &script) const;

    QTemporaryDir m_dir{QDir::temp().filePath("drawings-XXXXXX")};
    QString m_platform;
};

//! The whole lines of a text file, without their ends.
QStringList linesOf(const QString &path);

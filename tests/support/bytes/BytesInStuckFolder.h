// SPDX-License-Identifier: MIT
#pragma once

#include <QMetaType>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>
#include <QTest>

//! A folder that can be told not to answer, as one on a server that went away: whoever looks at a file in it
//! waits until it answers again.
class BytesInStuckFolder
{
public:
    enum class Kind {
        Mount, //!< a real file system, where this machine lets us mount one
        Calls, //!< the system's calls wait, in this process if it was started with stuck_calls preloaded
    };

    explicit BytesInStuckFolder(Kind kind);
    //! Answers again.
    ~BytesInStuckFolder();

    BytesInStuckFolder(const BytesInStuckFolder &) = delete;
    BytesInStuckFolder &operator=(const BytesInStuckFolder &) = delete;

    //! Why there is no such folder; empty when there is.
    QString problem() const { return m_problem; }

    //! The path of a file in it.
    QString path(const QString &name) const { return m_seen + QLatin1Char('/') + name; }
    //! Makes a file in it, while it answers. \return its path
    QString makeFile(const QString &name, const QByteArray &bytes) const;

    void stopAnswering();
    void answerAgain();
    //! Of a mount: puts a folder with the same files in its place that answers. Whoever waits for the former
    //! one goes on waiting.
    void replaceServer();

private:
    void mount();

    QTemporaryDir m_folder;
    QString m_kept; //!< where its files really are
    QString m_seen;
    QString m_lever;
    QString m_problem;
    QProcess m_mount;
};
Q_DECLARE_METATYPE(BytesInStuckFolder::Kind)

//! Adds the column "kind" and a row for each kind of folder.
void addStuckFolderRows();

//! A folder of the row's kind, in a test with such rows; without one the test is skipped, and says why.
#define STUCK_FOLDER_OR_SKIP(folder)                                                                         \
    QFETCH(BytesInStuckFolder::Kind, kind);                                                                  \
    BytesInStuckFolder folder(kind);                                                                         \
    if (!(folder).problem().isEmpty())                                                                       \
    QSKIP(qPrintable((folder).problem()))

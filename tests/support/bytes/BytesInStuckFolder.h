// SPDX-License-Identifier: MIT
#pragma once

#include <QMetaType>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>
#include <QTest>

//! A folder that can be made unresponsive, like one on a server that is down: calls on its files wait until
//! it answers again.
class BytesInStuckFolder
{
public:
    enum class Kind {
        Mount, //!< a real file system, where mounting is allowed
        Calls, //!< system calls wait; needs stuck_calls preloaded
    };

    explicit BytesInStuckFolder(Kind kind);
    //! Answers again.
    ~BytesInStuckFolder();

    BytesInStuckFolder(const BytesInStuckFolder &) = delete;
    BytesInStuckFolder &operator=(const BytesInStuckFolder &) = delete;

    //! Why there is no such folder; empty if there is.
    QString problem() const { return m_problem; }

    //! The path of a file in it.
    QString path(const QString &name) const { return m_seen + QLatin1Char('/') + name; }
    //! Makes a file in it. \return its path
    QString makeFile(const QString &name, const QByteArray &bytes) const;

    void stopAnswering();
    void answerAgain();
    //! Only for mounts: replaces it with a folder of the same files that answers. Calls that wait for the
    //! former one go on waiting.
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

//! Defines a folder of the row's kind, or skips the test and reports why there is none.
#define STUCK_FOLDER_OR_SKIP(folder)                                                                         \
    QFETCH(BytesInStuckFolder::Kind, kind);                                                                  \
    BytesInStuckFolder folder(kind);                                                                         \
    if (!(folder).problem().isEmpty())                                                                       \
    QSKIP(qPrintable((folder).problem()))

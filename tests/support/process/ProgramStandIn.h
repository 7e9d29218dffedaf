// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <QVector>

//! Replaces the desktop's file manager, or another program, in the PATH, and records the arguments of each
//! start.
class ProgramStandIn
{
public:
    //! Whether other programs are found as well.
    enum class Others { Hidden, Found };

    //! \param command the program's name
    explicit ProgramStandIn(int exitCode = 0, Others others = Others::Hidden,
                            const QString &command = BROWSER_FILE_MANAGER)
        : m_searchPath(qgetenv("PATH")), m_program(m_folder.filePath(command))
    {
        QFile script(m_program);
        if (!script.open(QIODevice::WriteOnly))
            qFatal("cannot make %s", qPrintable(script.fileName()));
        // For each start the number of arguments and the arguments, each ended by a zero byte.
        script.write("#!/bin/sh\nprintf '%s\\0' \"$#\" \"$@\" >>\"${0%/*}/starts\"\nexit " +
                     QByteArray::number(exitCode) + '\n');
        script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        const QByteArray path = QFile::encodeName(m_folder.path());
        qputenv("PATH", others == Others::Hidden ? path : path + ':' + m_searchPath);
    }
    ~ProgramStandIn() { qputenv("PATH", m_searchPath); }
    Q_DISABLE_COPY(ProgramStandIn)

    //! Removes it, so that it is not found.
    void uninstall() const { QFile::remove(m_program); }

    //! The arguments of each start that has ended so far.
    QVector<QStringList> starts() const
    {
        QFile file(m_folder.filePath("starts"));
        if (!file.open(QIODevice::ReadOnly))
            return {};
        QList<QByteArray> words = file.readAll().split('\0');
        words.removeLast(); // after the last zero byte
        QVector<QStringList> starts;
        while (!words.isEmpty()) {
            QStringList arguments;
            for (int count = words.takeFirst().toInt(); count > 0 && !words.isEmpty(); --count)
                arguments.append(QFile::decodeName(words.takeFirst()));
            starts.append(arguments);
        }
        return starts;
    }

private:
    QByteArray m_searchPath;
    QTemporaryDir m_folder;
    QString m_program;
};

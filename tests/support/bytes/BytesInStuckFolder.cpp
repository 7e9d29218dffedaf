// SPDX-License-Identifier: MIT
#include "tests/support/bytes/BytesInStuckFolder.h"

#include <QDir>
#include <QFile>

BytesInStuckFolder::BytesInStuckFolder(Kind kind)
    : m_kept(m_folder.filePath(QStringLiteral("kept"))), m_seen(m_folder.filePath(QStringLiteral("seen"))),
      m_lever(m_folder.filePath(QStringLiteral("does not respond")))
{
    if (!QDir().mkpath(m_kept) || !QDir().mkpath(m_seen))
        qFatal("cannot make a folder in %s", qPrintable(m_folder.path()));
    if (kind == Kind::Mount) {
        mount();
        return;
    }
    m_kept = m_seen;
    if (qEnvironmentVariableIsEmpty("LD_PRELOAD"))
        m_problem = QStringLiteral("stuck_calls is not preloaded");
    qputenv("STUCK_FOLDER", QFile::encodeName(m_seen));
    qputenv("STUCK_SWITCH", QFile::encodeName(m_lever));
}

BytesInStuckFolder::~BytesInStuckFolder()
{
    answerAgain();
    qunsetenv("STUCK_FOLDER");
    qunsetenv("STUCK_SWITCH");
    if (m_mount.state() == QProcess::NotRunning)
        return;
    m_mount.terminate(); // it unmounts itself
    if (!m_mount.waitForFinished())
        qFatal("%s stays mounted", qPrintable(m_seen));
}

void BytesInStuckFolder::mount()
{
    m_mount.start(QStringLiteral(STUCK_MOUNT_PROGRAM), {m_kept, m_lever, m_seen});
    m_mount.waitForReadyRead();
    if (m_mount.readAllStandardOutput() == "mounted\n")
        return;
    m_mount.waitForFinished();
    m_problem = QStringLiteral("no file system can be mounted here: ") +
                QString::fromLocal8Bit(m_mount.readAllStandardError());
}

QString BytesInStuckFolder::makeFile(const QString &name, const QByteArray &bytes) const
{
    QFile file(m_kept + QLatin1Char('/') + name);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot make %s", qPrintable(file.fileName()));
    return path(name);
}

void BytesInStuckFolder::stopAnswering()
{
    QFile lever(m_lever);
    if (!lever.open(QIODevice::WriteOnly))
        qFatal("cannot make %s", qPrintable(m_lever));
}

void BytesInStuckFolder::replaceServer()
{
    QProcess unmount;
    unmount.start(QStringLiteral("fusermount3"), {QStringLiteral("-uz"), m_seen});
    unmount.waitForFinished();
    const QStringList names = QDir(m_kept).entryList(QDir::Files);
    for (const QString &name : names) {
        if (!QFile::copy(m_kept + QLatin1Char('/') + name, path(name)))
            qFatal("cannot replace %s", qPrintable(path(name)));
    }
}

void BytesInStuckFolder::answerAgain()
{
    QFile::remove(m_lever);
}

void addStuckFolderRows()
{
    QTest::addColumn<BytesInStuckFolder::Kind>("kind");
    QTest::newRow("a mount") << BytesInStuckFolder::Kind::Mount;
    QTest::newRow("calls that wait") << BytesInStuckFolder::Kind::Calls;
}

// SPDX-License-Identifier: MIT
#include "tests/support/process/ProgramInGtk.h"

#include "tests/support/Patience.h"

ProgramInGtk::ProgramInGtk(const QRect &place, Fetching fetching) : m_place(place)
{
    QStringList arguments;
    for (const int number : {place.x(), place.y(), place.width(), place.height()})
        arguments.append(QString::number(number));
    if (fetching == Fetching::Late)
        arguments.append("late");
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("NO_AT_BRIDGE", "1");     // there is no session bus
    environment.insert("LD_PRELOAD", QString()); // without the tests' preloaded libraries
    m_process.setProcessEnvironment(environment);
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(GTK_WINDOW_PROGRAM, arguments);
    m_isReady = waitUntil([this] { return has("ready"); });
}

ProgramInGtk::~ProgramInGtk()
{
    m_process.terminate();
    if (!m_process.waitForFinished())
        m_process.kill();
}

QStringList ProgramInGtk::lines() const
{
    m_process.waitForReadyRead(0); // reads without an event loop
    m_output += m_process.readAllStandardOutput();
    return QString::fromUtf8(m_output).split('\n', Qt::SkipEmptyParts);
}

QMap<QString, QByteArray> ProgramInGtk::received() const
{
    QMap<QString, QByteArray> data;
    const QStringList all = lines();
    for (const QString &line : all) {
        const QStringList words = line.split(' ');
        if (words.size() == 3 && words.first() == "data")
            data.insert(words.at(1), QByteArray::fromHex(words.at(2).toLatin1()));
    }
    return data;
}

void ProgramInGtk::fetch()
{
    m_process.write("fetch\n");
}

// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <deque>
#include <memory>

namespace fxhost {

class CommandRunner;
class InstanceSocket;

//! Opens the drawings that later starts of the program hand over: with the command _OPEN, when no command is
//! running. Never waits for a start. GUI thread.
class InstanceReceiver : public QObject
{
    Q_OBJECT
public:
    //! \param commands must outlive the receiver
    InstanceReceiver(std::unique_ptr<InstanceSocket> socket, CommandRunner &commands);
    //! Starts whose drawings have not been opened are notified, and open them themselves.
    ~InstanceReceiver() override;

signals:
    //! A start was received; the user expects the window.
    //! \param startupId see InstanceMessage::startupId
    void activationRequested(const QByteArray &startupId);

private:
    class Connection;

    void accept();
    void read(Connection *connection);
    void openReceived();
    std::unique_ptr<Connection> take(const Connection *connection);
    void close(const Connection *connection);

    std::unique_ptr<InstanceSocket> m_socket;
    CommandRunner &m_commands;
    QSocketNotifier m_incoming;
    std::deque<std::unique_ptr<Connection>> m_connections; //!< in the order of acceptance
};

} // namespace fxhost

// SPDX-License-Identifier: MIT
#include "host/app/instance/InstanceReceiver.h"

#include "host/app/OpenDrawings.h"
#include "host/app/instance/InstanceMessage.h"
#include "host/app/instance/InstanceSocket.h"
#include "host/runtime/commands/CommandRunner.h"

#include <QTimer>

#include <algorithm>
#include <chrono>

#include <sys/socket.h>

namespace fxhost {

namespace {

//! At the same time; more wait in the system's queue.
constexpr size_t maximumConnections = 16;

//! After which a connection that sends nothing is closed. The program sends at once.
constexpr std::chrono::seconds silence{1};

} // namespace

//! A start that has connected.
class InstanceReceiver::Connection : public QObject
{
public:
    explicit Connection(Descriptor descriptor)
        : notifier(descriptor.number(), QSocketNotifier::Read), m_descriptor(std::move(descriptor))
    {
    }

    //! Reads the message, unless what has arrived is not one.
    void receive()
    {
        QByteArray bytes(InstanceMessage::maximumSize, Qt::Uninitialized);
        // With MSG_TRUNC, the result is the size of the packet, which may be larger.
        const ssize_t size =
            ::recv(m_descriptor.number(), bytes.data(), size_t(bytes.size()), MSG_TRUNC | MSG_DONTWAIT);
        if (size > 0 && size <= bytes.size())
            message = InstanceMessage::fromBytes(bytes.left(int(size)));
    }

    //! \return false if the other process has ended or waits no longer
    bool reply(InstanceReply value) const
    {
        return ::send(m_descriptor.number(), &value, 1, MSG_NOSIGNAL | MSG_DONTWAIT) == 1;
    }

    QSocketNotifier notifier;
    std::optional<InstanceMessage> message; //!< unset until it is received

private:
    Descriptor m_descriptor;
};

InstanceReceiver::InstanceReceiver(std::unique_ptr<InstanceSocket> socket, CommandRunner &commands)
    : m_socket(std::move(socket)), m_commands(commands),
      m_incoming(m_socket->descriptor(), QSocketNotifier::Read)
{
    connect(&m_incoming, &QSocketNotifier::activated, this, &InstanceReceiver::accept);
    // Queued, so that the commands do not run inside the caller of the previous one.
    connect(&commands, &CommandRunner::idle, this, &InstanceReceiver::openReceived, Qt::QueuedConnection);
}

InstanceReceiver::~InstanceReceiver() = default;

void InstanceReceiver::accept()
{
    Descriptor descriptor(::accept4(m_socket->descriptor(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
    if (!descriptor.isOpen() || !isPeerThisUser(descriptor))
        return;
    auto *const connection = new Connection(std::move(descriptor));
    m_connections.emplace_back(connection);
    m_incoming.setEnabled(m_connections.size() < maximumConnections);
    connect(&connection->notifier, &QSocketNotifier::activated, this,
            [this, connection] { read(connection); });
    QTimer::singleShot(silence, connection, [this, connection] {
        if (!connection->message)
            close(connection);
    });
}

void InstanceReceiver::read(Connection *connection)
{
    // A start sends nothing after its message, so it has ended; or it is another program.
    const bool isFirst = !connection->message;
    if (isFirst)
        connection->receive();
    if (!isFirst || !connection->message || !connection->reply(InstanceReply::Received)) {
        close(connection);
        return;
    }
    emit activationRequested(connection->message->startupId);
    QMetaObject::invokeMethod(this, &InstanceReceiver::openReceived, Qt::QueuedConnection);
}

void InstanceReceiver::openReceived()
{
    while (m_commands.isIdle()) {
        const auto next = std::find_if(m_connections.begin(), m_connections.end(),
                                       [](const auto &connection) { return connection->message; });
        if (next == m_connections.end())
            return;
        const std::unique_ptr<Connection> connection = take(next->get()); // a command may run an event loop
        if (openDrawings(m_commands, connection->message->drawings))
            connection->reply(InstanceReply::Opened);
    }
}

//! Removes a connection from the list.
std::unique_ptr<InstanceReceiver::Connection> InstanceReceiver::take(const Connection *connection)
{
    const auto found = std::find_if(m_connections.begin(), m_connections.end(),
                                    [connection](const auto &other) { return other.get() == connection; });
    std::unique_ptr<Connection> taken = std::move(*found);
    m_connections.erase(found);
    taken->notifier.setEnabled(false);
    m_incoming.setEnabled(true);
    return taken;
}

void InstanceReceiver::close(const Connection *connection)
{
    take(connection).release()->deleteLater(); // its notifier may be the caller
}

} // namespace fxhost

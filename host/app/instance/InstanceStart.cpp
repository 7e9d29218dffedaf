// SPDX-License-Identifier: MIT
#include "host/app/instance/InstanceStart.h"

#include "host/runtime/FileLock.h"
#include "host/runtime/Paths.h"

#include <cerrno>
#include <thread>

#include <poll.h>
#include <sys/socket.h>

namespace fxhost {

namespace {

// While the other process has the lock but no socket: it is just starting or ending.
constexpr std::chrono::milliseconds pause{5};
constexpr int attempts = instanceResponse / pause;

constexpr std::chrono::milliseconds noLimit{-1};

enum class HandOver {
    Done,
    Gone,   //!< no instance listens, or it has ended
    Failed, //!< the instance does not respond, or cannot take the message
};

enum class Reading { Reply, Ended, Nothing };

//! Waits for a reply.
Reading read(const Descriptor &connection, InstanceReply expected, std::chrono::milliseconds wait)
{
    pollfd watched = {connection.number(), POLLIN, 0};
    int ready = -1;
    do {
        ready = ::poll(&watched, 1, int(wait.count()));
    } while (ready < 0 && errno == EINTR); // stopped and continued, from a terminal
    char reply = 0;
    if (ready <= 0)
        return Reading::Nothing;
    return ::recv(connection.number(), &reply, 1, 0) == 1 && reply == char(expected) ? Reading::Reply
                                                                                     : Reading::Ended;
}

HandOver handOver(const QByteArray &path, const QByteArray &message)
{
    const Descriptor connection = connectToInstance(path);
    if (!connection.isOpen()) // EAGAIN: too many others wait
        return errno == ENOENT || errno == ECONNREFUSED ? HandOver::Gone : HandOver::Failed;
    if (!isPeerThisUser(connection))
        return HandOver::Failed;
    if (::send(connection.number(), message.constData(), size_t(message.size()), MSG_NOSIGNAL) !=
        message.size())
        return errno == EPIPE || errno == ECONNRESET ? HandOver::Gone : HandOver::Failed;
    const Reading received = read(connection, InstanceReply::Received, instanceResponse);
    if (received != Reading::Reply)
        return received == Reading::Ended ? HandOver::Gone : HandOver::Failed;
    return read(connection, InstanceReply::Opened, noLimit) == Reading::Reply ? HandOver::Done
                                                                              : HandOver::Gone;
}

} // namespace

InstanceStart startInstance(const QByteArray &path, const std::optional<InstanceMessage> &message)
{
    InstanceStart start;
    if (path.isEmpty())
        return start;
    const QByteArray bytes = message ? message->toBytes() : QByteArray();
    for (int attempt = 0; attempt < attempts; ++attempt) {
        auto lock = std::make_unique<FileLock>(pathFromBytes(path + ".lock"), std::chrono::milliseconds(0));
        if (lock->isHeld()) {
            auto socket = std::make_unique<InstanceSocket>(path, std::move(lock));
            if (socket->isListening())
                start.socket = std::move(socket);
            return start;
        }
        if (!lock->isBusy() || bytes.isEmpty())
            return start;
        const HandOver handedOver = handOver(path, bytes);
        start.isHandedOver = handedOver == HandOver::Done;
        if (handedOver != HandOver::Gone)
            return start;
        std::this_thread::sleep_for(pause);
    }
    return start;
}

} // namespace fxhost

// SPDX-License-Identifier: MIT
#include "host/app/instance/InstanceSocket.h"

#include "host/runtime/FileLock.h"
#include "host/runtime/Paths.h"

#include <QCryptographicHash>
#include <QFileInfo>

#include <algorithm>
#include <optional>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

namespace fxhost {

namespace {

// Connections that wait for the program. More than a user starts while it is busy.
constexpr int backlog = 16;

//! Whether only this user can access a folder.
bool isPrivate(const QByteArray &folder)
{
    constexpr mode_t rights = S_IRWXU | S_IRWXG | S_IRWXO;
    struct stat facts = {};
    return folder.startsWith('/') && ::stat(folder.constData(), &facts) == 0 && S_ISDIR(facts.st_mode) &&
           facts.st_uid == ::geteuid() && (facts.st_mode & rights) == S_IRWXU;
}

//! Unset if the path is too long for a socket.
std::optional<sockaddr_un> addressOf(const QByteArray &path)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (path.size() >= int(sizeof address.sun_path))
        return std::nullopt;
    std::copy(path.begin(), path.end(), std::begin(address.sun_path));
    return address;
}

Descriptor newSocket()
{
    // Packets arrive whole or not at all, so nothing has to be collected.
    return Descriptor(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
}

} // namespace

QByteArray instanceSocketPath(const QString &profileDir)
{
    const QByteArray folder = qgetenv("XDG_RUNTIME_DIR");
    const QByteArray profile = pathBytes(QFileInfo(profileDir).canonicalFilePath());
    if (!isPrivate(folder) || profile.isEmpty())
        return {};
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const QByteArray &part :
         {profile, qgetenv("QT_QPA_PLATFORM"), qgetenv("WAYLAND_DISPLAY"), qgetenv("DISPLAY")}) {
        hash.addData(part);
        hash.addData("", 1); // a null byte, so that parts cannot run into each other
    }
    constexpr int enough = 16; // digits; a socket's path must be short
    const QByteArray path = folder + "/fxhost-" + hash.result().toHex().left(enough) + ".socket";
    return addressOf(path) ? path : QByteArray();
}

bool isPeerThisUser(const Descriptor &connection)
{
    ucred peer = {};
    socklen_t size = sizeof peer;
    return ::getsockopt(connection.number(), SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 &&
           peer.uid == ::geteuid();
}

Descriptor connectToInstance(const QByteArray &path)
{
    const auto address = addressOf(path);
    Descriptor connection = newSocket();
    const bool isConnected =
        address && connection.isOpen() &&
        ::connect(connection.number(), reinterpret_cast<const sockaddr *>(&*address), sizeof *address) == 0;
    return isConnected ? std::move(connection) : Descriptor(-1);
}

InstanceSocket::InstanceSocket(const QByteArray &path, std::unique_ptr<FileLock> lock)
    : m_lock(std::move(lock)), m_path(path), m_socket(newSocket())
{
    const auto address = addressOf(path);
    ::unlink(path.constData());
    // The rights are those of the file from its creation on.
    m_isListening =
        address && m_socket.isOpen() && ::fchmod(m_socket.number(), S_IRUSR | S_IWUSR) == 0 &&
        ::bind(m_socket.number(), reinterpret_cast<const sockaddr *>(&*address), sizeof *address) == 0 &&
        ::listen(m_socket.number(), backlog) == 0;
}

InstanceSocket::~InstanceSocket()
{
    ::unlink(m_path.constData());
}

} // namespace fxhost

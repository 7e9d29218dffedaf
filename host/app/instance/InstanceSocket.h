// SPDX-License-Identifier: MIT
#pragma once

#include "host/app/instance/Descriptor.h"

#include <QByteArray>

#include <memory>

class QString;

namespace fxhost {

class FileLock;

//! The path of the socket at which the starts of the program with a profile meet. It differs by the profile
//! and by the display, because an instance on another display shows its windows where the user may not see
//! them.
//! \param profileDir an existing directory
//! \return empty if XDG_RUNTIME_DIR is not a folder that only this user can access
QByteArray instanceSocketPath(const QString &profileDir);

//! Whether the process at the other end of a connection belongs to this user.
bool isPeerThisUser(const Descriptor &connection);

//! Connects to the instance that listens at a path. Does not block.
//! \return a non-blocking connection; none, with errno set, if this fails
Descriptor connectToInstance(const QByteArray &path);

//! The listening socket of the instance that receives the drawings of later starts. Connections are accepted
//! by the system from the start, and wait for the program.
class InstanceSocket
{
public:
    //! Replaces the file of an instance that has crashed.
    //! \param lock held; only its owner may touch the socket's file
    InstanceSocket(const QByteArray &path, std::unique_ptr<FileLock> lock);
    //! Removes the file, and then releases the lock.
    ~InstanceSocket();

    InstanceSocket(const InstanceSocket &) = delete;
    InstanceSocket &operator=(const InstanceSocket &) = delete;

    bool isListening() const { return m_isListening; }
    int descriptor() const { return m_socket.number(); }

private:
    std::unique_ptr<FileLock> m_lock;
    QByteArray m_path;
    Descriptor m_socket;
    bool m_isListening = false;
};

} // namespace fxhost

// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QStringList>

#include <optional>

namespace fxhost {

//! What a start of the program leaves to the running instance. A value type.
struct InstanceMessage
{
    //! Maximum size of toBytes(), in bytes: some hundred long paths, and less than what the system transfers
    //! in one packet.
    static constexpr int maximumSize = 128 * 1024;
    static constexpr int maximumDrawings = 1000;

    //! What the desktop calls the user's request, as in DESKTOP_STARTUP_ID; may be empty.
    QByteArray startupId;
    //! Absolute paths of the drawings to open, in this order.
    QStringList drawings;

    //! Empty if the message exceeds a maximum.
    QByteArray toBytes() const;
    //! Unset if bytes are not a message.
    static std::optional<InstanceMessage> fromBytes(const QByteArray &bytes);
};

//! The replies to a message, each a packet of one byte. If the connection ends without the second one, not
//! all drawings were opened.
enum class InstanceReply : char {
    Received = 'r', //!< the drawings will be opened when no other command is running
    Opened = 'o',   //!< the drawings were opened, or the user was notified of the reasons why not
};

} // namespace fxhost

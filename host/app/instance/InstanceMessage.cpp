// SPDX-License-Identifier: MIT
#include "host/app/instance/InstanceMessage.h"

#include "host/runtime/Paths.h"

namespace fxhost {

namespace {

// Another version of the program may be running, after an update.
constexpr char format[] = "fxhost instance 1";

constexpr int longestStartupId = 1024; // bytes

} // namespace

// Each part ends with a null byte, which neither a path nor a variable of the environment can contain.

QByteArray InstanceMessage::toBytes() const
{
    QByteArray bytes = QByteArray(format) + '\0' + startupId.left(longestStartupId) + '\0';
    for (const QString &path : drawings)
        bytes += pathBytes(path) + '\0';
    return bytes.size() > maximumSize || drawings.size() > maximumDrawings ? QByteArray() : bytes;
}

std::optional<InstanceMessage> InstanceMessage::fromBytes(const QByteArray &bytes)
{
    if (bytes.size() > maximumSize || !bytes.endsWith('\0'))
        return std::nullopt;
    QByteArrayList parts = bytes.chopped(1).split('\0');
    if (parts.size() < 2 || parts.size() > 2 + maximumDrawings || parts.takeFirst() != format)
        return std::nullopt;
    InstanceMessage message;
    message.startupId = parts.takeFirst();
    if (message.startupId.size() > longestStartupId)
        return std::nullopt;
    for (const QByteArray &path : qAsConst(parts)) {
        if (!path.startsWith('/'))
            return std::nullopt;
        message.drawings.append(pathFromBytes(path));
    }
    return message;
}

} // namespace fxhost

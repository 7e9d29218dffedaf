// SPDX-License-Identifier: MIT
#include "host/app/instance/StartupNotification.h"

#include <QByteArray>
#include <QX11Info>

#include <algorithm>
#include <cstdlib>
#include <memory>

#include <xcb/xcb.h>

namespace fxhost {

namespace {

//! In milliseconds, as the X server counts them; 0 if there is none.
quint32 timeIn(const QByteArray &startupId)
{
    static const QByteArray mark = "_TIME";
    const int at = startupId.lastIndexOf(mark);
    return at < 0 ? 0 : startupId.mid(at + mark.size()).toUInt();
}

xcb_atom_t atom(const QByteArray &name)
{
    xcb_connection_t *const server = QX11Info::connection();
    const xcb_intern_atom_cookie_t request =
        xcb_intern_atom(server, 0, quint16(name.size()), name.constData());
    const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
        xcb_intern_atom_reply(server, request, nullptr), &std::free);
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

//! Sends a message of the startup notification protocol to the desktop.
void broadcast(const QByteArray &message, WId window)
{
    xcb_client_message_event_t part = {};
    part.response_type = XCB_CLIENT_MESSAGE;
    part.format = 8;
    part.window = xcb_window_t(window);
    part.type = atom("_NET_STARTUP_INFO_BEGIN");
    constexpr int partSize = sizeof part.data.data8;
    for (int at = 0; at <= message.size(); at += partSize) { // including the null byte at the end
        const QByteArray bytes = message.mid(at, partSize).leftJustified(partSize, '\0');
        std::copy(bytes.begin(), bytes.end(), std::begin(part.data.data8));
        xcb_send_event(QX11Info::connection(), 0, xcb_window_t(QX11Info::appRootWindow()),
                       XCB_EVENT_MASK_PROPERTY_CHANGE, reinterpret_cast<const char *>(&part));
        part.type = atom("_NET_STARTUP_INFO");
    }
    xcb_flush(QX11Info::connection());
}

} // namespace

void takeOverStartup(const QByteArray &startupId, WId window)
{
    if (startupId.isEmpty() || !QX11Info::isPlatformX11())
        return;
    if (const quint32 time = timeIn(startupId)) {
        QX11Info::setAppTime(time);
        QX11Info::setAppUserTime(time);
    }
    QByteArray value = startupId;
    value.replace('\\', "\\\\").replace('"', "\\\"");
    broadcast("remove: ID=\"" + value + '"', window);
}

} // namespace fxhost

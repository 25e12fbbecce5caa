// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLStartupNotice.h"

#ifdef AQUILANE_HAS_XCB
#include <QtGlobal>

#include <cstdlib>
#include <cstring>
#include <memory>

#include <xcb/xcb.h>
#endif

#ifdef AQUILANE_HAS_XCB
namespace {

using Connection = std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)>;

xcb_atom_t atom(xcb_connection_t *connection, const char *name)
{
    const auto request = xcb_intern_atom(connection, 0, uint16_t(std::strlen(name)), name);
    const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
        xcb_intern_atom_reply(connection, request, nullptr), &std::free);
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

/// In pieces of 20 bytes, the first of another type, from a window of our own that tells them from those of
/// others.
void broadcast(xcb_connection_t *connection, const QByteArray &message)
{
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    const xcb_window_t sender = xcb_generate_id(connection);
    xcb_create_window(connection, 0, sender, root, -1, -1, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 8;
    event.window = sender;
    event.type = atom(connection, "_NET_STARTUP_INFO_BEGIN");
    const xcb_atom_t furtherType = atom(connection, "_NET_STARTUP_INFO");
    const QByteArray text = message + '\0';
    for (qsizetype start = 0; start < text.size(); start += qsizetype(sizeof event.data)) {
        const QByteArray piece = text.mid(start, sizeof event.data).leftJustified(sizeof event.data, '\0');
        std::memcpy(event.data.data8, piece.constData(), sizeof event.data);
        xcb_send_event(connection, 0, root, XCB_EVENT_MASK_PROPERTY_CHANGE,
                       reinterpret_cast<const char *>(&event));
        event.type = furtherType;
    }
    xcb_destroy_window(connection, sender);
    // The answer comes when all of this has arrived.
    atom(connection, "_NET_STARTUP_ID");
}

} // namespace

void PLCompleteStartup()
{
    const QByteArray identifier = qgetenv("DESKTOP_STARTUP_ID");
    // Under Wayland the token for the activation does this; a connection might start an X server there.
    if (identifier.isEmpty() || qEnvironmentVariableIsSet("WAYLAND_DISPLAY"))
        return;
    const Connection connection(xcb_connect(nullptr, nullptr), &xcb_disconnect);
    if (!xcb_connection_has_error(connection.get()))
        broadcast(connection.get(), PLStartupRemoval(identifier));
}
#else
void PLCompleteStartup() {}
#endif

QByteArray PLStartupRemoval(const QByteArray &identifier)
{
    QByteArray quoted = identifier;
    quoted.replace('\\', "\\\\").replace('"', "\\\"");
    return "remove: ID=\"" + quoted + '"';
}

// SPDX-License-Identifier: Apache-2.0
#include "engine/host/AnswerFilter.h"

#include <cstdio>
#include <utility>

namespace lectern::engine {

void AnswerFilter::install(GDBusConnection* connection) {
    g_dbus_connection_add_filter(connection, filter, this, nullptr);
}

GDBusMessage* AnswerFilter::filter(GDBusConnection* connection, GDBusMessage* message, gboolean incoming,
                                   gpointer self) {
    auto& own = *static_cast<AnswerFilter*>(self);
    if (incoming == FALSE) {
        own.mAwaited = g_dbus_message_get_serial(message);
        return message;
    }
    if (own.isAwaited(message)) {
        return message;
    }
    g_object_unref(message);
    own.noteUnasked(connection);
    return nullptr;
}

bool AnswerFilter::isAwaited(GDBusMessage* message) {
    const GDBusMessageType type = g_dbus_message_get_message_type(message);
    const bool isAnswer = type == G_DBUS_MESSAGE_TYPE_METHOD_RETURN || type == G_DBUS_MESSAGE_TYPE_ERROR;
    if (!isAnswer || mAwaited == 0 || g_dbus_message_get_reply_serial(message) != mAwaited) {
        return false;
    }
    mAwaited = 0; // a second answer is not awaited
    return true;
}

void AnswerFilter::noteUnasked(GDBusConnection* connection) {
    if (++mUnasked != TOLERATED + 1) {
        return;
    }
    std::fputs("engine: cut off, because it sends what nobody asked for\n", stderr);
    GIOStream* const stream = g_dbus_connection_get_stream(connection);
    g_socket_shutdown(g_socket_connection_get_socket(G_SOCKET_CONNECTION(stream)), TRUE, TRUE, nullptr);
}

} // namespace lectern::engine

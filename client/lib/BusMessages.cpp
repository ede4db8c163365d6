// SPDX-License-Identifier: Apache-2.0
#include "client/lib/BusMessages.h"

#include "client/lib/Errors.h"
#include "client/lib/Json.h"

namespace lectern {

namespace {

constexpr int DAEMON_TIMEOUT_MS = 5'000;

bool isSpawnError(GQuark domain, int code) {
    return domain == G_DBUS_ERROR && code >= G_DBUS_ERROR_SPAWN_EXEC_FAILED &&
           code <= G_DBUS_ERROR_SPAWN_NO_MEMORY;
}

std::string busErrorText(const GError& failure, const char* method) {
    const bool ofBus = failure.domain == G_DBUS_ERROR;
    const std::string reason = failure.message;
    if (failure.domain == G_IO_ERROR && failure.code == G_IO_ERROR_CLOSED) {
        return "the connection to the bus was lost";
    }
    if (ofBus && failure.code == G_DBUS_ERROR_NO_REPLY) {
        return std::string("the service did not answer '") + method + "'";
    }
    if (ofBus &&
        (failure.code == G_DBUS_ERROR_SERVICE_UNKNOWN || failure.code == G_DBUS_ERROR_NAME_HAS_NO_OWNER)) {
        return "the bus has no document service";
    }
    if (ofBus && failure.code == G_DBUS_ERROR_SPAWN_CHILD_EXITED) {
        return "the document service did not start; another one may be running on this machine (" + reason +
               ")";
    }
    if (isSpawnError(failure.domain, failure.code)) {
        return "the document service did not start (" + reason + ")";
    }
    return "D-Bus error: " + reason;
}

} // namespace

GLibHolder<GDBusMessage> makeCall(const char* category, const char* method, const std::string& payload,
                                  const std::string& destination) {
    if (g_utf8_validate(payload.c_str(), static_cast<gssize>(payload.size()), nullptr) == FALSE) {
        return nullptr;
    }
    const std::string interface = std::string(SERVICE_NAME) + '.' + (category + 1);
    GLibHolder<GDBusMessage> message(
        g_dbus_message_new_method_call(destination.c_str(), category, interface.c_str(), method));
    g_dbus_message_set_body(message.get(), g_variant_new("(s)", payload.c_str()));
    return message;
}

Error notBusText() {
    return {Error::Kind::Argument, "paths and texts must be valid UTF-8", 0, {}};
}

Result<Reply> readReply(GDBusMessage* reply, const char* method) {
    GLibHolder<GError> failure;
    if (g_dbus_message_to_gerror(reply, out(failure)) != FALSE) {
        return busError(failure.get(), method);
    }
    GVariant* body = g_dbus_message_get_body(reply);
    if (body == nullptr || g_variant_is_of_type(body, G_VARIANT_TYPE("(s)")) == FALSE) {
        return Error{Error::Kind::Bus,
                     "the service's reply is not a string; the service may be another version",
                     0,
                     {}};
    }
    const char* text = nullptr;
    g_variant_get(body, "(&s)", &text);
    const auto members = JsonMembers::parse(text);
    if (members && members->has("errorCode")) {
        Error error = refusalError(members->string("errorCode").value_or(""),
                                   members->string("errorText").value_or(""));
        error.reply = text;
        return error;
    }
    const char* sender = g_dbus_message_get_sender(reply);
    return Reply{text, sender != nullptr ? sender : ""};
}

Error busError(GError* failure, const char* method) {
    if (g_error_matches(failure, G_IO_ERROR, G_IO_ERROR_CANCELLED) != FALSE) {
        return cancelledError();
    }
    if (g_error_matches(failure, G_IO_ERROR, G_IO_ERROR_TIMED_OUT) != FALSE ||
        g_error_matches(failure, G_DBUS_ERROR, G_DBUS_ERROR_TIMEOUT) != FALSE) {
        return {
            Error::Kind::TimedOut, std::string("the service did not answer '") + method + "' in time", 0, {}};
    }
    std::string name;
    if (const GLibHolder<char> remote{g_dbus_error_get_remote_error(failure)}) {
        name = remote.get();
    }
    g_dbus_error_strip_remote_error(failure);
    return {Error::Kind::Bus, busErrorText(*failure, method), failure->code, std::move(name)};
}

uint32_t postToDaemon(GDBusConnection* connection, const char* method, const std::string& argument) {
    const GLibHolder<GDBusMessage> message(g_dbus_message_new_method_call(
        "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", method));
    g_dbus_message_set_body(message.get(), g_variant_new("(s)", argument.c_str()));
    uint32_t serial = 0;
    return g_dbus_connection_send_message(connection, message.get(), G_DBUS_SEND_MESSAGE_FLAGS_NONE, &serial,
                                          nullptr) != FALSE
               ? serial
               : 0;
}

GLibHolder<GVariant> askDaemon(GDBusConnection* connection, const char* method, GVariant* arguments,
                               const char* replyType) {
    return GLibHolder<GVariant>(g_dbus_connection_call_sync(
        connection, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", method,
        arguments, replyType != nullptr ? G_VARIANT_TYPE(replyType) : nullptr, G_DBUS_CALL_FLAGS_NONE,
        DAEMON_TIMEOUT_MS, nullptr, nullptr));
}

} // namespace lectern

// SPDX-License-Identifier: Apache-2.0
#include "hub/Dispatch.h"

#include "hub/Errors.h"
#include "hub/HubHandle.h"
#include "hub/Utf8Repair.h"

#include <string_view>

// One method call, on the stack of dispatch().
struct HubMessage {
    GDBusMessage* call;
    const char* payload; // owned by call
    bool replied = false;
};

namespace hub {
namespace {

constexpr const char* NO_REPLY = "org.freedesktop.DBus.Error.NoReply";
constexpr const char* FAILED = "org.freedesktop.DBus.Error.Failed";

bool wantsReply(GDBusMessage* call) {
    return (g_dbus_message_get_flags(call) & G_DBUS_MESSAGE_FLAGS_NO_REPLY_EXPECTED) == 0;
}

bool send(GDBusConnection* connection, GDBusMessage* reply, HubError* error) {
    lectern::GLibHolder<GError> cause;
    if (g_dbus_connection_send_message(connection, reply, G_DBUS_SEND_MESSAGE_FLAGS_NONE, nullptr,
                                       out(cause))) {
        return true;
    }
    return failFromBus(error, "can't send the reply", cause.get());
}

// Replies to a call that its handler did not answer. Errors of sending are ignored,
// because the connection is lost then.
void closeCall(GDBusConnection* connection, GDBusMessage* call, bool handled) {
    if (!wantsReply(call)) {
        return;
    }
    const std::string method = g_dbus_message_get_member(call);
    const std::string text = handled ? method + " sends no reply" : method + " did not handle the call";
    const lectern::GLibHolder<GDBusMessage> reply(
        g_dbus_message_new_method_error_literal(call, handled ? NO_REPLY : FAILED, text.c_str()));
    send(connection, reply.get(), nullptr);
}

// GDBus delivers only methods of the table, so the search always ends.
const HubMethod& findMethod(const HubMethod* table, std::string_view name) {
    while (table->name != name) {
        ++table;
    }
    return *table;
}

void dispatch(GDBusConnection* connection, const char*, const char*, const char*, const char* methodName,
              GVariant* parameters, GDBusMethodInvocation* invocation, gpointer data) {
    const lectern::GLibHolder<GDBusMethodInvocation> owned(invocation);
    const auto& category = *static_cast<Category*>(data);
    const HubMethod& method = findMethod(category.methods, methodName);

    HubMessage message{g_dbus_method_invocation_get_message(invocation), nullptr};
    g_variant_get(parameters, "(&s)", &message.payload);
    const bool handled = method.handler(category.handle, &message, nullptr);
    if (!message.replied) {
        closeCall(connection, message.call, handled);
    }
}

} // namespace

bool exportCategory(Category& category, const char* path, HubError* error) {
    static const GDBusInterfaceVTable CALLS{dispatch, nullptr, nullptr, {}};
    lectern::GLibHolder<GError> cause;
    if (g_dbus_connection_register_object(category.handle->connection.get(), path, category.interface.info(),
                                          &CALLS, &category, nullptr, out(cause)) != 0) {
        return true;
    }
    return fail(error, HUB_ERROR_INVALID, cause->message);
}

} // namespace hub

const char* HubMessageGetPayload(HubMessage* message) {
    return message->payload;
}

const char* HubMessageGetSender(HubMessage* message) {
    const char* const sender = g_dbus_message_get_sender(message->call);
    return sender != nullptr ? sender : "";
}

bool HubMessageReply(HubHandle* handle, HubMessage* message, const char* payload, HubError* error) {
    if (handle == nullptr || message == nullptr || payload == nullptr) {
        return hub::fail(error, HUB_ERROR_INVALID, "a reply needs a handle, a message and a text");
    }
    if (message->replied) {
        return hub::fail(error, HUB_ERROR_REPLIED, "the call was answered already");
    }
    message->replied = true;
    if (!hub::wantsReply(message->call)) {
        return true;
    }

    lectern::GLibHolder<char> text = hub::validUtf8(payload);
    const lectern::GLibHolder<GDBusMessage> reply(g_dbus_message_new_method_reply(message->call));
    g_dbus_message_set_body(reply.get(), g_variant_new("(@s)", g_variant_new_take_string(text.release())));
    return hub::send(handle->connection.get(), reply.get(), error);
}

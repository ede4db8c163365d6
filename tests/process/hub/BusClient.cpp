// SPDX-License-Identifier: Apache-2.0
#include "tests/process/hub/BusClient.h"

#include <ostream>

namespace {

gboolean raiseFlag(gpointer flag) {
    *static_cast<bool*>(flag) = true;
    return G_SOURCE_CONTINUE;
}

Answer answerFrom(GVariant* reply, GError* error) {
    if (reply == nullptr) {
        const lectern::GLibHolder<char> name(g_dbus_error_get_remote_error(error));
        g_dbus_error_strip_remote_error(error);
        return {name ? name.get() : "local", error->message};
    }
    if (g_variant_n_children(reply) == 0) {
        return {};
    }
    const lectern::GLibHolder<GVariant> first(g_variant_get_child_value(reply, 0));
    const bool isText = g_variant_is_of_type(first.get(), G_VARIANT_TYPE_STRING);
    const lectern::GLibHolder<char> printed(isText ? g_variant_dup_string(first.get(), nullptr)
                                                   : g_variant_print(first.get(), FALSE));
    return {"", printed.get()};
}

} // namespace

std::ostream& operator<<(std::ostream& stream, const Answer& answer) {
    return stream << '[' << answer.error << "] " << answer.text;
}

bool runUntil(const std::function<bool()>& condition) {
    bool expired = false;
    const guint guard = g_timeout_add_seconds(10, raiseFlag, &expired);
    while (!expired && !condition()) {
        g_main_context_iteration(nullptr, TRUE);
    }
    g_source_remove(guard);
    return !expired;
}

PendingCall::PendingCall(GDBusConnection* connection, const char* service, const char* path,
                         const char* interface, const char* method, GVariant* parameters) {
    g_dbus_connection_call(connection, service, path, interface, method, parameters, nullptr,
                           G_DBUS_CALL_FLAGS_NONE, -1, mCancellable.get(), finish, this);
}

PendingCall::~PendingCall() {
    g_cancellable_cancel(mCancellable.get());
    wait();
}

Answer PendingCall::wait() {
    return runUntil([this] { return isAnswered(); }) ? *mAnswer : Answer{"no answer", ""};
}

void PendingCall::finish(GObject* connection, GAsyncResult* result, gpointer self) {
    lectern::GLibHolder<GError> error;
    const lectern::GLibHolder<GVariant> reply(
        g_dbus_connection_call_finish(G_DBUS_CONNECTION(connection), result, out(error)));
    static_cast<PendingCall*>(self)->mAnswer = answerFrom(reply.get(), error.get());
}

BusClient::BusClient(const std::string& address) {
    constexpr auto FLAGS = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                             G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    mConnection.reset(
        g_dbus_connection_new_for_address_sync(address.c_str(), FLAGS, nullptr, nullptr, nullptr));
}

Answer BusClient::call(const char* service, const char* path, const char* interface, const char* method,
                       GVariant* parameters) const {
    return PendingCall(connection(), service, path, interface, method, parameters).wait();
}

bool BusClient::own(const char* name) const {
    return call("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "RequestName",
                g_variant_new("(su)", name, 4U))
               .text == "1";
}

bool BusClient::waitUntilUnowned(const char* name) const {
    bool unowned = false;
    const guint watch = g_bus_watch_name_on_connection(
        connection(), name, G_BUS_NAME_WATCHER_FLAGS_NONE, nullptr,
        [](GDBusConnection*, const char*, gpointer flag) { *static_cast<bool*>(flag) = true; }, &unowned,
        nullptr);
    const bool seen = runUntil([&unowned] { return unowned; });
    g_bus_unwatch_name(watch);
    return seen;
}

std::optional<pid_t> BusClient::processOf(const char* name) const {
    const Answer answer = call("org.freedesktop.DBus", "/", "org.freedesktop.DBus",
                               "GetConnectionUnixProcessID", g_variant_new("(s)", name));
    return answer.error.empty() ? std::optional<pid_t>(std::stoi(answer.text)) : std::nullopt;
}

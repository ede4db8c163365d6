// SPDX-License-Identifier: Apache-2.0
#include "hub/BusConnection.h"

#include "hub/Errors.h"

#include <string>
#include <string_view>

namespace hub {
namespace {

// A flag and a reply of RequestName, with the numbers of the D-Bus specification.
constexpr guint32 DO_NOT_QUEUE = 4;
constexpr guint32 PRIMARY_OWNER = 1;

// A bus that starts a process names its type in the process's environment. A
// process that was started otherwise, for example by a service manager, uses the
// session bus.
GBusType busType() {
    const char* starter = g_getenv("DBUS_STARTER_BUS_TYPE");
    return starter != nullptr && std::string_view(starter) == "system" ? G_BUS_TYPE_SYSTEM
                                                                       : G_BUS_TYPE_SESSION;
}

lectern::GLibHolder<char> busAddress(GError** cause) {
    if (const char* starter = g_getenv("DBUS_STARTER_ADDRESS")) {
        return lectern::GLibHolder<char>(g_strdup(starter));
    }
    return lectern::GLibHolder<char>(g_dbus_address_get_for_bus_sync(busType(), nullptr, cause));
}

// Calls a method of the bus itself. Takes ownership of `parameters`, a floating
// reference. Returns null, with the error filled, on failure.
lectern::GLibHolder<GVariant> callBus(GDBusConnection* connection, const char* method, GVariant* parameters,
                                      const GVariantType* replyType, const std::string& action,
                                      HubError* error) {
    lectern::GLibHolder<GError> cause;
    lectern::GLibHolder<GVariant> reply(g_dbus_connection_call_sync(
        connection, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", method,
        parameters, replyType, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, out(cause)));
    if (!reply) {
        failFromBus(error, action, cause.get());
    }
    return reply;
}

bool failTaken(HubError* error, const char* name) {
    return fail(error, HUB_ERROR_NAME_TAKEN, std::string("the name ") + name + " has an owner already");
}

} // namespace

lectern::GLibHolder<GDBusConnection> connectToBus(HubError* error) {
    constexpr auto FLAGS = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                             G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    lectern::GLibHolder<GError> cause;
    lectern::GLibHolder<GDBusConnection> connection;
    if (const lectern::GLibHolder<char> address = busAddress(out(cause))) {
        connection.reset(
            g_dbus_connection_new_for_address_sync(address.get(), FLAGS, nullptr, nullptr, out(cause)));
    }
    if (!connection) {
        failFromBus(error, "can't connect to the bus", cause.get());
        return nullptr;
    }
    g_dbus_connection_set_exit_on_close(connection.get(), FALSE);
    return connection;
}

bool checkNameIsFree(GDBusConnection* connection, const char* name, HubError* error) {
    const lectern::GLibHolder<GVariant> reply =
        callBus(connection, "NameHasOwner", g_variant_new("(s)", name), G_VARIANT_TYPE("(b)"),
                std::string("can't look up the name ") + name, error);
    if (!reply) {
        return false;
    }
    gboolean owned = FALSE;
    g_variant_get(reply.get(), "(b)", &owned);
    return owned == FALSE || failTaken(error, name);
}

bool takeName(GDBusConnection* connection, const char* name, HubError* error) {
    const lectern::GLibHolder<GVariant> reply =
        callBus(connection, "RequestName", g_variant_new("(su)", name, DO_NOT_QUEUE), G_VARIANT_TYPE("(u)"),
                std::string("can't take the name ") + name, error);
    if (!reply) {
        return false;
    }
    guint32 answer = 0;
    g_variant_get(reply.get(), "(u)", &answer);
    return answer == PRIMARY_OWNER || failTaken(error, name);
}

} // namespace hub

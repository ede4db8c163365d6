// SPDX-License-Identifier: Apache-2.0
// The round trip of a bus call that only reads state (call), and of a call that the bus
// daemon itself answers (daemon), in turns.
#include "bench/service/Figures.h"
#include "bench/service/RunningService.h"

namespace {

constexpr int WIDTH = 320;
constexpr int HEIGHT = 480;

void askDaemon(GDBusConnection* connection) {
    const lectern::GLibHolder<GVariant> reply(g_dbus_connection_call_sync(
        connection, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "GetId", nullptr,
        nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr));
    if (!reply) {
        throw std::runtime_error("the bus daemon does not answer");
    }
}

} // namespace

void callFigures(const Arguments& arguments) {
    const int rounds = std::stoi(arguments[1]);
    RunningService service;
    OpenedDocument opened(service, arguments[0], WIDTH, HEIGHT);
    service.waitUntilQuiet();
    constexpr auto FLAGS = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                             G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    const lectern::GLibHolder<GDBusConnection> connection(
        g_dbus_connection_new_for_address_sync(service.address().c_str(), FLAGS, nullptr, nullptr, nullptr));
    const std::string payload = opened.document().docidPayload();
    std::vector<double> calls, daemons;
    for (int round = 0; round < rounds; ++round) {
        double start = now();
        service.bus().call("/common", "getMimeInfo", payload);
        calls.push_back(now() - start);
        start = now();
        askDaemon(connection.get());
        daemons.push_back(now() - start);
    }
    printFigure("call", median(calls));
    printFigure("daemon", median(daemons));
}

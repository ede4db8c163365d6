// SPDX-License-Identifier: Apache-2.0
// lectern-view: reads documents in a window.
#include "base/GLibHolder.h"
#include "client/viewer/Application.h"
#include "client/viewer/Settings.h"

#include <libintl.h>

#include <clocale>
#include <cstdlib>

using namespace lectern::viewer;

namespace {

void useTranslations() {
    std::setlocale(LC_ALL, "");
    bindtextdomain(TEXT_DOMAIN, (dataFolder() + "/locale").c_str());
    bind_textdomain_codeset(TEXT_DOMAIN, "UTF-8");
    textdomain(TEXT_DOMAIN);
}

// Lets the bus start the service while the toolkit starts: both take about as long, and a
// document needs both. Waits for nothing, and the open tells of failures. Returns the
// connection, which sends the call and is the one that the toolkit uses later.
lectern::GLibHolder<GDBusConnection> startServiceEarly() {
    GDBusConnection* bus = std::getenv("DBUS_SESSION_BUS_ADDRESS") == nullptr
                               ? nullptr
                               : g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
    if (bus != nullptr) {
        g_dbus_connection_call(bus, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                               "StartServiceByName", g_variant_new("(su)", "com.kestrel.office", 0), nullptr,
                               G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr, nullptr);
    }
    return lectern::GLibHolder<GDBusConnection>(bus);
}

} // namespace

int main(int argc, char** argv) {
    // Before anything starts a thread: where no session bus has the service, this process
    // starts one of its own, and both are alone in a namespace of shared memory.
    lectern_service_isolate(nullptr);
    const auto bus = startServiceEarly();
    useTranslations();
    return Application().run(argc, argv);
}

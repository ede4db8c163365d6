// SPDX-License-Identifier: Apache-2.0
#include "tests/system/support/Bus.h"

#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <stdexcept>

namespace {

constexpr const char* SERVICE_NAME = "com.kestrel.office";

constexpr const char* CONFIGURATION = R"(<!DOCTYPE busconfig PUBLIC
 "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:path=%s/bus</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
)";

// Waits for a line in an existing file.
void waitForLine(const std::string& path) {
    const int watch = inotify_init1(IN_CLOEXEC);
    inotify_add_watch(watch, path.c_str(), IN_MODIFY);
    pollfd ready{watch, POLLIN, 0};
    char events[4096];
    while (readFile(path).find('\n') == std::string::npos && poll(&ready, 1, 60000) == 1) {
        if (read(watch, events, sizeof events) < 0) {
            break;
        }
    }
    close(watch);
}

} // namespace

PrivateBus::PrivateBus(const std::string& folder) : mAddress("unix:path=" + folder + "/bus") {
    const std::string file = folder + "/bus.conf";
    char* text = g_strdup_printf(CONFIGURATION, folder.c_str());
    std::ofstream(file) << text;
    g_free(text);
    mDaemon = std::make_unique<Subprocess>(std::vector<std::string>{"dbus-daemon", "--config-file=" + file,
                                                                    "--nofork", "--nosyslog", "--nopidfile",
                                                                    "--print-address"},
                                           std::map<std::string, std::string>{}, folder + "/dbus-daemon");
    // The daemon prints the address when it listens; the socket's file exists
    // shortly before.
    waitForLine(folder + "/dbus-daemon.out");
}

BusConnection::BusConnection(const std::string& address) {
    const auto flags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                         G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    mConnection = g_dbus_connection_new_for_address_sync(address.c_str(), flags, nullptr, nullptr, nullptr);
    if (mConnection == nullptr) {
        throw std::runtime_error("no connection to the private bus");
    }
    g_dbus_connection_set_exit_on_close(mConnection, FALSE);
}

BusConnection::~BusConnection() {
    g_dbus_connection_close_sync(mConnection, nullptr, nullptr);
    g_object_unref(mConnection);
}

BusReply BusConnection::call(const std::string& category, const std::string& method,
                             const std::string& payload, int timeoutMs) {
    const std::string interface = std::string(SERVICE_NAME) + "." + category.substr(1);
    GError* error = nullptr;
    GVariant* result = g_dbus_connection_call_sync(
        mConnection, SERVICE_NAME, category.c_str(), interface.c_str(), method.c_str(),
        g_variant_new("(s)", payload.c_str()), G_VARIANT_TYPE("(s)"), G_DBUS_CALL_FLAGS_NO_AUTO_START,
        timeoutMs, nullptr, &error);
    BusReply reply;
    if (result != nullptr) {
        const char* text = nullptr;
        g_variant_get(result, "(&s)", &text);
        reply = {true, text, ""};
        g_variant_unref(result);
    } else {
        char* name = g_dbus_error_get_remote_error(error);
        reply.error = name != nullptr ? name : error->message;
        g_free(name);
        g_error_free(error);
    }
    return reply;
}

bool BusConnection::waitForService(int timeoutMs) {
    struct Wait {
        GMainLoop* loop;
        bool owned;
    };
    GMainContext* context = g_main_context_new();
    g_main_context_push_thread_default(context);
    Wait wait{g_main_loop_new(context, FALSE), false};
    const guint watch = g_bus_watch_name_on_connection(
        mConnection, SERVICE_NAME, G_BUS_NAME_WATCHER_FLAGS_NONE,
        [](GDBusConnection*, const char*, const char*, void* data) {
            auto* state = static_cast<Wait*>(data);
            state->owned = true;
            g_main_loop_quit(state->loop);
        },
        nullptr, &wait, nullptr);
    GSource* limit = g_timeout_source_new(static_cast<guint>(timeoutMs));
    g_source_set_callback(
        limit,
        [](void* loop) -> gboolean {
            g_main_loop_quit(static_cast<GMainLoop*>(loop));
            return G_SOURCE_REMOVE;
        },
        wait.loop, nullptr);
    g_source_attach(limit, context);
    g_main_loop_run(wait.loop);
    g_source_destroy(limit);
    g_source_unref(limit);
    g_bus_unwatch_name(watch);
    while (g_main_context_iteration(context, FALSE)) {
    }
    g_main_loop_unref(wait.loop);
    g_main_context_pop_thread_default(context);
    g_main_context_unref(context);
    return wait.owned;
}

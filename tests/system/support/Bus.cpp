// SPDX-License-Identifier: Apache-2.0
#include "tests/system/support/Bus.h"

#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <stdexcept>

using lectern::GLibHolder;

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
    const GLibHolder<char> text(g_strdup_printf(CONFIGURATION, folder.c_str()));
    std::ofstream(file) << text.get();
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
    mConnection.reset(
        g_dbus_connection_new_for_address_sync(address.c_str(), flags, nullptr, nullptr, nullptr));
    if (!mConnection) {
        throw std::runtime_error("no connection to the private bus");
    }
    g_dbus_connection_set_exit_on_close(mConnection.get(), FALSE);
}

BusConnection::~BusConnection() {
    g_dbus_connection_close_sync(mConnection.get(), nullptr, nullptr);
}

BusReply BusConnection::call(const std::string& category, const std::string& method,
                             const std::string& payload, int timeoutMs) {
    const std::string interface = std::string(SERVICE_NAME) + "." + category.substr(1);
    GLibHolder<GError> error;
    const GLibHolder<GVariant> result(g_dbus_connection_call_sync(
        mConnection.get(), SERVICE_NAME, category.c_str(), interface.c_str(), method.c_str(),
        g_variant_new("(s)", payload.c_str()), G_VARIANT_TYPE("(s)"), G_DBUS_CALL_FLAGS_NO_AUTO_START,
        timeoutMs, nullptr, out(error)));
    BusReply reply;
    if (result) {
        const char* text = nullptr;
        g_variant_get(result.get(), "(&s)", &text);
        reply = {true, text, ""};
    } else {
        const GLibHolder<char> name(g_dbus_error_get_remote_error(error.get()));
        reply.error = name ? name.get() : error->message;
    }
    return reply;
}

bool BusConnection::waitForService(int timeoutMs) {
    struct Wait {
        GMainLoop* loop;
        bool owned;
    };
    const GLibHolder<GMainContext> context(g_main_context_new());
    g_main_context_push_thread_default(context.get());
    const GLibHolder<GMainLoop> loop(g_main_loop_new(context.get(), FALSE));
    Wait wait{loop.get(), false};
    const guint watch = g_bus_watch_name_on_connection(
        mConnection.get(), SERVICE_NAME, G_BUS_NAME_WATCHER_FLAGS_NONE,
        [](GDBusConnection*, const char*, const char*, void* data) {
            auto* state = static_cast<Wait*>(data);
            state->owned = true;
            g_main_loop_quit(state->loop);
        },
        nullptr, &wait, nullptr);
    const GLibHolder<GSource> limit(g_timeout_source_new(static_cast<guint>(timeoutMs)));
    g_source_set_callback(
        limit.get(),
        [](void* running) -> gboolean {
            g_main_loop_quit(static_cast<GMainLoop*>(running));
            return G_SOURCE_REMOVE;
        },
        wait.loop, nullptr);
    g_source_attach(limit.get(), context.get());
    g_main_loop_run(wait.loop);
    g_source_destroy(limit.get());
    g_bus_unwatch_name(watch);
    while (g_main_context_iteration(context.get(), FALSE)) {
    }
    g_main_context_pop_thread_default(context.get());
    return wait.owned;
}

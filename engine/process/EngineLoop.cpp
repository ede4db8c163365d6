// SPDX-License-Identifier: Apache-2.0
#include "engine/process/EngineLoop.h"

#include "base/GLibHolder.h"
#include "engine/office/Office.h"
#include "engine/process/endpoints/SheetEndpoint.h"
#include "engine/process/endpoints/SlideEndpoint.h"
#include "engine/process/endpoints/WordEndpoint.h"
#include "engine/protocol/BorderGuard.h"
#include "engine/protocol/Inherited.h"
#include "modules/ModuleResults.h"

#include <EngineProtocol.h>
#include <gio/gio.h>
#include <malloc.h>

#include <cstdio>
#include <memory>

namespace lectern::engine {
namespace {

GLibHolder<GDBusConnection> connectTo(int socket) {
    GLibHolder<GError> error;
    const GLibHolder<GSocket> end(g_socket_new_from_fd(socket, out(error)));
    if (!end) {
        std::fprintf(stderr, "engine: %s\n", error->message);
        return nullptr;
    }
    const GLibHolder<GSocketConnection> stream(g_socket_connection_factory_create_connection(end.get()));
    constexpr auto FLAGS = static_cast<GDBusConnectionFlags>(
        G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT | G_DBUS_CONNECTION_FLAGS_DELAY_MESSAGE_PROCESSING);
    GLibHolder<GDBusConnection> connection(
        g_dbus_connection_new_sync(G_IO_STREAM(stream.get()), nullptr, FLAGS, nullptr, nullptr, out(error)));
    if (!connection) {
        std::fprintf(stderr, "engine: %s\n", error->message);
    }
    return connection;
}

// State of the process: the suite, and the endpoints that use it.
struct EngineState {
    std::string folder;
    bool confined;
    WordEndpoint word;
    SheetEndpoint sheet;
    SlideEndpoint slide;
    std::unique_ptr<Office> office;
};

gboolean handleStart(LecternIpcProcess* process, GDBusMethodInvocation* invocation, gpointer user) {
    auto& state = *static_cast<EngineState*>(user);
    const std::int32_t result = guardedAtBorder([&] {
        if (!state.office) {
            state.office = Office::start(state.folder + "/profile");
        }
        return state.office ? MODULE_OK : MODULE_NO_ENGINE;
    });
    state.word.useOffice(state.office.get(), state.folder);
    state.sheet.useOffice(state.office.get(), state.folder);
    state.slide.useOffice(state.office.get(), state.folder);
    lectern_ipc_process_complete_start(process, invocation, result, state.confined ? TRUE : FALSE);
    return TRUE;
}

gboolean handleReleaseMemory(LecternIpcProcess* process, GDBusMethodInvocation* invocation, gpointer) {
    malloc_trim(0);
    lectern_ipc_process_complete_release_memory(process, invocation, MODULE_OK);
    return TRUE;
}

} // namespace

void runEngine(int socket, const std::string& folder, bool confined) {
    const GLibHolder<GDBusConnection> connection = connectTo(socket);
    if (!connection) {
        return;
    }
    EngineState state{folder, confined, {}, {}, {}, nullptr};
    const GLibHolder<LecternIpcProcess> process(lectern_ipc_process_skeleton_new());
    g_signal_connect(process.get(), "handle-start", G_CALLBACK(handleStart), &state);
    g_signal_connect(process.get(), "handle-release-memory", G_CALLBACK(handleReleaseMemory), &state);

    if (g_dbus_interface_skeleton_export(G_DBUS_INTERFACE_SKELETON(process.get()), connection.get(),
                                         PROCESS_PATH, nullptr) == FALSE ||
        !state.word.exportOn(connection.get()) || !state.sheet.exportOn(connection.get()) ||
        !state.slide.exportOn(connection.get())) {
        return;
    }
    const GLibHolder<GMainLoop> loop(g_main_loop_new(nullptr, FALSE));
    g_dbus_connection_start_message_processing(connection.get());
    g_main_loop_run(loop.get());
}

} // namespace lectern::engine

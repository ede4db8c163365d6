// SPDX-License-Identifier: Apache-2.0
#include "engine/process/EngineLoop.h"

#include "base/GLibHolder.h"
#include "engine/office/Exporting.h"
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
#include <utility>

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

gboolean handleReleaseMemory(LecternIpcProcess* process, GDBusMethodInvocation* invocation, gpointer) {
    malloc_trim(0);
    lectern_ipc_process_complete_release_memory(process, invocation, MODULE_OK);
    return TRUE;
}

// With what the process's own calls are answered.
struct Exporter {
    Office& office;
    std::string folder;
};

gboolean handleExport(LecternIpcProcess* process, GDBusMethodInvocation* invocation, const gchar* path,
                      const gchar* password, gint kind, gint format, gpointer user) {
    const Exporter& exporter = *static_cast<Exporter*>(user);
    const bool isKnown = kind >= 0 && kind <= static_cast<gint>(DocumentKind::Slides) && format >= 0 &&
                         format <= static_cast<gint>(ExportFormat::Text);
    const std::int32_t result = !isKnown ? std::int32_t{MODULE_BAD_ARGUMENT} : guardedAtBorder([&] {
        return exportFile(exporter.office, {path, password, exporter.folder, {}},
                          static_cast<DocumentKind>(kind), static_cast<ExportFormat>(format),
                          exporter.folder + "/" + EXPORT_FILE);
    });
    lectern_ipc_process_complete_export(process, invocation, result);
    return TRUE;
}

// A source of the main context that becomes ready at a time and does nothing.
GLibHolder<GSource> makeAlarm() {
    static GSourceFuncs functions = {
        nullptr, nullptr, [](GSource*, GSourceFunc, gpointer) -> gboolean { return G_SOURCE_CONTINUE; },
        nullptr, nullptr, nullptr};
    GLibHolder<GSource> alarm(g_source_new(&functions, sizeof(GSource)));
    g_source_attach(alarm.get(), nullptr);
    return alarm;
}

} // namespace

struct EngineLoop::State {
    Exporter exporter;
    WordEndpoint word;
    SheetEndpoint sheet;
    SlideEndpoint slide;
    GLibHolder<LecternIpcProcess> process;
    GLibHolder<GDBusConnection> connection;
    GLibHolder<GSource> alarm; // ends a turn in time
};

std::unique_ptr<EngineLoop> EngineLoop::connect(int socket, Office& office, const std::string& folder) {
    std::unique_ptr<State> state(new State{{office, folder}, {}, {}, {}, {}, {}, {}});
    state->connection = connectTo(socket);
    if (!state->connection) {
        return nullptr;
    }
    state->process.reset(lectern_ipc_process_skeleton_new());
    state->alarm = makeAlarm();
    state->word.useOffice(&office, folder);
    state->sheet.useOffice(&office, folder);
    state->slide.useOffice(&office, folder);
    g_signal_connect(state->process.get(), "handle-release-memory", G_CALLBACK(handleReleaseMemory), nullptr);
    g_signal_connect(state->process.get(), "handle-export", G_CALLBACK(handleExport), &state->exporter);

    GDBusConnection* connection = state->connection.get();
    if (g_dbus_interface_skeleton_export(G_DBUS_INTERFACE_SKELETON(state->process.get()), connection,
                                         PROCESS_PATH, nullptr) == FALSE ||
        !state->word.exportOn(connection) || !state->sheet.exportOn(connection) ||
        !state->slide.exportOn(connection)) {
        return nullptr;
    }
    g_dbus_connection_start_message_processing(connection);
    return std::unique_ptr<EngineLoop>(new EngineLoop(std::move(state)));
}

EngineLoop::EngineLoop(std::unique_ptr<State> state) : mState(std::move(state)) {}
EngineLoop::~EngineLoop() = default;

void EngineLoop::take(std::chrono::microseconds longest) {
    g_source_set_ready_time(mState->alarm.get(),
                            longest == Office::FOREVER ? -1 : g_get_monotonic_time() + longest.count());
    g_main_context_iteration(nullptr, TRUE);
}

void EngineLoop::wake() {
    g_main_context_wakeup(nullptr);
}

} // namespace lectern::engine

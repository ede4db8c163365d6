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

#include <chrono>
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

using Clock = std::chrono::steady_clock;

// The time from the release of memory to the rest. The suite frees pictures a minute after
// their last use, which is about when the memory is released.
constexpr std::chrono::seconds BEFORE_REST(5);

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
    // From then on the process rests, until the next call of the document.
    Clock::time_point restsFrom = Clock::time_point::max();
};

namespace {

gboolean handleReleaseMemory(LecternIpcProcess* process, GDBusMethodInvocation* invocation,
                             gpointer restsFrom) {
    malloc_trim(0);
    *static_cast<Clock::time_point*>(restsFrom) = Clock::now() + BEFORE_REST;
    lectern_ipc_process_complete_release_memory(process, invocation, MODULE_OK);
    return TRUE;
}

} // namespace

std::unique_ptr<EngineLoop> EngineLoop::connect(int socket, Office& office, const std::string& folder) {
    std::unique_ptr<State> state(new State{{office, folder}, {}, {}, {}, {}, {}, {}});
    state->connection = connectTo(socket);
    if (!state->connection) {
        return nullptr;
    }
    state->process.reset(lectern_ipc_process_skeleton_new());
    state->alarm = makeAlarm();
    const auto prepareEndpoint = [&, restsFrom = &state->restsFrom](auto& endpoint) {
        endpoint.useOffice(&office, folder);
        endpoint.notifyOfAnswers([=] { *restsFrom = Clock::time_point::max(); });
    };
    prepareEndpoint(state->word);
    prepareEndpoint(state->sheet);
    prepareEndpoint(state->slide);
    g_signal_connect(state->process.get(), "handle-release-memory", G_CALLBACK(handleReleaseMemory),
                     &state->restsFrom);
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
    const bool rests = longest >= Office::FAR_TIMER && Clock::now() >= mState->restsFrom;
    g_source_set_ready_time(mState->alarm.get(), rests || longest == Office::FOREVER
                                                     ? -1
                                                     : g_get_monotonic_time() + longest.count());
    g_main_context_iteration(nullptr, TRUE);
}

void EngineLoop::wake() {
    g_main_context_wakeup(nullptr);
}

} // namespace lectern::engine

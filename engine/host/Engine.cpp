// SPDX-License-Identifier: Apache-2.0
#include "engine/host/Engine.h"

#include "engine/host/DescriptorsLeft.h"
#include "engine/host/Supervisor.h"

#include <cstdio>
#include <mutex>
#include <utility>

namespace lectern::engine {
namespace {

// Time for an engine to end by itself after its connection has ended.
constexpr std::chrono::milliseconds GRACE(250);

// File descriptors that must be free. An engine takes 6 while it starts, and
// one for a document and a spare one may start at once; a call takes one for
// itself and two for a surface's memory.
constexpr std::size_t FOR_START = 16;
constexpr std::size_t FOR_CALL = 4;

Watchdog& watchdog() {
    return Supervisor::instance().watchdog();
}

void warnOnceAboutFileRules() {
    static std::once_flag once;
    std::call_once(once, [] {
        std::fprintf(stderr, "engine: this kernel has no Landlock, file permissions alone keep "
                             "documents' engines from writing files\n");
    });
}

} // namespace

std::unique_ptr<Engine> Engine::start(const LaunchSettings& settings, TimePoint deadline,
                                      std::int32_t& result) {
    if (!descriptorsLeft<FOR_START>()) {
        std::fprintf(stderr, "engine: too few file descriptors are left to start one\n");
        result = MODULE_NO_ENGINE;
        return nullptr;
    }
    std::unique_ptr<EngineProcess> process = EngineProcess::spawn(settings);
    if (!process) {
        result = MODULE_NO_ENGINE;
        return nullptr;
    }
    FileDescriptor socket = process->takeSocket();
    std::unique_ptr<Engine> engine(new Engine(watchdog().watch(std::move(process))));
    watchdog().setDeadline(engine->mHandle, deadline);
    engine->mConnection = Connection::make(std::move(socket));
    const bool expired = watchdog().liftDeadline(engine->mHandle);

    std::int32_t started = expired ? MODULE_TIMED_OUT : MODULE_NO_ENGINE;
    if (engine->mConnection && !expired) {
        started = engine->startOffice(deadline);
    }
    if (started != MODULE_OK) {
        result = started == MODULE_TIMED_OUT ? MODULE_TIMED_OUT : MODULE_NO_ENGINE;
        return nullptr;
    }
    return engine;
}

Engine::~Engine() {
    watchdog().end(mHandle, GRACE);
}

bool Engine::isAlive() const {
    return !mLost && watchdog().isAlive(mHandle);
}

std::int32_t Engine::startOffice(TimePoint deadline) {
    gint result = MODULE_FAILED;
    gboolean confined = FALSE;
    const std::int32_t sent = call(deadline, [&](GError** error) {
        return lectern_ipc_process_call_start_sync(process(), G_DBUS_CALL_FLAGS_NONE, G_MAXINT, &result,
                                                   &confined, nullptr, error);
    });
    if (sent == MODULE_OK && result == MODULE_OK && confined == FALSE) {
        warnOnceAboutFileRules();
    }
    return sent != MODULE_OK ? sent : result;
}

std::int32_t Engine::beginCall(TimePoint deadline) {
    if (!isAlive()) {
        mLost = true;
        return MODULE_ENGINE_LOST;
    }
    if (!descriptorsLeft<FOR_CALL>()) {
        return MODULE_FAILED;
    }
    watchdog().setDeadline(mHandle, deadline);
    return MODULE_OK;
}

std::int32_t Engine::endCall(bool answered, const GError* error) {
    const bool expired = watchdog().liftDeadline(mHandle);
    if (answered) {
        return MODULE_OK;
    }
    if (!expired && (g_dbus_error_is_remote_error(error) != FALSE ||
                     g_error_matches(error, G_IO_ERROR, G_IO_ERROR_INVALID_ARGUMENT) != FALSE)) {
        return MODULE_FAILED;
    }
    mLost = true;
    watchdog().kill(mHandle);
    return expired ? MODULE_TIMED_OUT : MODULE_ENGINE_LOST;
}

} // namespace lectern::engine

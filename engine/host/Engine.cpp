// SPDX-License-Identifier: Apache-2.0
#include "engine/host/Engine.h"

#include "base/DescriptorsLeft.h"
#include "engine/host/Supervisor.h"

#include <utility>

namespace lectern::engine {
namespace {

// Time for an engine to end by itself after its connection has ended.
constexpr std::chrono::milliseconds GRACE(250);

// File descriptors that must be free: a call takes one for itself and two for a
// surface's memory.
constexpr std::size_t FOR_CALL = 4;

Watchdog& watchdog() {
    return Supervisor::instance().watchdog();
}

} // namespace

std::unique_ptr<Engine> Engine::start(std::unique_ptr<EngineProcess> process, TimePoint deadline,
                                      std::int32_t& result) {
    FileDescriptor socket = process->takeSocket();
    std::string folder = process->folder()->path();
    std::unique_ptr<Engine> engine(new Engine(watchdog().watch(std::move(process)), std::move(folder)));
    watchdog().setDeadline(engine->mHandle, deadline);
    engine->mConnection = Connection::make(std::move(socket));
    const bool expired = watchdog().liftDeadline(engine->mHandle);
    if (!engine->mConnection || expired) {
        result = expired ? MODULE_TIMED_OUT : MODULE_NO_ENGINE;
        return nullptr;
    }
    result = MODULE_OK;
    return engine;
}

Engine::~Engine() {
    const Waiting waiting;
    watchdog().end(mHandle, GRACE);
}

bool Engine::isAlive() const {
    return !mLost && watchdog().isAlive(mHandle);
}

void Engine::kill() {
    mLost = true;
    watchdog().kill(mHandle);
}

void Engine::abort() {
    watchdog().kill(mHandle);
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
    kill();
    if (expired) {
        return MODULE_TIMED_OUT;
    }
    return mConnection->wasBroken() ? MODULE_FAILED : MODULE_ENGINE_LOST;
}

} // namespace lectern::engine

// SPDX-License-Identifier: Apache-2.0
#include "engine/host/Supervisor.h"

#include "base/DescriptorsLeft.h"
#include "modules/ModuleTypes.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace lectern::engine {
namespace {

constexpr std::chrono::seconds STOP_LIMIT(2);

// File descriptors that must be free: a fork server and an engine take 6 each while
// they start.
constexpr std::size_t FOR_ENGINE = 16;

pid_t gOwner; // a fork of this process must not end the engines

void endEnginesAtExit() {
    if (getpid() == gOwner) {
        Supervisor::instance().watchdog().endAll();
    }
}

} // namespace

Supervisor& Supervisor::instance() {
    static Supervisor& supervisor = *new Supervisor();
    return supervisor;
}

Supervisor::Supervisor() {
    gOwner = getpid();
    std::atexit(endEnginesAtExit);
}

std::unique_ptr<Engine> Supervisor::take(const LaunchSettings& settings, const DocumentFile& document,
                                         TimePoint deadline, std::int32_t& result) {
    if (!descriptorsLeft<FOR_ENGINE>()) {
        std::fprintf(stderr, "engine: too few file descriptors are left to start one\n");
        result = MODULE_NO_ENGINE;
        return nullptr;
    }
    for (bool again = true; again;) {
        bool isNew = false;
        std::shared_ptr<ForkServer> server = serverFor(settings, isNew);
        result = MODULE_NO_ENGINE;
        std::unique_ptr<EngineProcess> process =
            server ? server->fork(document.opened.get(), deadline, result) : nullptr;
        if (process) {
            return Engine::start(std::move(process), deadline, result);
        }
        // One that was there may have ended or stalled since; a new one has not.
        again = server && !isNew && result == MODULE_NO_ENGINE;
        giveUp(std::move(server));
    }
    std::fprintf(stderr, "engine: %s does not start; LECTERN_ENGINE_VERBOSE=1 shows what it says\n",
                 settings.program.c_str());
    return nullptr;
}

std::shared_ptr<ForkServer> Supervisor::serverFor(const LaunchSettings& settings, bool& isNew) {
    std::shared_ptr<ForkServer> replaced; // ends after the lock
    const Lock lock(mMutex);
    isNew = !mServer || mServer->settings() != settings || !mServer->isAlive();
    if (isNew) {
        replaced = std::exchange(mServer, nullptr);
        mServer = mStopping ? nullptr : ForkServer::start(settings, mWatchdog);
    }
    return mServer;
}

void Supervisor::giveUp(std::shared_ptr<ForkServer> server) {
    const Lock lock(mMutex);
    if (mServer == server) {
        mServer.reset(); // the parameter keeps it until after the lock
    }
}

void Supervisor::prepare(const LaunchSettings& settings) {
    bool ignored = false;
    (void)serverFor(settings, ignored);
}

bool Supervisor::isStopping() {
    const Lock lock(mMutex);
    return mStopping;
}

void Supervisor::stopSoon() {
    const Lock lock(mMutex);
    mStopping = true;
    mWatchdog.cutDeadlines(STOP_LIMIT);
}

} // namespace lectern::engine

void lectern_module_stop_soon(void) {
    lectern::engine::Supervisor::instance().stopSoon();
}

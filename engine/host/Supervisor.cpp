// SPDX-License-Identifier: Apache-2.0
#include "engine/host/Supervisor.h"

#include "modules/ModuleTypes.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace lectern::engine {
namespace {

constexpr std::chrono::seconds STOP_LIMIT(2);
// Time for a spare to show that it has not ended or stalled since its start.
// Without the check the open of a document would be the first to notice.
constexpr std::chrono::seconds SPARE_ANSWERS(1);

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

Supervisor::Supervisor() : mThread([this] { run(); }) {
    gOwner = getpid();
    std::atexit(endEnginesAtExit);
}

std::unique_ptr<Engine> Supervisor::take(const LaunchSettings& settings, TimePoint deadline,
                                         std::int32_t& result) {
    std::unique_ptr<Engine> spare = takeSpare(settings, deadline);
    if (spare && spare->isReady(std::min(deadline, Clock::now() + SPARE_ANSWERS))) {
        return spare;
    }
    std::unique_ptr<Engine> engine = Engine::start(settings, deadline, result);
    if (!engine) {
        std::fprintf(stderr, "engine: %s does not start; LECTERN_ENGINE_VERBOSE=1 shows what it says\n",
                     settings.program.c_str());
    }
    return engine;
}

std::unique_ptr<Engine> Supervisor::takeSpare(const LaunchSettings& settings, TimePoint deadline) {
    Lock lock(mMutex);
    mChanged.wait_until(lock, deadline,
                        [&]() REQUIRES(mMutex) { return !mOrder || mOrder->settings != settings; });
    return mSpare && mSpareSettings == settings ? std::move(mSpare) : nullptr;
}

void Supervisor::prepareSpare(const LaunchSettings& settings, std::chrono::milliseconds limit) {
    const Lock lock(mMutex);
    const bool present = mSpare && mSpareSettings == settings && mSpare->isAlive();
    if (!mStopping && !mOrder && !present) {
        mOrder = SpareOrder{settings, limit};
        mChanged.notify_all();
    }
}

void Supervisor::stopSoon() {
    const Lock lock(mMutex);
    mStopping = true;
    mWatchdog.cutDeadlines(STOP_LIMIT);
}

void Supervisor::run() {
    Lock lock(mMutex);
    for (;;) {
        mChanged.wait(lock, [&]() REQUIRES(mMutex) { return mOrder.has_value(); });
        const SpareOrder order = *mOrder;
        std::unique_ptr<Engine> spare = std::move(mSpare);
        lock.unlock();
        spare.reset(); // a spare with other settings, or one that ended
        std::int32_t ignored = MODULE_OK;
        spare = Engine::start(order.settings, Clock::now() + order.limit, ignored);
        lock.lock();
        mSpare = std::move(spare);
        mSpareSettings = order.settings;
        mOrder.reset();
        mChanged.notify_all();
    }
}

} // namespace lectern::engine

void lectern_module_stop_soon(void) {
    lectern::engine::Supervisor::instance().stopSoon();
}

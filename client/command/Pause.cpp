// SPDX-License-Identifier: Apache-2.0
#include "client/command/Pause.h"

#include <condition_variable>
#include <mutex>

namespace lectern {

bool pauseUntil(std::chrono::steady_clock::time_point time, const std::stop_token& stop) {
    std::mutex mutex;
    std::condition_variable_any never;
    std::unique_lock lock(mutex);
    return !never.wait_until(lock, stop, time, [&stop] { return stop.stop_requested(); });
}

bool pauseFor(std::chrono::milliseconds time, const std::stop_token& stop) {
    return pauseUntil(std::chrono::steady_clock::now() + time, stop);
}

} // namespace lectern

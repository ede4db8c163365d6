// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern/Bus.h>

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace lectern {

// Keeps the service from stopping for idleness, by a "ping" every ten seconds:
// reading and scrolling cross the queue, and only bus calls count.
class KeepAlive {
public:
    static constexpr std::chrono::milliseconds DEFAULT_PERIOD{10'000};

    // onBusLost: called once, on a thread of the object's, when the connection
    // turns out to be lost; nothing else would tell.
    explicit KeepAlive(const Bus& bus, std::chrono::milliseconds period = DEFAULT_PERIOD,
                       std::function<void()> onBusLost = {});
    KeepAlive(const KeepAlive&) = delete;
    KeepAlive& operator=(const KeepAlive&) = delete;

private:
    void run(const std::stop_token& stop, std::chrono::milliseconds period);

    const Bus mBus;
    const std::function<void()> mOnBusLost;
    std::mutex mMutex;
    std::condition_variable_any mStopped;
    std::jthread mThread; // last: it uses the others
};

} // namespace lectern

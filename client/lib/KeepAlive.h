// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern/Bus.h>

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace lectern {

// Sends a "ping" every ten seconds, so that the service does not stop as idle:
// reading and scrolling use the queue, but only bus calls count as use.
class KeepAlive {
public:
    static constexpr std::chrono::milliseconds DEFAULT_PERIOD{10'000};

    // onBusLost: called at most once, on this object's thread, when the
    // connection is found to be lost; nothing else reports that.
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
    std::jthread mThread; // last, because it uses the other members
};

} // namespace lectern

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern/Bus.h>

#include <chrono>
#include <functional>
#include <memory>

namespace lectern {

// Sends a "ping" every ten seconds, so that the service does not stop as idle:
// reading and scrolling use the queue, but only bus calls count as use. All objects of
// one connection share one thread, which lives as long as any of them.
class KeepAlive {
public:
    static constexpr std::chrono::milliseconds DEFAULT_PERIOD{10'000};

    // onBusLost: called once, on the shared thread, when the connection turns out to
    // be lost; nothing else would tell. It must not end an object of this class.
    // period: counts for the first object of a connection.
    explicit KeepAlive(const Bus& bus, std::chrono::milliseconds period = DEFAULT_PERIOD,
                       std::function<void()> onBusLost = {});
    // Waits for a call of onBusLost that is going on.
    ~KeepAlive();
    KeepAlive(const KeepAlive&) = delete;
    KeepAlive& operator=(const KeepAlive&) = delete;

private:
    class Pinger;
    std::shared_ptr<Pinger> mPinger;
};

} // namespace lectern

// SPDX-License-Identifier: Apache-2.0
#include "client/lib/KeepAlive.h"

#include <lectern/EventCalls.h>

#include <utility>

namespace lectern {

KeepAlive::KeepAlive(const Bus& bus, std::chrono::milliseconds period, std::function<void()> onBusLost)
    : mBus(bus), mOnBusLost(std::move(onBusLost)),
      mThread([this, period](const std::stop_token& stop) { run(stop, period); }) {}

void KeepAlive::run(const std::stop_token& stop, std::chrono::milliseconds period) {
    std::unique_lock lock(mMutex);
    while (!mStopped.wait_for(lock, stop, period, [&stop] { return stop.stop_requested(); })) {
        if (mBus.isClosed()) {
            if (mOnBusLost) {
                mOnBusLost();
            }
            return;
        }
        (void)events::ping(mBus); // fails when the bus is closed, which the next round sees
    }
}

} // namespace lectern

// SPDX-License-Identifier: Apache-2.0
#include "client/lib/KeepAlive.h"

#include "base/Mutex.h"
#include "client/lib/ViewCalls.h"

#include <condition_variable>
#include <map>
#include <thread>
#include <utility>

namespace lectern {

// The thread of one connection, and who is told when that is lost.
class KeepAlive::Pinger {
public:
    Pinger(const Bus& bus, std::chrono::milliseconds period)
        : mBus(bus), mThread([this, period](const std::stop_token& stop) { run(stop, period); }) {
        pthread_setname_np(mThread.native_handle(), "lectern-pings");
    }

    // The one of this connection, made when there is none.
    static std::shared_ptr<Pinger> of(const Bus& bus, std::chrono::milliseconds period) {
        static Mutex mutex;
        static std::map<_GDBusConnection*, std::weak_ptr<Pinger>> pingers;
        const Lock lock(mutex);
        std::erase_if(pingers, [](const auto& entry) { return entry.second.expired(); });
        std::weak_ptr<Pinger>& known = pingers[bus.connection()];
        std::shared_ptr<Pinger> pinger = known.lock();
        if (!pinger) {
            pinger = std::make_shared<Pinger>(bus, period);
            known = pinger;
        }
        return pinger;
    }

    void add(const KeepAlive* listener, std::function<void()> onBusLost) {
        const Lock lock(mMutex);
        mListeners.emplace(listener, std::move(onBusLost));
    }
    void remove(const KeepAlive* listener) {
        const Lock lock(mMutex);
        mListeners.erase(listener);
    }

private:
    void run(const std::stop_token& stop, std::chrono::milliseconds period) {
        Lock lock(mMutex);
        while (!mStopped.wait_for(lock, stop, period, [&stop] { return stop.stop_requested(); })) {
            if (!mBus.isClosed()) {
                (void)events::ping(mBus); // fails when the bus is closed, which the next round sees
                continue;
            }
            for (const auto& [listener, onBusLost] : std::exchange(mListeners, {})) {
                if (onBusLost) {
                    onBusLost();
                }
            }
        }
    }

    const Bus mBus;
    Mutex mMutex; // held while the listeners are called
    std::map<const KeepAlive*, std::function<void()>> mListeners GUARDED_BY(mMutex);
    std::condition_variable_any mStopped;
    std::jthread mThread; // last: it uses the others
};

KeepAlive::KeepAlive(const Bus& bus, std::chrono::milliseconds period, std::function<void()> onBusLost)
    : mPinger(Pinger::of(bus, period)) {
    mPinger->add(this, std::move(onBusLost));
}

KeepAlive::~KeepAlive() {
    mPinger->remove(this);
}

} // namespace lectern

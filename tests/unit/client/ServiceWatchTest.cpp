// SPDX-License-Identifier: Apache-2.0
#include "client/lib/ServiceWatch.h"

#include "client/lib/BusMessages.h"
#include "tests/unit/client/FakeService.h"

#include <gtest/gtest.h>
#include <signal.h>

#include <future>

namespace {

using namespace lectern;
using namespace std::chrono_literals;

constexpr char LEFT_LONG_AGO[] = ":1.9999"; // the bus counts up and has not come so far

class ServiceWatchTest : public testing::Test {
protected:
    ServiceWatchTest() : mBus(std::move(*Bus::connect(mService.address()))) {}

    void watch(const std::string& name) {
        mWatch.emplace(mBus, name, [this] { mTold.set_value(); });
    }
    bool isTold(std::chrono::milliseconds patience) {
        return mFuture.wait_for(patience) == std::future_status::ready;
    }
    std::string ownerOfService() {
        const char* name = nullptr;
        const auto reply =
            askDaemon(mBus.connection(), "GetNameOwner", g_variant_new("(s)", SERVICE_NAME), "(s)");
        g_variant_get(reply.get(), "(&s)", &name);
        return name;
    }
    pid_t daemon() {
        guint32 process = 0;
        const auto reply = askDaemon(mBus.connection(), "GetConnectionUnixProcessID",
                                     g_variant_new("(s)", "org.freedesktop.DBus"), "(u)");
        g_variant_get(reply.get(), "(u)", &process);
        return static_cast<pid_t>(process);
    }
    // The end of the close does not wait until the connection knows that it is closed.
    void loseBus() {
        g_dbus_connection_close_sync(mBus.connection(), nullptr, nullptr);
        while (!mBus.isClosed()) {
            g_main_context_iteration(nullptr, TRUE); // wakes up for the signal "closed"
        }
    }

    FakeService mService;
    Bus mBus;
    std::promise<void> mTold;
    std::future<void> mFuture = mTold.get_future();
    std::optional<ServiceWatch> mWatch;
};

TEST_F(ServiceWatchTest, TellsOfAProcessThatLeaves) {
    watch(ownerOfService());
    EXPECT_TRUE(mBus.serviceRuns()); // the bus has answered the watch before this
    EXPECT_FALSE(isTold(0ms));
    mService.vanish();
    EXPECT_TRUE(isTold(10s));
}

TEST_F(ServiceWatchTest, TellsOfAProcessThatHasLeftBefore) {
    watch(LEFT_LONG_AGO);
    EXPECT_TRUE(isTold(10s));
}

TEST_F(ServiceWatchTest, DoesNotWaitForTheBus) {
    const pid_t bus = daemon();
    kill(bus, SIGSTOP);
    watch(LEFT_LONG_AGO);
    EXPECT_FALSE(isTold(0ms));
    kill(bus, SIGCONT);
    EXPECT_TRUE(isTold(10s));
}

TEST_F(ServiceWatchTest, TellsOfABusThatIsLost) {
    loseBus();
    watch(LEFT_LONG_AGO);
    EXPECT_TRUE(isTold(10s));
}

} // namespace

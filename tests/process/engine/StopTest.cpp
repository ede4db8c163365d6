// SPDX-License-Identifier: Apache-2.0
// When the service is about to stop, no engine delays it for long.

#include "tests/process/engine/EngineTest.h"

#include <chrono>
#include <filesystem>
#include <thread>

namespace lectern::test {
namespace {

using StopTest = EngineTest;

TEST_F(StopTest, RunningAndLaterCallsGetTwoMoreSeconds) {
    const WordModule& word = wordModule();
    Document running;
    open(running, "scroll=hang\n");
    const EngineInfo engine = engineOfDocument();
    Document later;
    open(later, "scroll=hang\n");

    std::chrono::steady_clock::time_point stopped;
    std::thread stopper([&] {
        EXPECT_TRUE(waitUntil([&] { return std::filesystem::exists(engine.folder + "/hanging"); }));
        stopped = std::chrono::steady_clock::now();
        word.stopSoon();
    });
    std::int32_t scrolled = 0;
    EXPECT_EQ(word.wtg_scroll_down(running.get(), 0, 1, &scrolled), MODULE_TIMED_OUT);
    stopper.join();
    const auto runningTook = std::chrono::steady_clock::now() - stopped;
    EXPECT_GE(runningTook, std::chrono::milliseconds(1900));
    EXPECT_LT(runningTook, std::chrono::seconds(6));

    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(word.wtg_scroll_down(later.get(), 0, 1, &scrolled), MODULE_TIMED_OUT);
    const auto laterTook = std::chrono::steady_clock::now() - start;
    EXPECT_GE(laterTook, std::chrono::milliseconds(1900));
    EXPECT_LT(laterTook, std::chrono::seconds(6));
}

} // namespace
} // namespace lectern::test

// SPDX-License-Identifier: Apache-2.0
#include "client/lib/Dispatcher.h"

#include <gmock/gmock.h>

#include <atomic>
#include <future>
#include <vector>

namespace {

using namespace lectern;

TEST(Dispatcher, RunsTasksOfAnyThreadOnOneOfItsOwnInTheirOrder) {
    std::vector<int> seen;
    std::promise<std::thread::id> ran;
    Dispatcher dispatcher(nullptr);
    for (int i = 0; i < 100; ++i) {
        dispatcher.post([&seen, i] { seen.push_back(i); });
    }
    dispatcher.post([&] { ran.set_value(std::this_thread::get_id()); });
    EXPECT_NE(ran.get_future().get(), std::this_thread::get_id());
    ASSERT_EQ(seen.size(), 100U);
    EXPECT_TRUE(std::is_sorted(seen.begin(), seen.end()));
}

TEST(Dispatcher, RunsTasksInTheContextItIsGiven) {
    const GLibHolder<GMainContext> context(g_main_context_new());
    Dispatcher dispatcher(context.get());
    std::thread::id where;
    std::thread([&] { dispatcher.post([&] { where = std::this_thread::get_id(); }); }).join();
    EXPECT_EQ(where, std::thread::id());
    while (where == std::thread::id()) {
        g_main_context_iteration(context.get(), TRUE);
    }
    EXPECT_EQ(where, std::this_thread::get_id());
}

TEST(Dispatcher, LetsOthersInTheContextHaveTheirTurn) {
    const GLibHolder<GMainContext> context(g_main_context_new());
    Dispatcher dispatcher(context.get());
    int ran = 0;
    dispatcher.post([&] { ++ran; });
    dispatcher.post([&] { ++ran; });
    g_main_context_iteration(context.get(), FALSE);
    EXPECT_EQ(ran, 1);
    g_main_context_iteration(context.get(), FALSE);
    EXPECT_EQ(ran, 2);
}

TEST(Dispatcher, DropsAtItsEndWhatHasNotBegun) {
    const GLibHolder<GMainContext> context(g_main_context_new());
    bool ran = false;
    {
        Dispatcher dispatcher(context.get());
        dispatcher.post([&] { ran = true; });
    }
    while (g_main_context_iteration(context.get(), FALSE) != FALSE) {
    }
    EXPECT_FALSE(ran);
}

TEST(Dispatcher, WaitsAtItsEndForATaskThatGoesOn) {
    std::promise<void> begun;
    std::atomic<bool> ended = false;
    {
        Dispatcher dispatcher(nullptr);
        dispatcher.post([&] {
            begun.set_value();
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
            ended = true;
        });
        begun.get_future().wait();
    }
    EXPECT_TRUE(ended);
}

TEST(Dispatcher, MayBeEndedByATaskOfItsOwn) {
    const GLibHolder<GMainContext> context(g_main_context_new());
    for (GMainContext* where : {context.get(), static_cast<GMainContext*>(nullptr)}) {
        auto dispatcher = std::make_unique<Dispatcher>(where);
        std::promise<void> ended;
        bool ranAfter = false;
        Dispatcher* self = dispatcher.get();
        std::promise<void> posted;
        self->post([&, both = posted.get_future().share()] {
            both.wait();
            dispatcher.reset();
            ended.set_value();
        });
        self->post([&] { ranAfter = true; });
        posted.set_value();
        auto done = ended.get_future();
        while (done.wait_for(std::chrono::seconds(0)) != std::future_status::ready) {
            g_main_context_iteration(context.get(), FALSE);
        }
        EXPECT_FALSE(ranAfter);
    }
}

} // namespace

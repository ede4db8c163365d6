// SPDX-License-Identifier: Apache-2.0
#include "tests/unit/glib/DocumentFixture.h"

#include <thread>

namespace {

using lectern::GLibHolder;

class Threads : public DocumentTest {};

// Runs a function on a thread with a main context of its own.
template<typename Function>
void onThreadWithContext(Function function) {
    std::thread([&] {
        const GLibHolder<GMainContext> context(g_main_context_new());
        g_main_context_push_thread_default(context.get());
        function();
        g_main_context_pop_thread_default(context.get());
    }).join();
}

TEST_F(Threads, SignalsComeInTheContextOfTheOpen) {
    onThreadWithContext([this] {
        const Document document = opened();
        const std::thread::id opener = std::this_thread::get_id();
        std::thread::id told;
        const auto tell = [](LecternDocument*, gpointer thread) {
            *static_cast<std::thread::id*>(thread) = std::this_thread::get_id();
        };
        g_signal_connect(document.get(), "link-tapped", G_CALLBACK(+tell), &told);
        mFake.view().notify(_HYPERLINK, 0, 0);
        iterateUntil([&] { return told != std::thread::id(); });
        EXPECT_EQ(told, opener);
    });
}

TEST_F(Threads, CallbacksComeInTheContextOfTheCall) {
    const Document document = opened();
    mFake.answer("/touch getLink", R"({"link": "page"})");
    std::atomic<bool> ended = false;
    std::thread other([&] {
        const GLibHolder<GMainContext> context(g_main_context_new());
        g_main_context_push_thread_default(context.get());
        Result result; // taken by the loop of this context
        lectern_document_get_link_async(document.get(), nullptr, Result::take, &result);
        const GLibHolder<char> link(lectern_document_get_link_finish(document.get(), result.wait(), nullptr));
        EXPECT_STREQ(link.get(), "page");
        g_main_context_pop_thread_default(context.get());
        ended = true;
        g_main_context_wakeup(nullptr);
    });
    iterateUntil([&] { return ended.load(); }); // the document's own loop
    other.join();
}

} // namespace

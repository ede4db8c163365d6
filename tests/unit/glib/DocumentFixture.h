// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/GLibHolder.h"
#include "client/lib/Json.h"
#include "tests/unit/client/FakeService.h"

#include <gio/gio.h>
#include <gtest/gtest.h>
#include <lectern-glib/lectern-glib.h>

#include <string>
#include <utility>
#include <vector>

// Runs the loop of this thread's main context until a condition is true.
template<typename Condition>
void iterateUntil(Condition condition) {
    while (!condition()) {
        g_main_context_iteration(g_main_context_get_thread_default(), TRUE);
    }
}

// A place for the result of a call under way. Must outlive the call.
class Result {
public:
    static void take(GObject*, GAsyncResult* result, gpointer self) {
        static_cast<Result*>(self)->mResult.reset(G_ASYNC_RESULT(g_object_ref(result)));
    }
    bool isThere() const { return mResult != nullptr; }
    GAsyncResult* wait() {
        iterateUntil([this] { return isThere(); });
        return mResult.get();
    }

private:
    lectern::GLibHolder<GAsyncResult> mResult;
};

// A document of the fake service, which this process finds on its session bus.
class DocumentTest : public testing::Test {
protected:
    using Document = lectern::GLibHolder<LecternDocument>;

    DocumentTest() {
        g_setenv("DBUS_SESSION_BUS_ADDRESS", mFake.address().c_str(), TRUE);
        mService.reset(lectern_service_connect_sync(nullptr, nullptr));
        EXPECT_NE(mService, nullptr);
        mFake.answer("/touch getView", VIEW);
    }
    ~DocumentTest() override { g_unsetenv("DBUS_SESSION_BUS_ADDRESS"); }

    Document make(const char* path = "/letter.docx") {
        const lectern::GLibHolder<GFile> file(g_file_new_for_path(path));
        Document document(lectern_document_new(mService.get(), file.get()));
        g_object_set(document.get(), "width", 48, "height", 80, nullptr);
        return document;
    }
    // Opens a document; returns the error.
    static lectern::GLibHolder<GError> open(const Document& document, const char* password = nullptr) {
        Result opened;
        lectern_document_open_async(document.get(), password, nullptr, Result::take, &opened);
        lectern::GLibHolder<GError> error;
        lectern_document_open_finish(document.get(), opened.wait(), lectern::out(error));
        return error;
    }
    Document opened() {
        Document document = make();
        EXPECT_EQ(open(document), nullptr);
        return document;
    }
    // Paints; returns the damage.
    static LecternRectangle paint(const Document& document) {
        Result painted;
        lectern_document_paint_async(document.get(), nullptr, Result::take, &painted);
        LecternRectangle damage{-1, -1, -1, -1};
        EXPECT_TRUE(lectern_document_paint_finish(document.get(), painted.wait(), &damage, nullptr));
        return damage;
    }
    lectern::JsonMembers sent(const std::string& place, int count = 1) {
        return std::move(*lectern::JsonMembers::parse(mFake.waitForCall(place, count)));
    }

    static constexpr char VIEW[] =
        R"({"documentWidth": 100, "documentHeight": 5000000000, "x": 1, "y": 2, "width": 48, "height": 80,
            "zoom": 1.5, "smallestZoom": 0.25, "largestZoom": 8.0, "fit": 1.25, "part": 0, "parts": 1, "hit": -1,
            "hits": 0, "moving": false})";

    FakeService mFake;
    lectern::GLibHolder<LecternService> mService;
};

// Counts the emissions of a signal, such as "notify::zoom".
class Emissions {
public:
    Emissions(gpointer object, const char* signal) : mObject(object) {
        mHandler = g_signal_connect_swapped(object, signal, G_CALLBACK(count), this);
    }
    ~Emissions() { g_signal_handler_disconnect(mObject, mHandler); }
    Emissions(const Emissions&) = delete;
    Emissions& operator=(const Emissions&) = delete;

    int seen() const { return mSeen; }
    void waitFor(int wanted) {
        iterateUntil([&] { return mSeen >= wanted; });
    }

private:
    static void count(Emissions* self) { ++self->mSeen; }

    gpointer mObject;
    gulong mHandler;
    int mSeen = 0;
};

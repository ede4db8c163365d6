// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/lib/Dispatcher.h"
#include <lectern/FrameBuffer.h>
#include <lectern/ViewEvents.h>

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

namespace lectern {

// Paints a view by itself, in a thread of its own: when asked to, once for all
// that was asked for meanwhile, and never while somebody looks at the last frame.
class Painter {
public:
    // How a paint is made: after everything sent so far, where afterInput says so.
    using Paint = std::function<Failure(bool afterInput, const std::stop_token& stop)>;

    // The shortest time from frame to frame: what a glide is shown at.
    static constexpr std::chrono::milliseconds FRAME_PERIOD{16};

    // The frame and the dispatcher must outlive the painter, which may end in a
    // callback of the events.
    Painter(std::shared_ptr<const ViewEvents> events, const FrameBuffer& frame, Dispatcher& dispatcher,
            Paint paint);
    Painter(const Painter&) = delete;
    Painter& operator=(const Painter&) = delete;

    // From any thread; never waits for a paint.
    void request(bool afterInput);

private:
    // Shared with the callbacks under way.
    struct State {
        std::mutex mutex; // guards what follows
        std::condition_variable_any changed;
        bool wanted = false;
        bool afterInput = false;
        bool lookedAt = false;
    };

    void run(const std::stop_token& stop);
    // Whether the paint is to show input that was sent before; nothing when stopped.
    bool awaitRequest(const std::stop_token& stop, bool& afterInput);
    void show(const std::stop_token& stop);

    const std::shared_ptr<const ViewEvents> mEvents;
    const FrameBuffer& mFrame;
    Dispatcher& mDispatcher;
    const Paint mPaint;

    const std::shared_ptr<State> mState = std::make_shared<State>();
    std::jthread mThread; // last: it uses the others
};

} // namespace lectern

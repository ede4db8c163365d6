// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/Mutex.h"
#include "client/lib/Dispatcher.h"
#include <lectern/FrameBuffer.h>
#include <lectern/ViewEvents.h>

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <thread>

namespace lectern {

// Paints a view on request, in its own thread. Requests that come during a paint
// result in one paint, and none is done while a callback looks at the last frame.
class Painter {
public:
    // Makes a paint; with afterInput, after all input sent so far. Returns the frame that
    // was painted.
    using Paint = std::function<Result<std::shared_ptr<const FrameBuffer>>(bool afterInput,
                                                                           const std::stop_token& stop)>;

    // Shortest time between two frames; the frame rate of a glide.
    static constexpr std::chrono::milliseconds FRAME_PERIOD{16};

    // The dispatcher must outlive the painter, which may be destroyed in one of the
    // events' callbacks.
    Painter(std::shared_ptr<const ViewEvents> events, Dispatcher& dispatcher, Paint paint);
    Painter(const Painter&) = delete;
    Painter& operator=(const Painter&) = delete;

    // Any thread may call this; never waits for a paint.
    void request(bool afterInput);

private:
    // Shared with pending callbacks.
    struct State {
        Mutex mutex;
        std::condition_variable_any changed;
        bool wanted GUARDED_BY(mutex) = false;
        bool afterInput GUARDED_BY(mutex) = false;
        bool lookedAt GUARDED_BY(mutex) = false;
    };

    void run(const std::stop_token& stop);
    // Waits for a request and sets `afterInput`, whether the paint must show
    // input sent before. Returns false when stopped.
    bool awaitRequest(const std::stop_token& stop, bool& afterInput);
    void show(std::shared_ptr<const FrameBuffer> frame, const std::stop_token& stop);

    const std::shared_ptr<const ViewEvents> mEvents;
    Dispatcher& mDispatcher;
    const Paint mPaint;

    const std::shared_ptr<State> mState = std::make_shared<State>();
    std::jthread mThread; // last, because it uses the other members
};

} // namespace lectern

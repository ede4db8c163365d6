// SPDX-License-Identifier: Apache-2.0
#include "client/lib/Painter.h"

#include <utility>

namespace lectern {

Painter::Painter(std::shared_ptr<const ViewEvents> events, Dispatcher& dispatcher, Paint paint)
    : mEvents(std::move(events)), mDispatcher(dispatcher), mPaint(std::move(paint)),
      mThread([this](const std::stop_token& stop) { run(stop); }) {
    pthread_setname_np(mThread.native_handle(), "lectern-paints");
}

void Painter::request(bool afterInput) {
    const Lock lock(mState->mutex);
    mState->wanted = true;
    mState->afterInput = mState->afterInput || afterInput;
    mState->changed.notify_all();
}

bool Painter::awaitRequest(const std::stop_token& stop, bool& afterInput) {
    Lock lock(mState->mutex);
    if (!mState->changed.wait(lock, stop, [this]() REQUIRES(mState->mutex) { return mState->wanted; })) {
        return false;
    }
    mState->wanted = false;
    afterInput = std::exchange(mState->afterInput, false);
    return true;
}

void Painter::run(const std::stop_token& stop) {
    bool afterInput = false;
    while (awaitRequest(stop, afterInput)) {
        const auto next = std::chrono::steady_clock::now() + FRAME_PERIOD;
        if (const auto painted = mPaint(afterInput, stop)) {
            show(*painted, stop);
        } else if (const Error& failure = painted.error();
                   failure.kind != Error::Kind::Gone && failure.kind != Error::Kind::Cancelled) {
            mDispatcher.post([events = mEvents, error = failure] {
                if (events->onPaintFailed) {
                    events->onPaintFailed(error);
                }
            });
        }
        Lock lock(mState->mutex);
        mState->changed.wait_until(lock, stop, next, [] { return false; });
    }
}

// Returns when the frame may be painted again.
void Painter::show(std::shared_ptr<const FrameBuffer> frame, const std::stop_token& stop) {
    Lock lock(mState->mutex);
    mState->lookedAt = true;
    mDispatcher.post([events = mEvents, state = mState, frame = std::move(frame)] {
        events->onFrame(*frame);
        const Lock looked(state->mutex);
        state->lookedAt = false;
        state->changed.notify_all();
    });
    mState->changed.wait(lock, stop, [this]() REQUIRES(mState->mutex) { return !mState->lookedAt; });
}

} // namespace lectern

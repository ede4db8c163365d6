// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/Mutex.h"
#include "client/lib/Dispatcher.h"
#include "client/lib/Painter.h"
#include "client/lib/TaskThread.h"
#include "client/lib/View.h"
#include <lectern/Document.h>

#include <array>
#include <atomic>
#include <chrono>
#include <memory>
#include <optional>
#include <string>

namespace lectern {

// The parts of a document: the frame buffer, which a resize replaces, and the view,
// which a reopen replaces.
class Document::Parts {
public:
    Parts(const Bus& bus, std::string path, OpenOptions options, FrameBuffer frame);
    // Ends the view and the work in the lanes. The destructors of the members stop
    // everything: no callback runs after destruction.
    ~Parts();
    Parts(const Parts&) = delete;
    Parts& operator=(const Parts&) = delete;

    // Opens the view, for the first time or again.
    Failure open(unsigned int restoreFrom, const CallLimits& limits);
    // REQUIRES: open has succeeded once.
    std::shared_ptr<View> view() const;
    std::shared_ptr<const FrameBuffer> frame() const;

    Failure paint(const CallLimits& limits);
    void requestPaint(bool afterInput);
    Failure resize(int width, int height, const CallLimits& limits);
    Failure send(const ClientServerMessage& message);
    // The same for records that only views with touch manners hear.
    Failure sendTouch(const ClientServerMessage& message);
    Failure sendPoint(ClientMessageType type, int x, int y);
    Failure sendFactor(ClientMessageType type, double factor);
    // Sends a pen record; at the end of a drag in a spreadsheet also stops the
    // view's movement.
    Failure sendPen(ClientMessageType type, int x, int y);
    // Calls a method for the current view.
    Result<std::string> ask(const Request& request, const CallLimits& limits);
    // The same after the records sent before.
    Failure askAfterInput(const Call<void>& call, const CallLimits& limits);
    Failure flick(int velocityX, int velocityY, const CallLimits& limits);
    Failure comeToRest(const CallLimits& limits);
    void settle();
    // Does a task in a lane. stop: requested by the document's end or by the caller's
    // token.
    void later(Lane lane, std::function<void(const std::stop_token& stop)> task, std::stop_token callers);
    // Calls a function as events are called.
    void tell(std::function<void()> callback) { mDispatcher.post(std::move(callback)); }

    const Bus bus;
    const std::string path;
    const OpenOptions options;

private:
    using Clock = std::chrono::steady_clock;
    struct PenContact {
        bool active = false;
        int downX = 0;
        int downY = 0;
        bool dragged = false; // has moved away from its start
        bool flicked = false; // has become a flick
    };

    void take(const ServerClientMessage& message);
    Failure slowFlick(const CallLimits& limits);
    Result<std::shared_ptr<const FrameBuffer>> paintItself(bool afterInput, const std::stop_token& stop);

    const std::shared_ptr<const ViewEvents> mEvents;
    Mutex mOpening; // held during an open and a resize
    mutable Mutex mViewMutex;
    Mutex mPainting;                // held during a paint; taken after mOpening
    std::atomic<bool> mInvalidated; // a call of onInvalidated is pending
    Mutex mPenMutex;
    PenContact mContact GUARDED_BY(mPenMutex);
    Clock::time_point mRestFrom GUARDED_BY(mPenMutex){};

    bool mOthersWait = false; // used by the painter only

    // Declared so that each is destroyed before those that it uses.
    Dispatcher mDispatcher;
    std::shared_ptr<View> mView GUARDED_BY(mViewMutex);
    std::shared_ptr<const FrameBuffer> mFrame GUARDED_BY(mViewMutex);
    std::optional<Painter> mPainter;
    std::stop_source mEnd; // cancels the calls that go on
    std::array<TaskThread, 3> mLanes{TaskThread("lectern-input"), TaskThread("lectern-frames"),
                                     TaskThread("lectern-calls")};
};

} // namespace lectern

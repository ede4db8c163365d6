// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/lib/Dispatcher.h"
#include "client/lib/Painter.h"
#include "client/lib/View.h"
#include <lectern/Document.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace lectern {

// What a document is made of: the frame buffer, which stays, and a view, which a
// reopen replaces.
class Document::Parts {
public:
    Parts(const Bus& bus, std::string path, OpenOptions options, FrameBuffer frame);
    // Ends by its members, in their order: no callback comes when this returns.

    // Opens the view, again or for the first time.
    Failure open(unsigned int restoreFrom, const CallLimits& limits);
    // REQUIRES: open has succeeded once.
    std::shared_ptr<View> view() const;

    Failure paint(const CallLimits& limits);
    void requestPaint(bool afterInput);
    Failure send(const ClientServerMessage& message);
    Failure sendPoint(ClientMessageType type, int x, int y);
    Failure sendFactor(ClientMessageType type, double factor);
    // Follows the pen, and lets a sheet come to rest where a drag has ended.
    Failure sendPen(ClientMessageType type, int x, int y);
    // Calls a method for the view there is now, after what was sent before.
    Failure ask(const std::function<Failure(const Bus& bus, int docid)>& call);
    Failure flick(int velocityX, int velocityY, const CallLimits& limits);
    Failure comeToRest(const CallLimits& limits);
    void settle();

    const Bus bus;
    const std::string path;
    const OpenOptions options;
    const FrameBuffer frame;

private:
    using Clock = std::chrono::steady_clock;
    struct PenContact {
        bool active = false;
        int downX = 0;
        int downY = 0;
        bool dragged = false; // has left the place where it began
        bool flicked = false; // has become a flick
    };

    void take(const ServerClientMessage& message);
    Failure slowFlick(const CallLimits& limits);
    Failure paintItself(bool afterInput, const std::stop_token& stop);

    const std::shared_ptr<const ViewEvents> mEvents;
    std::mutex mOpening;            // held during an open
    mutable std::mutex mViewMutex;  // guards mView
    std::mutex mPainting;           // held during a paint
    std::atomic<bool> mInvalidated; // onInvalidated is about to be called
    std::mutex mPenMutex;           // guards the two below
    PenContact mContact;
    Clock::time_point mRestFrom{};

    bool mOthersWait = false; // the painter's own

    // In this order, so that each ends before what it uses.
    Dispatcher mDispatcher;
    std::shared_ptr<View> mView;
    std::optional<Painter> mPainter;
};

} // namespace lectern

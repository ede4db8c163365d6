// SPDX-License-Identifier: Apache-2.0
#include "client/lib/DocumentParts.h"

#include "client/lib/Decoding.h"
#include <lectern/EventCalls.h>

#include <thread>

namespace lectern {

namespace {

// How long settle() waits: as long as a paint of another document may take.
constexpr std::chrono::milliseconds SETTLE_PATIENCE{2'000};
// The same after records of other users were found to stay in the queue.
constexpr std::chrono::milliseconds CROWDED_PATIENCE{20};
// How long to wait for a pen up to be taken before a call that must follow it.
constexpr std::chrono::milliseconds PEN_PATIENCE{200};
// How long the end of a drag waits for a busy service.
constexpr std::chrono::milliseconds REST_PATIENCE{1'000};
// The velocity of the slowest glide, which ends at the pixel where it began.
constexpr int SLOWEST = -1;
constexpr std::chrono::milliseconds SLOWEST_GLIDE{3};

} // namespace

Document::Parts::Parts(const Bus& onBus, std::string absolutePath, OpenOptions openOptions,
                       FrameBuffer frameBuffer)
    : bus(onBus), path(std::move(absolutePath)), options(std::move(openOptions)),
      frame(std::move(frameBuffer)), mEvents(std::make_shared<const ViewEvents>(options.events)),
      mInvalidated(false), mDispatcher(options.context) {
    if (mEvents->onFrame) {
        mPainter.emplace(mEvents, frame, mDispatcher, [this](bool afterInput, const std::stop_token& stop) {
            return paintItself(afterInput, stop);
        });
    }
}

// Closes the old view first, because the new one listens to the same notifications.
// Releases the old view's state segment only when the new view has it.
Failure Document::Parts::open(unsigned int restoreFrom, const CallLimits& limits) {
    const std::lock_guard opening(mOpening);
    if (const auto before = view()) {
        before->close();
    }
    const events::CreateRequest request{
        path,        frame.width(),   frame.height(), frame.identifier(), static_cast<int>(frame.size()),
        restoreFrom, options.password};
    auto opened = View::open(bus, request, limits,
                             {[this](const ServerClientMessage& message) { take(message); },
                              [this] {
                                  mDispatcher.post([events = mEvents] {
                                      if (events->onServiceGone) {
                                          events->onServiceGone();
                                      }
                                  });
                              }});
    if (!opened) {
        return opened.error();
    }
    {
        const std::lock_guard lock(mViewMutex);
        mView.swap(*opened);
    }
    requestPaint(false);
    return std::nullopt;
}

std::shared_ptr<View> Document::Parts::view() const {
    const std::lock_guard lock(mViewMutex);
    return mView;
}

void Document::Parts::take(const ServerClientMessage& message) {
    if (message.id == _INVALIDATED) {
        requestPaint(false);
        if (mInvalidated.exchange(true)) {
            return;
        }
    }
    const ViewRecord record{message.id, message.value, message.extra};
    mDispatcher.post([this, events = mEvents, record] {
        if (record.id == _INVALIDATED) {
            mInvalidated = false;
        }
        tell(*events, record);
    });
}

Failure Document::Parts::paint(const CallLimits& limits) {
    const std::lock_guard painting(mPainting);
    return view()->paint(limits);
}

Failure Document::Parts::paintItself(bool afterInput, const std::stop_token& stop) {
    const std::shared_ptr<View> current = view();
    if (current == nullptr) { // requested during the first open, which requests again at its end
        return Error{Error::Kind::Cancelled, "not open yet", 0, {}};
    }
    if (afterInput) {
        mOthersWait = !current->settle(mOthersWait ? CROWDED_PATIENCE : SETTLE_PATIENCE);
    }
    CallLimits limits;
    limits.stop = stop;
    return paint(limits);
}

void Document::Parts::requestPaint(bool afterInput) {
    if (mPainter) {
        mPainter->request(afterInput);
    }
}

Failure Document::Parts::send(const ClientServerMessage& message) {
    Failure failure = view()->send(message);
    if (!failure) {
        requestPaint(true);
    }
    return failure;
}

Failure Document::Parts::sendPoint(ClientMessageType type, int x, int y) {
    ClientServerMessage message(type, 0);
    message.setReals(0, 0); // initialise every byte that is sent
    message.x = x;
    message.y = y;
    return send(message);
}

Failure Document::Parts::sendFactor(ClientMessageType type, double factor) {
    ClientServerMessage message(type, 0);
    message.setReals(factor, 0);
    return send(message);
}

// Moves the pen and, at the end of a drag in a spreadsheet, stops the view with
// a slow flick before the pen up. The move is needed because a contact that has
// become a flick ignores the position of its pen up.
Failure Document::Parts::sendPen(ClientMessageType type, int x, int y) {
    bool dragEnds = false;
    {
        const std::lock_guard lock(mPenMutex);
        if (type == _PEN_DOWN) {
            mContact = {true, x, y};
        }
        mContact.dragged = mContact.dragged || mContact.downX != x || mContact.downY != y;
        dragEnds = type == _PEN_UP && mContact.active && mContact.dragged && !mContact.flicked;
        mContact.active = mContact.active && type != _PEN_UP;
    }
    if (dragEnds && view()->kind() == static_cast<int>(DocumentKind::Spreadsheet)) {
        Failure failure = sendPoint(_PEN_MOVE, x, y);
        if (!failure) {
            failure = slowFlick({.timeout = REST_PATIENCE});
        }
        if (failure && failure->kind != Error::Kind::TimedOut) {
            return failure;
        }
    }
    return sendPoint(type, x, y);
}

// Calls a method after the records sent before have been taken, within
// PEN_PATIENCE, so that, for example, a click follows its pen down.
Failure Document::Parts::ask(const std::function<Failure(const Bus& bus, int docid)>& call) {
    const std::shared_ptr<View> current = view();
    if (Failure failure = current->ended()) {
        return failure;
    }
    current->settle(PEN_PATIENCE);
    Failure failure = call(bus, current->docid());
    requestPaint(false);
    return failure;
}

// A flick outside of a pen contact is followed by a pen up; otherwise the view
// would take the next contact for the flick's.
Failure Document::Parts::flick(int velocityX, int velocityY, const CallLimits& limits) {
    Failure failure = ask([&](const Bus& onBus, int id) {
        return events::handleFlick(onBus, id, velocityX, velocityY, limits);
    });
    bool alone = false;
    {
        const std::lock_guard lock(mPenMutex);
        mContact.flicked = true;
        alone = !mContact.active;
    }
    return failure || !alone ? failure : sendPoint(_PEN_UP, 0, 0);
}

Failure Document::Parts::slowFlick(const CallLimits& limits) {
    Failure failure =
        ask([&](const Bus& onBus, int id) { return events::handleFlick(onBus, id, 0, SLOWEST, limits); });
    const std::lock_guard lock(mPenMutex);
    mRestFrom = Clock::now() + SLOWEST_GLIDE;
    return failure;
}

Failure Document::Parts::comeToRest(const CallLimits& limits) {
    Failure failure = slowFlick(limits);
    return failure ? failure : sendPoint(_PEN_UP, 0, 0);
}

void Document::Parts::settle() {
    view()->settle(SETTLE_PATIENCE);
    Clock::time_point rest;
    {
        const std::lock_guard lock(mPenMutex);
        rest = mRestFrom;
    }
    std::this_thread::sleep_until(rest);
}

} // namespace lectern

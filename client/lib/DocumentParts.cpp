// SPDX-License-Identifier: Apache-2.0
#include "client/lib/DocumentParts.h"

#include "client/lib/Calls.h"
#include "client/lib/Decoding.h"
#include "client/lib/EitherStop.h"
#include "client/lib/ViewCalls.h"

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

// The word for a kind in "create".
std::optional<std::string> wordFor(DocumentKind kind) {
    switch (kind) {
    case DocumentKind::Spreadsheet:
        return "excel";
    case DocumentKind::WordProcessing:
        return "word";
    case DocumentKind::Presentation:
        return "ppt";
    default:
        return std::nullopt;
    }
}

events::CreateRequest createRequest(const std::string& path, const OpenOptions& options,
                                    const FrameBuffer& frame, unsigned int restoreFrom) {
    events::CreateRequest request{
        path,        frame.width(),   frame.height(), frame.identifier(), static_cast<int>(frame.size()),
        restoreFrom, options.password};
    if (options.manners == Manners::Touch) {
        request.touch = true;
        request.dpi = options.dpi;
        request.kind = wordFor(options.kind);
    }
    return request;
}

} // namespace

Document::Parts::Parts(const Bus& onBus, std::string absolutePath, OpenOptions openOptions,
                       FrameBuffer frameBuffer)
    : bus(onBus), path(std::move(absolutePath)), options(std::move(openOptions)),
      mEvents(std::make_shared<const ViewEvents>(options.events)), mInvalidated(false),
      mDispatcher(options.context), mFrame(std::make_shared<const FrameBuffer>(std::move(frameBuffer))) {
    if (mEvents->onFrame) {
        mPainter.emplace(mEvents, mDispatcher, [this](bool afterInput, const std::stop_token& stop) {
            return paintItself(afterInput, stop);
        });
    }
}

// Closing the view ends the waits of the work for room in the queue and for paints.
Document::Parts::~Parts() {
    mDispatcher.close();
    mEnd.request_stop();
    for (TaskThread& lane : mLanes) {
        lane.stop();
    }
    if (const auto last = view()) {
        last->close();
    }
}

// Closes the old view first, because the new one listens to the same notifications.
// Releases the old view's state segment only when the new view has it.
Failure Document::Parts::open(unsigned int restoreFrom, const CallLimits& limits) {
    const Lock opening(mOpening);
    if (const auto before = view()) {
        before->close();
    }
    const EitherStop stop(limits.stop, mEnd.get_token());
    auto opened = View::open(bus, createRequest(path, options, *frame(), restoreFrom),
                             {limits.timeout, stop.token(), limits.onProgress},
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
        const Lock lock(mViewMutex);
        mView.swap(*opened);
    }
    requestPaint(false);
    return std::nullopt;
}

std::shared_ptr<View> Document::Parts::view() const {
    const Lock lock(mViewMutex);
    return mView;
}

std::shared_ptr<const FrameBuffer> Document::Parts::frame() const {
    const Lock lock(mViewMutex);
    return mFrame;
}

// No paint is under way meanwhile, so that none ends up in the old frame.
Failure Document::Parts::resize(int width, int height, const CallLimits& limits) {
    Result<FrameBuffer> created = FrameBuffer::create(width, height);
    if (!created) {
        return created.error();
    }
    auto next = std::make_shared<const FrameBuffer>(std::move(*created));
    const Lock opening(mOpening);
    {
        const Lock painting(mPainting);
        if (Failure failure = askAfterInput(touch::resize(*next), limits)) {
            return failure;
        }
        const Lock lock(mViewMutex);
        mFrame.swap(next);
    }
    requestPaint(false);
    return std::nullopt;
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
        lectern::tell(*events, record);
    });
}

Failure Document::Parts::paint(const CallLimits& limits) {
    const Lock painting(mPainting);
    return view()->paint(limits);
}

Result<std::shared_ptr<const FrameBuffer>> Document::Parts::paintItself(bool afterInput,
                                                                        const std::stop_token& stop) {
    const std::shared_ptr<View> current = view();
    if (current == nullptr) { // requested during the first open, which requests again at its end
        return Error{Error::Kind::Cancelled, "not open yet", 0, {}};
    }
    if (afterInput) {
        mOthersWait = !current->settle(mOthersWait ? CROWDED_PATIENCE : SETTLE_PATIENCE);
    }
    CallLimits limits;
    limits.stop = stop;
    const Lock painting(mPainting);
    if (Failure failure = view()->paint(limits)) {
        return *failure;
    }
    return frame();
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

Failure Document::Parts::sendTouch(const ClientServerMessage& message) {
    if (options.manners == Manners::Touch) {
        return send(message);
    }
    return Error{Error::Kind::Argument, "the document was opened without touch manners", 0, {}};
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

// How a drag on a sheet ends with classic manners
//
// The service measures a sheet and renders the cells around the view only when a
// glide ends. A drag that ends without a flick would leave the view at cells that are
// not measured. So the library ends it with the slowest flick there is, in four steps:
//
//  1. Queue: a pen move to the place of the pen up. The flick makes a glide of the
//     contact, and the view ignores the place of a pen up that follows a flick.
//  2. Settle: askAfterInput() waits until the service has taken the queue's records, moves
//     included. The flick goes over the bus and would overtake them.
//  3. Bus: handleFlick with a velocity of -1. The glide lasts SLOWEST_GLIDE and ends at
//     the pixel where it began. mRestFrom is the time when it has ended.
//  4. Queue: the pen up. It comes after the flick, because a view takes a flick for
//     part of the contact that is under way.
//
// A service that is busy for longer than REST_PATIENCE gets its pen up all the same:
// the sheet comes to rest with the next drag. Document::settle waits for mRestFrom
// too, so that a paint after it shows the sheet at rest. A program that flicks by
// itself, before its pen up, has done all of this: `flicked` leaves steps 1 to 3 out.
Failure Document::Parts::sendPen(ClientMessageType type, int x, int y) {
    bool dragEnds = false;
    {
        const Lock lock(mPenMutex);
        if (type == _PEN_DOWN) {
            mContact = {true, x, y};
        }
        mContact.dragged = mContact.dragged || mContact.downX != x || mContact.downY != y;
        dragEnds = type == _PEN_UP && mContact.active && mContact.dragged && !mContact.flicked;
        mContact.active = mContact.active && type != _PEN_UP;
    }
    const bool restsLate = options.manners == Manners::Classic;
    if (restsLate && dragEnds && view()->kind() == static_cast<int>(DocumentKind::Spreadsheet)) {
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
Failure Document::Parts::askAfterInput(const Call<void>& call, const CallLimits& limits) {
    const std::shared_ptr<View> current = view();
    if (Failure failure = current->ended()) {
        return failure;
    }
    current->settle(PEN_PATIENCE);
    const Result<std::string> reply = ask(call.request, limits);
    requestPaint(false);
    return reply ? call.read(*reply) : reply.error();
}

Result<std::string> Document::Parts::ask(const Request& request, const CallLimits& limits) {
    const std::shared_ptr<View> current = view();
    if (Failure failure = current->ended()) {
        return *failure;
    }
    const EitherStop stop(limits.stop, mEnd.get_token());
    return lectern::ask(bus, current->docid(), request, {limits.timeout, stop.token(), limits.onProgress});
}

void Document::Parts::later(Lane lane, std::function<void(const std::stop_token& stop)> task,
                            std::stop_token callers) {
    mLanes.at(static_cast<size_t>(lane))
        .post([task = std::move(task), callers = std::move(callers)](const std::stop_token& end) {
            const EitherStop either(callers, end);
            task(either.token());
        });
}

// A flick outside of a pen contact is followed by a pen up; otherwise the view
// would take the next contact for the flick's.
Failure Document::Parts::flick(int velocityX, int velocityY, const CallLimits& limits) {
    Failure failure = askAfterInput(events::handleFlick(velocityX, velocityY), limits);
    bool alone = false;
    {
        const Lock lock(mPenMutex);
        mContact.flicked = true;
        alone = !mContact.active;
    }
    return failure || !alone ? failure : sendPoint(_PEN_UP, 0, 0);
}

Failure Document::Parts::slowFlick(const CallLimits& limits) {
    Failure failure = askAfterInput(events::handleFlick(0, SLOWEST), limits);
    const Lock lock(mPenMutex);
    mRestFrom = Clock::now() + SLOWEST_GLIDE;
    return failure;
}

Failure Document::Parts::comeToRest(const CallLimits& limits) {
    if (options.manners == Manners::Touch) {
        return std::nullopt;
    }
    Failure failure = slowFlick(limits);
    return failure ? failure : sendPoint(_PEN_UP, 0, 0);
}

void Document::Parts::settle() {
    view()->settle(SETTLE_PATIENCE);
    Clock::time_point rest;
    {
        const Lock lock(mPenMutex);
        rest = mRestFrom;
    }
    std::this_thread::sleep_until(rest);
}

} // namespace lectern

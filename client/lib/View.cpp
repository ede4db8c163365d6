// SPDX-License-Identifier: Apache-2.0
#include "client/lib/View.h"

#include "client/lib/Errors.h"

#include <algorithm>
#include <utility>

namespace lectern {

namespace {

using Clock = std::chrono::steady_clock;

// How long to wait when the queue is full; a service that reads nothing for so
// long hangs.
constexpr std::chrono::milliseconds QUEUE_PATIENCE{10'000};
// How long to wait for the opened record with classic manners: it follows the reply at
// once.
constexpr std::chrono::milliseconds OPENED_PATIENCE{10'000};
// How often a wait checks that the bus is still connected: for a paint, and for an open,
// of whose progress it tells as often as a call does.
constexpr std::chrono::milliseconds BETWEEN_CHECKS{1'000};
constexpr std::chrono::milliseconds BETWEEN_OPEN_CHECKS{250};
// The longest sleep while the opened record is awaited, which wakes its waiter.
constexpr std::chrono::milliseconds OPENED_STEP{100};
// How often a paint looks for its answer: at first as fast as the quickest paint
// comes, then after an eighth of the time waited, so that looking late costs at most
// that share, and a slow paint few wake-ups.
constexpr std::chrono::microseconds FIRST_LOOK{50};
constexpr std::chrono::microseconds LAST_LOOK{4'000};
constexpr int LOOKS_SHARE = 8;

std::chrono::microseconds betweenLooks(std::chrono::microseconds waited) {
    return std::clamp(waited / LOOKS_SHARE, FIRST_LOOK, LAST_LOOK);
}
// How long the start of a contact waits for the end of the previous one to be taken.
constexpr std::chrono::milliseconds ORDER_PATIENCE{1'000};

Error goneError() {
    return {Error::Kind::Gone, "the document service has stopped; open the document again", 0, {}};
}

} // namespace

Result<std::shared_ptr<View>> View::open(const Bus& bus, const events::CreateRequest& request,
                                         const CallLimits& limits, ViewListener listener) {
    Result<events::CreateReply> created = events::create(bus, request, limits);
    if (!created) {
        return created.error();
    }
    Result<StateSegment> state = StateSegment::attach(created->state);
    if (!state) {
        (void)events::destroy(bus, created->docid, created->owner); // the first failure is the one to tell
        return state.error();
    }
    std::shared_ptr<View> view(new View(bus, std::move(*created), std::move(*state), std::move(listener)));
    if (Failure failure = view->listen()) {
        return *failure;
    }
    const Result<int> result =
        view->openResult(request.touch ? limits : CallLimits{OPENED_PATIENCE, limits.stop, {}});
    if (!result) {
        if (request.touch) {
            (void)touch::cancel(bus, view->docid(), view->owner()); // it is destroyed in any case
        }
        return result.error();
    }
    if (*result != 0) {
        // With touch manners, passwords open presentations too.
        const auto kind = request.touch ? DocumentKind::Unknown : static_cast<DocumentKind>(view->kind());
        return documentError(request.path, kind, *result);
    }
    return view;
}

Failure View::listen() {
    if (Failure failure = mQueue.connect()) {
        return failure;
    }
    discardOldAnswers();
    const auto onGone = [this] { endWith(Life::Gone); };
    auto reader = RecordReader::start(
        static_cast<long>(mState.identifier()),
        [this](const ServerClientMessage& message) { takeRecord(message); }, onGone);
    if (!reader) {
        return reader.error();
    }
    Attendants attendants{std::move(*reader), std::make_unique<ServiceWatch>(mBus, owner(), onGone),
                          std::make_unique<KeepAlive>(mBus, KeepAlive::DEFAULT_PERIOD, onGone)};
    const Lock lock(mAttendantsMutex);
    mAttendants.emplace(std::move(attendants));
    return std::nullopt;
}

void View::close() {
    Life before = Life::Closed;
    {
        const Lock lock(mMutex);
        before = std::exchange(mLife, Life::Closed);
        mArrived.notify_all();
    }
    std::optional<Attendants> leaving;
    {
        const Lock lock(mAttendantsMutex);
        leaving.swap(mAttendants);
    }
    leaving.reset(); // may wait for a thread that takes the mutex
    if (before == Life::Open) {
        {
            const Lock lock(mMutex);
            takePaintsDone();
        }
        // They fail only when the bus is lost, which ends the service, too.
        (void)events::destroy(mBus, docid(), owner());
        (void)mBus.flush();
    }
}

// The reader is stopped at once: another client's new document may soon have the
// number that it listens to.
void View::endWith(Life life) {
    {
        const Lock lock(mMutex);
        if (mLife != Life::Open) {
            return;
        }
        mLife = life;
        mArrived.notify_all();
    }
    {
        const Lock lock(mAttendantsMutex);
        if (mAttendants) {
            mAttendants->reader->stop();
        }
    }
    mListener.onGone();
}

Failure View::ended() const {
    const Lock lock(mMutex);
    return mLife == Life::Open ? Failure() : goneError();
}

void View::takeRecord(const ServerClientMessage& message) {
    if (message.id == _OPENED) {
        const Lock lock(mMutex);
        mOpenResult = message.extra;
        mArrived.notify_all();
    }
    mListener.onRecord(message);
}

// Answers to paints that an earlier view of this number had given up, or they would
// be taken for those of this view.
void View::discardOldAnswers() {
    ServerClientMessage message;
    while (mQueue.tryTake(paintDoneAddress(), message)) {
    }
}

void View::takePaintsDone() {
    ServerClientMessage message;
    while (mLife != Life::Gone && mQueue.tryTake(paintDoneAddress(), message)) {
        ++mPaintsDone;
        mPaintResult = message.value;
        mRenderResult = message.extra;
    }
}

template<typename Condition>
Failure View::await(const char* what, const CallLimits& limits, const Pace& pace, Condition condition) {
    const Clock::time_point start = Clock::now();
    Clock::time_point nextCheck = start + pace.betweenChecks;
    Lock lock(mMutex);
    const auto over = [&]() NO_THREAD_SAFETY_ANALYSIS { return condition() || mLife != Life::Open; };
    Clock::time_point now = start;
    const auto sleep = [&] {
        return pace.nextLook(std::chrono::duration_cast<std::chrono::microseconds>(now - start));
    };
    while (!mArrived.wait_for(lock, limits.stop, sleep(), over)) {
        now = Clock::now();
        const auto elapsed = std::chrono::duration_cast<std::chrono::milliseconds>(now - start);
        if (limits.stop.stop_requested()) {
            return cancelledError();
        }
        if (elapsed >= limits.timeout) {
            return Error{
                Error::Kind::TimedOut, std::string("the service did not ") + what + " in time", 0, {}};
        }
        if (now < nextCheck) {
            continue;
        }
        nextCheck = now + pace.betweenChecks;
        if (mBus.isClosed()) {
            return goneError();
        }
        if (limits.onProgress) {
            lock.unlock();
            limits.onProgress(elapsed);
            lock.lock();
        }
    }
    return condition() ? Failure() : goneError();
}

Result<int> View::openResult(const CallLimits& limits) {
    if (Failure failure =
            await("report the result of the open", limits,
                  {[](std::chrono::microseconds) -> std::chrono::microseconds { return OPENED_STEP; },
                   BETWEEN_OPEN_CHECKS},
                  [this]() REQUIRES(mMutex) { return mOpenResult.has_value(); })) {
        return *failure;
    }
    const Lock lock(mMutex);
    return *mOpenResult;
}

// Replies come in the order of the requests and are counted, so a reply to a
// request that was given up is not taken for a later one's.
Failure View::paint(const CallLimits& limits) {
    if (Failure failure = send(ClientServerMessage(_PAINT, docid()))) {
        return failure;
    }
    const unsigned int wanted = ++mPaintsAsked;
    const auto isDone = [this, wanted]() REQUIRES(mMutex) {
        takePaintsDone();
        return mPaintsDone >= wanted;
    };
    if (Failure failure = await("paint", limits, {&betweenLooks, BETWEEN_CHECKS}, isDone)) {
        return failure;
    }
    const Lock lock(mMutex);
    if (mPaintResult != 0) {
        return refusalError("errDoesNotExist", {});
    }
    return mRenderResult == 0 ? Failure() : paintError(mRenderResult);
}

// The service takes the record with the lowest type first. A pen up may
// overtake moves, because it includes the pen's position; the start of a
// contact must not overtake the end of the previous one.
Failure View::send(ClientServerMessage message) {
    const bool begins = message.type == _PEN_DOWN || message.type == _GESTURE_START ||
                        (message.type == _PINCH && message.pinchPhase() == _PINCH_BEGINS);
    if (begins && mHighestSent > message.type) {
        settle(ORDER_PATIENCE);
    }
    if (Failure failure = ended()) {
        return failure;
    }
    long highest = mHighestSent;
    while (message.type > highest && !mHighestSent.compare_exchange_weak(highest, message.type)) {
    }
    message.docid = docid();
    Failure failure = mQueue.post(message, QUEUE_PATIENCE, [this] { return ended(); });
    if (failure && failure->kind == Error::Kind::System) {
        endWith(Life::Gone);
        return goneError();
    }
    return failure;
}

bool View::settle(std::chrono::milliseconds patience) {
    const long before = mHighestSent;
    const bool settled = mQueue.settle(patience, [this] {
        const Lock lock(mMutex);
        takePaintsDone();
        return mLife == Life::Open;
    });
    if (settled) {
        long expected = before;
        mHighestSent.compare_exchange_strong(expected, 0);
    }
    return settled;
}

} // namespace lectern

// SPDX-License-Identifier: Apache-2.0
#include "client/Document.h"

#include <filesystem>

#include "client/Errors.h"
#include "client/EventCalls.h"

namespace lectern {

namespace {

using Clock = std::chrono::steady_clock;

// How long a full queue is waited for; a service that does not read for so long
// hangs.
constexpr std::chrono::milliseconds queuePatience{10'000};
// The opened record follows the reply at once.
constexpr std::chrono::milliseconds openedPatience{10'000};
// How often a wait makes sure that the service is still there.
constexpr std::chrono::milliseconds betweenChecks{1'000};

} // namespace

Result<std::unique_ptr<Document>> Document::open(const Bus& bus, const std::string& path,
                                                 const OpenOptions& options) {
    std::error_code unusable;
    const std::string absolute = std::filesystem::absolute(path, unusable);
    if (unusable) {
        return Error{Error::Kind::argument, "'" + path + "' is not a path", 0, {}};
    }
    Result<FrameBuffer> frame = FrameBuffer::create(options.width, options.height);
    if (!frame) {
        return frame.error();
    }
    const events::CreateRequest request{absolute,
                                        options.width,
                                        options.height,
                                        frame->identifier(),
                                        static_cast<int>(frame->size()),
                                        options.restoreFrom,
                                        options.password};
    const Result<events::CreateReply> reply = events::create(bus, request, {options.timeout, options.stop});
    if (!reply) {
        return reply.error();
    }
    Result<StateSegment> state = StateSegment::attach(reply->state);
    if (!state) {
        events::destroy(bus, reply->docid);
        return state.error();
    }
    std::unique_ptr<Document> document(new Document(bus, std::move(*frame), std::move(*state), reply->docid,
                                                    static_cast<DocumentKind>(reply->kind)));
    if (Failure failure = document->listen(options.onNotification)) {
        return *failure;
    }
    const Result<int> result = document->openResult({openedPatience, options.stop});
    if (!result) {
        return result.error();
    }
    if (*result != 0) {
        return documentError(path, *result);
    }
    return document;
}

// What is sent after this is in nobody's way: the readers are gone before
// "destroy" lets the numbers they listen to be used again.
Document::~Document() {
    mKeepAlive.reset();
    mPaintReader.reset();
    mViewReader.reset();
    events::destroy(mBus, mDocid);
}

Failure Document::listen(std::function<void(const ServerClientMessage&)> onNotification) {
    mOnNotification = std::move(onNotification);
    if (Failure failure = mQueue.connect()) {
        return failure;
    }
    auto view = RecordReader::start(static_cast<long>(mState.identifier()),
                                    [this](const ServerClientMessage& message) { takeViewRecord(message); });
    if (!view) {
        return view.error();
    }
    mViewReader = std::move(*view);
    auto paint = RecordReader::start(mDocid + DocAdapterMessageQueue::paintDoneBase,
                                     [this](const ServerClientMessage& message) { takePaintDone(message); });
    if (!paint) {
        return paint.error();
    }
    mPaintReader = std::move(*paint);
    mKeepAlive.emplace(mBus);
    return std::nullopt;
}

void Document::takeViewRecord(const ServerClientMessage& message) {
    if (message.id == _OPENED) {
        const std::lock_guard lock(mMutex);
        mOpenResult = message.extra;
        mArrived.notify_all();
    } else if (mOnNotification) {
        mOnNotification(message);
    }
}

void Document::takePaintDone(const ServerClientMessage& message) {
    const std::lock_guard lock(mMutex);
    ++mPaintsDone;
    mPaintResult = message.value;
    mArrived.notify_all();
}

template<typename Condition>
Failure Document::await(const char* what, const CallLimits& limits, Condition condition) {
    const Clock::time_point deadline = Clock::now() + limits.timeout;
    std::unique_lock lock(mMutex);
    while (!mArrived.wait_for(lock, limits.stop, betweenChecks, condition)) {
        if (limits.stop.stop_requested()) {
            return Error{Error::Kind::cancelled, "interrupted", 0, {}};
        }
        lock.unlock();
        if (!mBus.serviceRuns()) {
            return Error{Error::Kind::bus, "the document service has stopped", 0, {}};
        }
        if (Clock::now() >= deadline) {
            return Error{
                Error::Kind::timedOut, std::string("the service did not ") + what + " in time", 0, {}};
        }
        lock.lock();
    }
    return std::nullopt;
}

Result<int> Document::openResult(const CallLimits& limits) {
    if (Failure failure =
            await("tell how the open ended", limits, [this] { return mOpenResult.has_value(); })) {
        return *failure;
    }
    return *mOpenResult;
}

// Answers come in the order of the requests: one that comes after its wait has
// been given up is counted, and not taken for that of a later request.
Failure Document::paint(const CallLimits& limits) {
    if (Failure failure = send(record(_PAINT))) {
        return failure;
    }
    const unsigned int wanted = ++mPaintsAsked;
    if (Failure failure = await("paint", limits, [this, wanted] { return mPaintsDone >= wanted; })) {
        return failure;
    }
    const std::lock_guard lock(mMutex);
    return mPaintResult == 0 ? Failure() : refusalError("errDoesNotExist", {});
}

// Every byte that crosses the queue is set.
ClientServerMessage Document::record(ClientMessageType type) const {
    ClientServerMessage message(type, mDocid);
    message.setReals(0, 0);
    return message;
}

Failure Document::sendPoint(ClientMessageType type, int x, int y) {
    ClientServerMessage message = record(type);
    message.x = x;
    message.y = y;
    return send(message);
}

Failure Document::sendFactor(ClientMessageType type, double factor) {
    ClientServerMessage message = record(type);
    message.setReals(factor, 0);
    return send(message);
}

Failure Document::wideMode(bool on) {
    ClientServerMessage message = record(_WIDE_MODE);
    message.setFlag(on);
    return send(message);
}

Failure Document::send(const ClientServerMessage& message) {
    return mQueue.post(message, queuePatience);
}

void Document::settle() const {
    constexpr std::chrono::milliseconds patience{2'000};
    mQueue.settle(patience);
}

} // namespace lectern

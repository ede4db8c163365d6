// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/lib/ClientQueue.h"
#include "client/lib/KeepAlive.h"
#include "client/lib/RecordReader.h"
#include "client/lib/ServiceWatch.h"
#include <lectern/Bus.h>
#include <lectern/EventCalls.h>
#include <lectern/StateSegment.h>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace lectern {

// Who is told what happens to a view, on threads of the view's.
struct ViewListener {
    std::function<void(const ServerClientMessage&)> onRecord; // all but paint-done
    std::function<void()> onGone;                             // once, if ever
};

// One view in one process of the service, from "create" to "destroy". When that
// process goes away, the view is gone: calls fail with Error::Kind::Gone at
// once, and only the state segment is left of it.
//
// Threads: paints one after the other, everything else from any.
class View {
public:
    // Nothing is left in the service of a view that cannot be opened.
    static Result<std::shared_ptr<View>> open(const Bus& bus, const events::CreateRequest& request,
                                              const CallLimits& limits, ViewListener listener);
    ~View() { close(); }
    View(const View&) = delete;
    View& operator=(const View&) = delete;

    int docid() const { return mCreated.docid; }
    int kind() const { return mCreated.kind; }
    const std::string& owner() const { return mCreated.owner; }
    const StateSegment& state() const { return mState; }

    // Nothing while the view is open, else why nothing can be done with it.
    Failure ended() const;
    Failure paint(const CallLimits& limits);
    Failure send(ClientServerMessage message);
    // True when everything sent has been taken from the queue.
    bool settle(std::chrono::milliseconds patience);

    // Ends it in the service, where that still has it, and the readers: from
    // here on others may use the numbers they listened to.
    void close();

private:
    enum class Life { Open, Gone, Closed };
    // What works for an open view in threads of its own.
    struct Attendants {
        std::unique_ptr<RecordReader> viewReader;
        std::unique_ptr<RecordReader> paintReader;
        std::unique_ptr<ServiceWatch> watch;
        std::unique_ptr<KeepAlive> keepAlive;
    };

    View(const Bus& bus, events::CreateReply created, StateSegment state, ViewListener listener)
        : mBus(bus), mCreated(std::move(created)), mState(std::move(state)), mListener(std::move(listener)) {}

    Failure listen();
    void takeRecord(const ServerClientMessage& message);
    void takePaintDone(const ServerClientMessage& message);
    Result<int> openResult(const CallLimits& limits);
    void endWith(Life life);
    // Waits until the condition, which is tested with mMutex held, is true.
    template<typename Condition>
    Failure await(const char* what, const CallLimits& limits, Condition condition);

    const Bus mBus;
    const events::CreateReply mCreated;
    const StateSegment mState;
    const ViewListener mListener;
    ClientQueue mQueue;

    mutable std::mutex mMutex; // guards what the readers and the watch write
    std::condition_variable_any mArrived;
    Life mLife = Life::Open;
    std::optional<int> mOpenResult;
    unsigned int mPaintsAsked = 0;
    unsigned int mPaintsDone = 0;
    int mPaintResult = 0;

    std::atomic<long> mHighestSent{0}; // type of what may still wait in the queue
    std::mutex mAttendantsMutex;       // taken last
    std::optional<Attendants> mAttendants;
};

} // namespace lectern

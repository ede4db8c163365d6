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

// Callbacks about a view, called on the view's threads.
struct ViewListener {
    std::function<void(const ServerClientMessage&)> onRecord; // all records except paint-done
    std::function<void()> onGone;                             // at most once
};

// One view in one process of the service, from "create" to "destroy". When that
// process ends, the view is gone: calls fail at once with Error::Kind::Gone,
// and only the state segment remains.
//
// Threads: do not call paint concurrently; any thread may call the other
// functions.
class View {
public:
    // Opens a view. When that fails, nothing of it remains in the service.
    static Result<std::shared_ptr<View>> open(const Bus& bus, const events::CreateRequest& request,
                                              const CallLimits& limits, ViewListener listener);
    ~View() { close(); }
    View(const View&) = delete;
    View& operator=(const View&) = delete;

    int docid() const { return mCreated.docid; }
    int kind() const { return mCreated.kind; }
    const std::string& owner() const { return mCreated.owner; }
    const StateSegment& state() const { return mState; }

    // Returns nothing while the view is open, and otherwise the error for
    // further calls.
    Failure ended() const;
    Failure paint(const CallLimits& limits);
    Failure send(ClientServerMessage message);
    // Returns true when all sent records have been taken from the queue.
    bool settle(std::chrono::milliseconds patience);

    // Destroys the view in the service, if it still exists there, and stops the
    // readers; after that others may use their addresses.
    void close();

private:
    enum class Life { Open, Gone, Closed };
    // The objects that work for an open view in their own threads.
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
    // Waits until the condition, which is evaluated with mMutex held, is true.
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

    std::atomic<long> mHighestSent{0}; // highest type of the records that may be queued
    std::mutex mAttendantsMutex;       // taken after all other mutexes
    std::optional<Attendants> mAttendants;
};

} // namespace lectern

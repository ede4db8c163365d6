// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/Mutex.h"
#include "client/lib/ClientQueue.h"
#include "client/lib/KeepAlive.h"
#include "client/lib/RecordReader.h"
#include "client/lib/ServiceWatch.h"
#include "client/lib/ViewCalls.h"
#include <lectern/Bus.h>
#include <lectern/StateSegment.h>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace lectern {

// Callbacks about a view, called on the view's threads.
struct ViewListener {
    std::function<void(const ServerClientMessage&)> onRecord; // all records except paint-done
    std::function<void()> onGone;                             // at most once
};

// The threads of a document
//
//   lectern-records  one for each view (RecordReader). Takes the service's records of
//                    the view from the queue, so that they never fill it. Stores the
//                    result of the open in the view and posts callbacks.
//   lectern-paints   one for each document that paints by itself (Painter). Sends a
//                    paint and looks for its answer in the queue until that is there.
//                    It alone has the service write to the frame buffer.
//   lectern-input, lectern-frames, lectern-calls
//                    one for each lane of a document that has had work (TaskThread). Do
//                    the program's work: input, paints, calls. Each call blocks its lane,
//                    so a lane waits for the service, and nothing else waits for a lane.
//   lectern-events   one for each document without a main context (Dispatcher). Calls
//                    the program's functions, one after the other. With a context, the
//                    program's loop does this.
//   lectern-pings    one for each connection (KeepAlive), for all of its documents.
//                    Pings the service and notices when the connection is lost.
//   GDBus            the connection's own thread. ServiceWatch notices on it when the
//                    service leaves the bus.
//   the program's    any number of threads, in any call.
//
// They meet in four places. View::mMutex guards what is known of the view; it is held
// for short reads and writes and never during a callback, a bus call or a wait. The
// Dispatcher's outbox takes callbacks from every thread and never blocks one. The
// Painter's state holds the next request, and keeps the next paint waiting until the
// program has looked at the last picture. A TaskThread's mutex guards the work that has
// not begun; it is free while work is done or dropped. Records, pings and GDBus's thread never wait
// for the program, so a slow callback delays only paints and later callbacks.
//
// The answer to a paint has no reader of its own: whoever waits for it takes it, and
// View::settle takes what came too late. A System V queue can be waited on for only one
// address at a time, and a second reader would only hand the answer over.
//
// The end of a view: close() stops lectern-records with a record to itself, or cancels it
// where the queue is full, then leaves the watch and the pings, each of which waits for a
// call that is going on. mMutex and mAttendantsMutex are free during this, because such a
// call may want them.
//
// The end of a document, in this order: the outbox is closed, so that no callback runs any
// more; the bus calls that go on are cancelled and the lanes' work that has not begun is
// dropped; the view is closed, which ends the waits for a paint and for room in the queue;
// the lanes and the painter are joined. A callback may end the document: nothing of this
// waits for lectern-events or for the program's loop when they do it.

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

    // Ends it in the service, where that still has it, and the reader: from here on
    // others may use the numbers of the view.
    void close();

private:
    enum class Life { Open, Gone, Closed };
    // How often a wait looks, which the time waited so far tells, and how often it checks
    // the bus and tells of its progress.
    struct Pace {
        std::chrono::microseconds (*nextLook)(std::chrono::microseconds waited);
        std::chrono::milliseconds betweenChecks;
    };
    // What listens for an open view, on threads of its own and of the connection.
    struct Attendants {
        std::unique_ptr<RecordReader> reader;
        std::unique_ptr<ServiceWatch> watch;
        std::unique_ptr<KeepAlive> keepAlive;
    };

    View(const Bus& bus, events::CreateReply created, StateSegment state, ViewListener listener)
        : mBus(bus), mCreated(std::move(created)), mState(std::move(state)), mListener(std::move(listener)) {}

    Failure listen();
    void takeRecord(const ServerClientMessage& message);
    long paintDoneAddress() const { return docid() + DocAdapterMessageQueue::PAINT_DONE_BASE; }
    void discardOldAnswers();
    // Counts the answers to paints that have come.
    void takePaintsDone() REQUIRES(mMutex);
    Result<int> openResult(const CallLimits& limits);
    void endWith(Life life);
    // Waits until the condition, which is tested with mMutex held, is true; tests it
    // when something has arrived, and at its own pace. The analysis cannot tell that a lambda's mutex is this
    // view's.
    template<typename Condition>
    Failure await(const char* what, const CallLimits& limits, const Pace& pace,
                  Condition condition) NO_THREAD_SAFETY_ANALYSIS;

    const Bus mBus;
    const events::CreateReply mCreated;
    const StateSegment mState;
    const ViewListener mListener;
    ClientQueue mQueue;

    mutable Mutex mMutex;
    std::condition_variable_any mArrived;
    Life mLife GUARDED_BY(mMutex) = Life::Open;
    std::optional<int> mOpenResult GUARDED_BY(mMutex);
    unsigned int mPaintsAsked = 0; // used by the thread that paints only
    unsigned int mPaintsDone GUARDED_BY(mMutex) = 0;
    int mPaintResult GUARDED_BY(mMutex) = 0;
    int mRenderResult GUARDED_BY(mMutex) = 0;

    std::atomic<long> mHighestSent{0}; // highest type of the records that may be queued
    Mutex mAttendantsMutex;            // taken after all other mutexes
    std::optional<Attendants> mAttendants GUARDED_BY(mAttendantsMutex);
};

} // namespace lectern

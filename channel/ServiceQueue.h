// SPDX-License-Identifier: Apache-2.0
// The service's end of the queue: one that cannot be stopped by a full queue.
//
// Both directions share one queue of 16,384 bytes by default: 819 records of a
// client, or 1,365 of the service. With sends that wait for room there are two
// ways to a stop for good. A client that posts pen moves while the worker
// paints fills it; then the client waits for the worker, and the worker, about
// to report the paint, for room. And a client that never reads its
// notifications fills it with them; then the main thread waits for ever, with
// the registry locked. Neither client has to be malicious.
//
// So nothing here waits for room. A send that finds the queue full
//   1. takes the waiting client records off into a backlog in memory, which the
//      worker's read serves together with the queue: lowest type first, oldest
//      first. What is in the backlog is older than what is in the queue, so of
//      equal types the backlog's goes first;
//   2. where there are none, gives up the undelivered output that is missed
//      least, until the new record fits.
// For output the queue counts as full while a client's record still fits:
// otherwise output that nobody reads would shut out every client, whom the
// system puts to sleep until there is room for it, and the wake record below.
// Taking records away from under a worker that was about to sleep on them
// would let it sleep: a record of type 99 for document -1, which names no
// document, is posted to wake it.
//
// The read must not take a record while it does not hold the lock, or it could
// not tell afterwards whether that record is older than those that a sender
// moved to the backlog meanwhile. Therefore it waits without taking anything,
// by asking for a record with no text at all: the system answers "too big" as
// soon as one is there, and leaves it where it is.
#pragma once

#include "base/Mutex.h"
#include "channel/Backlog.h"
#include "channel/DocAdapterCommon.h"

#include <cstddef>
#include <cstdint>
#include <vector>

// Thread-safe: any thread sends, one thread reads. Its lock is the last one
// taken, after the registry's and a view's, and is never held while waiting.
class ServiceQueue : public DocAdapterMessageQueue {
public:
    // The worker's read, of the lowest waiting type: blocks for a record.
    // Bytes read, or -1. While it blocks, and only then, it is a point where
    // the thread may be cancelled, whatever its own state; no lock is held.
    long ReadMessage(ClientServerMessage& message);

    // Sends without waiting: 0, or -1. A type of 99 or less is no addressee (the
    // service would read it itself) and is refused.
    int SendMessage(const ServerClientMessage& message);
    // Posts a record to the worker.
    int SendMessage(const ClientServerMessage& message);
    // Answers a paint request. A docid whose answer cannot be addressed gets
    // none: 0 as well, for it is the client's mistake alone.
    int SendPaintDone(int32_t docid, int32_t value);

    // Throws away what waits for an addressee that has gone, so that the next
    // one of that number does not get it.
    void Discard(long addressee);

private:
    template<typename Record>
    int sendNow(const Record& message, long addressee) REQUIRES(mMutex);
    template<typename Record>
    int post(const Record& message, long addressee) REQUIRES(mMutex);
    long takeNext(ClientServerMessage& message) REQUIRES(mMutex);
    bool hasRoom(size_t size) REQUIRES(mMutex);
    bool makeRoom(long addressee, size_t size) REQUIRES(mMutex);
    size_t waitingNow() REQUIRES(mMutex);
    bool moveToBacklog() REQUIRES(mMutex);
    void keep(const ClientServerMessage& message) REQUIRES(mMutex);
    void giveUpOutput(long addressee, size_t capacity) REQUIRES(mMutex);
    void takeOutput(std::vector<ServerClientMessage>& waiting) REQUIRES(mMutex);

    long awaitRecord(ClientServerMessage& message);

    lectern::Mutex mMutex;
    Backlog mBacklog GUARDED_BY(mMutex);
    // Records went to the backlog, and the worker may sleep.
    bool mWakeOwed GUARDED_BY(mMutex) = false;
};

// The one queue object of the service; exists before main, with no queue open.
extern ServiceQueue g_msgQueue;

// SPDX-License-Identifier: Apache-2.0
// The service's end of the queue: one that cannot be stopped by a full queue.
//
// Both directions share one queue of 16,384 bytes by default: 819 records of a
// client, or 1,365 of the service. If sends waited for room, there would be two
// ways to a deadlock. A client that posts pen moves while the worker paints fills
// the queue; then the client waits for the worker, and the worker, about to report
// the paint, for room. And a client that never reads its notifications fills the
// queue with them; then the main thread waits for ever, with the registry locked.
// Neither client has to be malicious.
//
// So nothing here waits for room. A send that finds the queue full
//   1. takes the waiting client records off into a backlog in memory, which the
//      worker's read serves together with the queue: lowest type first, oldest
//      first. What is in the backlog is older than what is in the queue, so of
//      equal types the backlog's goes first;
//   2. where there are none, gives up the least important undelivered output
//      (see Undelivered.h), until the new record fits.
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

// Thread-safe: any thread sends, one thread at a time reads. Its lock is the last one
// taken, after the registry's and a view's, and is never held while waiting.
class ServiceQueue : public DocAdapterMessageQueue {
public:
    // The worker's read: waits for a record and takes the one of the lowest type.
    // Returns the number of bytes read, or -1. While it waits, and only then, the
    // thread can be cancelled, regardless of its own cancel state. It holds no lock
    // then.
    long ReadMessage(ClientServerMessage& message);

    // Sends a record to a client without waiting. Returns 0, or -1. A type of 99 or
    // less is refused with EINVAL, because the service would read it itself.
    int SendMessage(const ServerClientMessage& message);
    // Posts a record to the worker without waiting. Returns 0, or -1.
    int SendMessage(const ClientServerMessage& message);
    // Answers a paint request; value is 0 or -4, extra is 0 or the module's code of a
    // rendering that failed. Returns 0, or -1. If docid + 101 is
    // no valid type, sends nothing and returns 0: that is the client's mistake.
    int SendPaintDone(int32_t docid, int32_t value, int32_t extra = 0);

    // Makes the worker's read return soon, with a record for no document if need be.
    void Wake();

    // Throws away all records for an addressee that no longer exists, so that the
    // next one with the same number does not receive them.
    void Discard(long addressee);

private:
    template<typename Record>
    int sendNow(const Record& message, long addressee) REQUIRES(mMutex);
    template<typename Record>
    int post(const Record& message, long addressee) REQUIRES(mMutex);
    void payWake() REQUIRES(mMutex);
    long takeNext(ClientServerMessage& message) REQUIRES(mMutex);
    bool hasRoom(size_t size) REQUIRES(mMutex);
    bool makeRoom(long addressee, size_t size) REQUIRES(mMutex);
    size_t waitingNow() REQUIRES(mMutex);
    bool moveToBacklog() REQUIRES(mMutex);
    void keep(const ClientServerMessage& message) REQUIRES(mMutex);
    void giveUpOutput(long addressee, size_t capacity) REQUIRES(mMutex);
    void takeOutput(std::vector<ServerClientMessage>& waiting) REQUIRES(mMutex);

    long awaitRecord(ClientServerMessage& message) EXCLUDES(mMutex);

    lectern::Mutex mMutex;
    Backlog mBacklog GUARDED_BY(mMutex);
    // The worker may sleep although there is something to do.
    bool mWakeOwed GUARDED_BY(mMutex) = false;
};

// The service's only queue object. It exists before main() and is not open then.
extern ServiceQueue g_msgQueue;

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "channel/DocAdapterCommon.h"
#include <lectern/Result.h>

#include <chrono>
#include <functional>

namespace lectern {

// The client's end of the message queue. Its sends never block in the kernel on a
// full queue, because the service may be waiting for room in the same queue; they
// retry until there is room or the time is up. Any thread may call any function.
class ClientQueue : public DocAdapterMessageQueue {
public:
    // Opens the queue of this IPC namespace; creates it if there is none.
    Failure connect();

    // giveUp: asked while the queue is full; an error that it returns ends the wait.
    Failure post(const ClientServerMessage& message, std::chrono::milliseconds patience,
                 const std::function<Failure()>& giveUp = {}) const;
    // Takes the next record of this address, if one waits. A queue that is gone is no
    // longer open after this.
    bool tryTake(long address, ServerClientMessage& message);
    // The same after a wait for a record, during which the thread can be cancelled.
    // Returns false when the wait was interrupted or the queue is gone.
    bool take(long address, ServerClientMessage& message);
    // Sends a record to a client of this queue; returns false when the queue is full.
    bool tryPost(const ServerClientMessage& message) const;

    // Waits until everything posted has been taken from the queue. The service
    // takes one record at a time, and paints first, so request a paint that
    // must show earlier input only after this. Returns false when records
    // remain after `patience`; on a queue with many users that tells little.
    // whileWaiting: called before each look at the queue, to take what is the
    // caller's own. Returns false to end the wait.
    bool settle(std::chrono::milliseconds patience, const std::function<bool()>& whileWaiting = {}) const;

private:
    // After a read that failed: the queue with this identifier may be gone.
    void closeIfGone(int id);
};

} // namespace lectern

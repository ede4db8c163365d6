// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "channel/DocAdapterCommon.h"
#include <lectern/Result.h>

#include <chrono>
#include <functional>

namespace lectern {

// The client's end of the message queue. No send of it blocks on a full queue,
// because the service may be waiting for room in the same queue: it tries again
// until there is room or the time is up. May be used by several threads.
class ClientQueue : public DocAdapterMessageQueue {
public:
    // Opens the queue of this IPC namespace; makes it when there is none yet.
    Failure connect();

    Failure post(const ClientServerMessage& message, std::chrono::milliseconds patience) const;
    // Takes the next record of this address, if one waits. A queue that is gone is no
    // longer open after this.
    bool tryTake(long address, ServerClientMessage& message);
    // Sends a record to a client of this queue; false when there is no room now.
    bool tryPost(const ServerClientMessage& message) const;

    // Waits until everything posted has been taken from the queue. The service
    // takes one record at a time, paints first: a paint that must show an
    // earlier input is asked for only after this. False when something still
    // waits after the patience; on a queue with many users that means little.
    // whileWaiting: called before each look at the queue, to take what is the
    // caller's own.
    bool settle(std::chrono::milliseconds patience, const std::function<void()>& whileWaiting = {}) const;
};

} // namespace lectern

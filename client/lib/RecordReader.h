// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/lib/ClientQueue.h"

#include <atomic>
#include <functional>
#include <memory>
#include <thread>
#include <utility>

namespace lectern {

// A thread that reads the service's records of one address, as they come, so
// that they never fill the queue. It reads that one type only: a negative type
// would take what is meant for others.
class RecordReader {
public:
    using Handler = std::function<void(const ServerClientMessage&)>;

    // Both handlers are called on the reader's thread, and not after the
    // destructor has returned: one with each record, the other when the queue
    // has vanished, which ends the reader. The address must be above 99.
    static Result<std::unique_ptr<RecordReader>> start(long address, Handler handler,
                                                       std::function<void()> onQueueGone = {});
    // Waits for a handler call that is going on.
    ~RecordReader();
    // Has the reader end soon, without waiting for it.
    void stop();
    RecordReader(const RecordReader&) = delete;
    RecordReader& operator=(const RecordReader&) = delete;

private:
    RecordReader(long address, Handler handler, std::function<void()> onQueueGone)
        : mAddress(address), mHandler(std::move(handler)), mOnQueueGone(std::move(onQueueGone)) {}
    void run();
    ServerClientMessage wakeRecord() const;

    ClientQueue mQueue;
    const long mAddress;
    const Handler mHandler;
    const std::function<void()> mOnQueueGone;
    std::atomic<bool> mWoken{false}; // the record that ends the reader is under way
    std::atomic<bool> mEnded{false};
    std::thread mThread;
};

} // namespace lectern

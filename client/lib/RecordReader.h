// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/lib/ClientQueue.h"

#include <atomic>
#include <functional>
#include <memory>
#include <thread>
#include <utility>

namespace lectern {

// Reads the service's records for one address as they come, in its own thread,
// so that they do not fill the queue. It reads that type only; a negative type
// would also take the records of others.
class RecordReader {
public:
    using Handler = std::function<void(const ServerClientMessage&)>;

    // Starts a reader. `handler` is called with each record, `onQueueGone` when
    // the queue has been removed, which ends the reader. Both run on the
    // reader's thread, and not after destruction. The address must be above 99.
    static Result<std::unique_ptr<RecordReader>> start(long address, Handler handler,
                                                       std::function<void()> onQueueGone = {});
    // Waits for a running handler.
    ~RecordReader();
    // Makes the reader end soon, without waiting for it.
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
    std::atomic<bool> mWoken{false}; // the record that ends the reader has been sent
    std::atomic<bool> mEnded{false};
    std::thread mThread;
};

} // namespace lectern

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <thread>
#include <utility>

#include "client/ClientQueue.h"

namespace lectern {

// A thread that reads the service's records of one address, as they come, so
// that they never fill the queue. It reads that one type only: a negative type
// would take what is meant for others.
class RecordReader {
public:
    using Handler = std::function<void(const ServerClientMessage&)>;

    // The handler is called on the reader's thread, and not after the
    // destructor has returned. The address must be above 99.
    static Result<std::unique_ptr<RecordReader>> start(long address, Handler handler);
    // Waits for a handler call that is going on.
    ~RecordReader();
    RecordReader(const RecordReader&) = delete;
    RecordReader& operator=(const RecordReader&) = delete;

private:
    RecordReader(long address, Handler handler) : mAddress(address), mHandler(std::move(handler)) {}
    void run();

    ClientQueue mQueue;
    const long mAddress;
    const Handler mHandler;
    std::atomic<bool> mEnded{false};
    std::thread mThread;
};

} // namespace lectern

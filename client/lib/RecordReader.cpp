// SPDX-License-Identifier: Apache-2.0
#include "client/lib/RecordReader.h"

#include <pthread.h>

namespace lectern {

Result<std::unique_ptr<RecordReader>> RecordReader::start(long address, Handler handler,
                                                          std::function<void()> onQueueGone) {
    std::unique_ptr<RecordReader> reader(
        new RecordReader(address, std::move(handler), std::move(onQueueGone)));
    if (Failure failure = reader->mQueue.connect()) {
        return *failure;
    }
    reader->mThread = std::thread([self = reader.get()] { self->run(); });
    pthread_setname_np(reader->mThread.native_handle(), "lectern-records");
    return reader;
}

RecordReader::~RecordReader() {
    if (mThread.joinable()) {
        stop();
        mThread.join();
    }
}

void RecordReader::stop() {
    pthread_cancel(mThread.native_handle());
}

void RecordReader::run() {
    pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, nullptr); // except where it waits
    ServerClientMessage message;
    while (mQueue.isOpen()) {
        if (mQueue.take(mAddress, message)) {
            mHandler(message);
        }
    }
    if (mOnQueueGone) {
        mOnQueueGone();
    }
}

} // namespace lectern

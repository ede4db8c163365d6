// SPDX-License-Identifier: Apache-2.0
#include "client/lib/RecordReader.h"

#include <pthread.h>
#include <unistd.h>

#include <cstdint>

namespace lectern {

namespace {

// Id of the record that the reader sends to itself to end a blocked read. No
// service uses it.
constexpr auto WAKE_ID = static_cast<ClientMessageId>(-1);
constexpr std::chrono::milliseconds BEFORE_NEXT_WAKE{20};

} // namespace

Result<std::unique_ptr<RecordReader>> RecordReader::start(long address, Handler handler,
                                                          std::function<void()> onQueueGone) {
    std::unique_ptr<RecordReader> reader(
        new RecordReader(address, std::move(handler), std::move(onQueueGone)));
    if (Failure failure = reader->mQueue.connect()) {
        reader->mEnded = true;
        return *failure;
    }
    reader->mThread = std::thread([self = reader.get()] { self->run(); });
    pthread_setname_np(reader->mThread.native_handle(), "lectern-records");
    return reader;
}

RecordReader::~RecordReader() {
    // The service may drop the record to make room, so send it until the reader has
    // ended. A full queue has no room for it, perhaps for ever: the thread is cancelled.
    while (!mEnded) {
        if (!mWoken) {
            stop();
        }
        if (!mWoken) {
            pthread_cancel(mThread.native_handle());
            break;
        }
        for (auto waited = std::chrono::milliseconds(0); !mEnded && waited < BEFORE_NEXT_WAKE; ++waited) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        mWoken = false;
    }
    if (mThread.joinable()) {
        mThread.join();
    }
}

void RecordReader::stop() {
    mWoken = mQueue.tryPost(wakeRecord());
}

// The record is unique to this reader: one that was sent twice may still be in
// the queue when the next reader of the address starts.
ServerClientMessage RecordReader::wakeRecord() const {
    ServerClientMessage record(mAddress, WAKE_ID);
    record.value = getpid();
    record.extra = static_cast<int32_t>(reinterpret_cast<uintptr_t>(this) / alignof(RecordReader));
    return record;
}

void RecordReader::run() {
    pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, nullptr); // except where it waits
    const ServerClientMessage ownWake = wakeRecord();
    ServerClientMessage message;
    while (mQueue.isOpen()) {
        if (!mQueue.take(mAddress, message)) {
            continue; // interrupted, or the queue was removed and is closed
        }
        if (message.id != WAKE_ID) {
            mHandler(message);
        } else if (message.value == ownWake.value && message.extra == ownWake.extra) {
            mEnded = true;
            return;
        }
    }
    mEnded = true;
    if (mOnQueueGone) {
        mOnQueueGone();
    }
}

} // namespace lectern

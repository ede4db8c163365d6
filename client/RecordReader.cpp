// SPDX-License-Identifier: Apache-2.0
#include "client/RecordReader.h"

namespace lectern {

namespace {

// A blocked read can only be ended by a record: this one, which the reader
// sends to itself, and which no service uses.
constexpr auto wakeId = static_cast<ClientMessageId>(-1);
constexpr std::chrono::milliseconds beforeNextWake{20};

} // namespace

Result<std::unique_ptr<RecordReader>> RecordReader::start(long address, Handler handler) {
    std::unique_ptr<RecordReader> reader(new RecordReader(address, std::move(handler)));
    if (Failure failure = reader->mQueue.connect()) {
        reader->mEnded = true;
        return *failure;
    }
    reader->mThread = std::thread([self = reader.get()] { self->run(); });
    return reader;
}

RecordReader::~RecordReader() {
    // The record may find no room, or be thrown away by a service that needs
    // some: it is sent until it has arrived.
    while (!mEnded) {
        mQueue.tryPost(ServerClientMessage(mAddress, wakeId));
        for (auto waited = std::chrono::milliseconds(0); !mEnded && waited < beforeNextWake; ++waited) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }
    if (mThread.joinable()) {
        mThread.join();
    }
}

void RecordReader::run() {
    ServerClientMessage message;
    while (mQueue.isOpen()) {
        if (mQueue.ReadMessage(mAddress, message, DocAdapterMessageQueue::TIMEOUT_INFINITE) < 0) {
            continue; // interrupted, or the queue is gone and no longer open
        }
        if (message.id == wakeId) {
            break;
        }
        mHandler(message);
    }
    mEnded = true;
}

} // namespace lectern

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "channel/DocAdapterCommon.h"
#include <lectern/SharedMemory.h>
#include <lectern/StateSegment.h>

#include <array>
#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <semaphore>
#include <thread>
#include <vector>

// The queue's side of a service with one document: takes records in the service's
// order, paints one colour, scrolls a document of a given height, and zooms.
class FakeView {
public:
    // Paints into this frame buffer of width * height pixels. `state` is the
    // segment of an earlier view, or 0 for a new one.
    FakeView(int docid, int frameBuffer, int width, int height, unsigned int state = 0);
    // Ends the worker thread.
    ~FakeView();
    FakeView(const FakeView&) = delete;
    FakeView& operator=(const FakeView&) = delete;

    unsigned int stateIdentifier() const { return mStateIdentifier; }
    bool attached() const { return mFrame.attached(); }
    void notify(ClientMessageId id, int value, int extra);
    // The types of the records taken so far, in order.
    std::vector<long> taken() const;
    // The records of this type taken so far.
    std::vector<ClientServerMessage> takenOf(long type) const;
    // Waits until `count` records have been taken.
    void waitForTaken(size_t count) const;
    // Holds up all input and paints in the queue while the returned object lives.
    std::shared_ptr<void> holdUp() {
        mIdle.acquire();
        return {nullptr, [this](void*) { mIdle.release(); }};
    }

    std::atomic<bool> answersPaints{true};
    std::atomic<int> paintResult{0};
    std::atomic<int> renderResult{0};
    std::atomic<int> lastRow{5'000};       // largest vertical scroll position
    std::atomic<int> rowsAbove{0};         // rows before row 0, shown by a push against it
    std::atomic<double> largestScale{4.0}; // of a pinch

    static constexpr uint32_t COLOUR = 0x80123456;

private:
    void run();
    void take(const ClientServerMessage& message);
    void dragTo(int y);
    void paint();
    void writeState();

    const int mDocid;
    const int mWidth;
    const int mHeight;
    DocAdapterMessageQueue mQueue;
    lectern::Attachment mFrame;
    unsigned int mStateIdentifier = 0;
    lectern::Attachment mStateMemory;
    lectern::ViewState mState{0, 0, 1.0, 0, 0, 0};
    int mPenY = 0;
    int mScrollAtPen = 0;
    double mFactor = 1.0;
    double mPainted = 1.0;
    std::binary_semaphore mIdle{1};
    mutable std::mutex mMutex;
    mutable std::condition_variable mTakenOne;
    std::vector<ClientServerMessage> mTaken;
    std::thread mWorker;
};

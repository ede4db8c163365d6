// SPDX-License-Identifier: Apache-2.0
#include "tests/unit/client/FakeView.h"

#include "base/SharedSegment.h"

#include <sys/ipc.h>
#include <sys/shm.h>

#include <algorithm>
#include <cstring>
#include <iterator>

namespace {

// Type of the record that ends the worker. No client sends it.
constexpr long END_OF_WORK = 98;
// State segments of services begin here: below are other types of records.
constexpr int FIRST_STATE = 4096;

} // namespace

FakeView::FakeView(int docid, int frameBuffer, int width, int height, unsigned int state)
    : mDocid(docid), mWidth(width), mHeight(height), mFrame(frameBuffer) {
    if (state != 0) {
        mStateMemory = lectern::Attachment(static_cast<int>(state));
    }
    if (mStateMemory.attached()) {
        mStateIdentifier = state;
        std::memcpy(&mState, mStateMemory.address(), sizeof mState);
    } else {
        const int identifier =
            lectern::makeSegment(FIRST_STATE, IPC_PRIVATE, sizeof(lectern::ViewState), 0600);
        mStateIdentifier = static_cast<unsigned int>(identifier);
        mStateMemory = lectern::Attachment(identifier);
        shmctl(identifier, IPC_RMID, nullptr);
        writeState();
    }
    mQueue.Open(DocAdapterMessageQueue::OPEN_FLAGS, DocAdapterMessageQueue::PROJECT_ID);
    mWorker = std::thread([this] { run(); });
}

FakeView::~FakeView() {
    mQueue.SendMessage(ClientServerMessage(END_OF_WORK, -1));
    mWorker.join();
}

void FakeView::notify(ClientMessageId id, int value, int extra) {
    ServerClientMessage message(static_cast<long>(mStateIdentifier), id);
    message.value = value;
    message.extra = extra;
    mQueue.SendMessage(message);
}

std::vector<long> FakeView::taken() const {
    const std::lock_guard lock(mMutex);
    std::vector<long> types;
    types.reserve(mTaken.size());
    for (const ClientServerMessage& message : mTaken) {
        types.push_back(long{message.type}); // a copy: records are packed, and a reference needs alignment
    }
    return types;
}

std::vector<ClientServerMessage> FakeView::takenOf(long type) const {
    const std::lock_guard lock(mMutex);
    std::vector<ClientServerMessage> messages;
    std::copy_if(mTaken.begin(), mTaken.end(), std::back_inserter(messages),
                 [type](const ClientServerMessage& message) { return message.type == type; });
    return messages;
}

void FakeView::waitForTaken(size_t count) const {
    std::unique_lock lock(mMutex);
    mTakenOne.wait(lock, [&] { return mTaken.size() >= count; });
}

void FakeView::run() {
    ClientServerMessage message;
    while (mQueue.ReadMessage(DocAdapterMessageQueue::ANY_CLIENT_MESSAGE, message) > 0 &&
           message.type != END_OF_WORK) {
        mIdle.acquire();
        {
            const std::lock_guard lock(mMutex);
            mTaken.push_back(message);
            take(message);
            mTakenOne.notify_all();
        }
        mIdle.release();
    }
}

void FakeView::take(const ClientServerMessage& message) {
    switch (message.type) {
    case _PAINT:
        paint();
        break;
    case _PEN_DOWN:
        mPenY = message.y;
        mScrollAtPen = mState.scrollY;
        break;
    case _PEN_UP:
        dragTo(message.y);
        break;
    case _GESTURE_CHANGE:
        mFactor = std::clamp(message.firstReal(), 1.0 / mState.scale, largestScale / mState.scale);
        break;
    case _GESTURE_END:
        mState.scale *= mPainted;
        mState.scrollY = static_cast<int>(mState.scrollY * mPainted) + 700; // near the row, but not exactly
        mFactor = mPainted = 1.0;
        break;
    default:
        break;
    }
}

// A push against row 0 finds the rows above it a hundred at a time and moves
// everything down.
void FakeView::dragTo(int y) {
    int wanted = mScrollAtPen + mPenY - y;
    while (wanted < 0 && rowsAbove > 0) {
        const int found = std::min(rowsAbove.load(), 100);
        rowsAbove -= found;
        lastRow += found;
        wanted += found;
    }
    mState.scrollY = std::clamp(wanted, std::min(lastRow.load(), 0), std::max(lastRow.load(), 0));
}

void FakeView::paint() {
    if (!answersPaints) {
        return;
    }
    mPainted = mFactor;
    // Copied at once, because the thread sanitizer checks each write to shared memory.
    const std::vector<uint32_t> picture(static_cast<size_t>(mWidth) * static_cast<size_t>(mHeight), COLOUR);
    std::memcpy(mFrame.address(), picture.data(), picture.size() * sizeof picture[0]);
    writeState();
    ServerClientMessage done(mDocid + DocAdapterMessageQueue::PAINT_DONE_BASE, _PAINT_DONE);
    done.value = paintResult;
    done.extra = renderResult;
    mQueue.SendMessage(done);
}

void FakeView::writeState() {
    std::memcpy(mStateMemory.address(), &mState, sizeof mState);
}

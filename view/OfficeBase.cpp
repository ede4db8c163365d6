// SPDX-License-Identifier: Apache-2.0
#include "view/OfficeBase.h"

#include "channel/ServiceQueue.h"
#include "raster/Saturate.h"

#include <dlfcn.h>

#include <atomic>
#include <cstdint>

namespace {

// Small enough that the sum of a position and a view size does not overflow.
constexpr int MAX_RESTORED_POSITION = 1 << 30;

void prvTakePosition(int restored, int& position) {
    if (between(-MAX_RESTORED_POSITION, restored, MAX_RESTORED_POSITION)) {
        position = restored;
    }
}

// Clamps one axis. True if that changed the value.
bool prvClampAxis(int& value, int max) {
    const int low = max < 0 ? max : 0;
    const int high = max < 0 ? 0 : max;
    if (value > high) {
        value = high;
        return true;
    }
    if (value < low) {
        value = low;
        return true;
    }
    return false;
}

} // namespace

OfficeBase::OfficeBase(int width, int height, int docId, unsigned int dataStoreShmId, doctype_t type)
    : mDocId(docId), mLastFrame(width, height), mWidth(width), mHeight(height),
      mDataStoreShmId(dataStoreShmId), mDocType(type) {
    pthread_mutex_init(&mMutex, nullptr);
}

OfficeBase::~OfficeBase() {
    pthread_mutex_destroy(&mMutex);
    if (mModuleHandle != nullptr) {
        dlclose(mModuleHandle);
    }
}

void OfficeBase::attachStateRecord(const char* keyPath) {
    if (!attachGivenStateRecord()) {
        makeStateRecord(keyPath);
    }
}

bool OfficeBase::attachGivenStateRecord() {
    if (!mStateSegment.attach(mDataStoreShmId)) {
        return false;
    }
    mDataStore = mStateSegment.record();
    RestoreStateFromDataStore();
    return true;
}

void OfficeBase::makeStateRecord(const char* keyPath) {
    // ftok uses only 8 bits of its second argument. The view's address is an
    // attempt to give the views of a process different keys.
    mStateSegment.create(keyPath, static_cast<int>(reinterpret_cast<uintptr_t>(this) & 0xFF));
    mDataStore = mStateSegment.record();
    mDataStoreShmId = mStateSegment.id();
    SaveStateToDataStore();
}

void OfficeBase::SaveStateToDataStore() {
    if (mDataStore == nullptr) {
        return;
    }
    mDataStore->scrollX = mScroll.x;
    mDataStore->scrollY = mScroll.y;
    mDataStore->scale = mScale;
    mDataStore->scaleLevel = mScaleLevel;
}

void OfficeBase::RestoreStateFromDataStore() {
    if (mDataStore == nullptr) {
        return;
    }
    // Copies the record before checking it, because clients may write at any time.
    // The fence keeps the compiler from reading the shared memory again.
    const StateRecord record = *mDataStore;
    std::atomic_signal_fence(std::memory_order_seq_cst);
    prvTakePosition(record.scrollX, mScroll.x);
    prvTakePosition(record.scrollY, mScroll.y);
    if (record.scale >= mMinScale && record.scale <= mMaxScale) {
        mScale = record.scale;
    }
    if (between(0, record.scaleLevel, 2)) {
        mScaleLevel = record.scaleLevel;
    }
    mDirty = true;
}

void OfficeBase::InvalidateScreen() {
    mDirty = true;
    SendDocMessage(_INVALIDATED);
}

void OfficeBase::SendDocMessage(ClientMessageId id, int32_t value, int32_t extra) {
    // Without a state segment the view has no message type for its notifications.
    if (mDataStoreShmId > StateSegment::LAST_RESERVED_ID) {
        ServerClientMessage message(static_cast<long>(mDataStoreShmId), id);
        message.value = value;
        message.extra = extra;
        g_msgQueue.SendMessage(message);
    }
}

bool OfficeBase::clampPosition(int& x, int& y) const {
    if (mDocPixmap == nullptr) {
        return false;
    }
    return clampPosition(x, y, saturatedDifference(mDocPixmap->Right(), mWidth),
                         saturatedDifference(mDocPixmap->Bottom(), mHeight));
}

bool OfficeBase::clampPosition(int& x, int& y, int maxX, int maxY) const {
    const bool movedX = prvClampAxis(x, maxX);
    const bool movedY = prvClampAxis(y, maxY);
    return movedX && movedY;
}

void OfficeBase::clampScroll() {
    if (clampPosition(mScroll.x, mScroll.y)) {
        mScroller.Stop();
    }
}

bool OfficeBase::isVisible(const CpRect& r) const {
    const int right = saturatedSum(mScroll.x, mWidth);
    const int bottom = saturatedSum(mScroll.y, mHeight);
    return between(mScroll.x, r.Left(), right) && between(mScroll.x, r.Right(), right) &&
           between(mScroll.y, r.Top(), bottom) && between(mScroll.y, r.Bottom(), bottom);
}

long long OfficeBase::offCentre(long long x) const {
    const long long width = mDocPixmap != nullptr ? mDocPixmap->Width() : 0;
    const long long far = 3LL * mWidth / 8;
    const long long near = 2LL * mWidth / 6 - 10;
    if (x < width / 4) {
        return x + far;
    }
    if (x < width / 3) {
        return x + near;
    }
    if (x > 3 * width / 4) {
        return x - far;
    }
    return x > 2 * width / 3 ? x - near : x;
}

void OfficeBase::CenterAboutRect(const CpRect& r, bool flag) {
    if (isVisible(r)) {
        return;
    }
    // 64 bits, because rectangles come from the modules and may have any value.
    const long long middleX = r.Left() + (static_cast<long long>(r.Right()) - r.Left()) / 2;
    const long long middleY = r.Top() + (static_cast<long long>(r.Bottom()) - r.Top()) / 2;
    const long long far = 3LL * mHeight / 8;
    const long long height = mDocPixmap != nullptr ? mDocPixmap->Height() : 0;
    long long y = middleY;
    if (y < height / 3 && flag) {
        y += far;
    } else if (y > 2 * height / 3 && !flag) {
        y -= far - 45;
    }
    mScroll.set(saturateToInt(offCentre(middleX) - mWidth / 2), saturateToInt(y - mHeight / 2));
    if (!isVisible(r)) {
        mScroll.set(saturateToInt(middleX - mWidth / 2), saturateToInt(middleY - mHeight / 2));
    }
}

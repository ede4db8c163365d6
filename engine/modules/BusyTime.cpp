// SPDX-License-Identifier: Apache-2.0
#include "engine/modules/BusyTime.h"

namespace lectern::engine {
namespace {

std::chrono::seconds secondOf(TimePoint time) {
    return std::chrono::floor<std::chrono::seconds>(time.time_since_epoch());
}

} // namespace

void BusyTime::add(TimePoint from, TimePoint to) {
    if (mCalls.empty() || mCalls.back().second != secondOf(to)) {
        mCalls.push_back({secondOf(to), {}});
    }
    mCalls.back().taken += to - from;
    mTotal += to - from;
}

Clock::duration BusyTime::until(TimePoint now) {
    while (!mCalls.empty() && mCalls.front().second < secondOf(now) - WINDOW) {
        mTotal -= mCalls.front().taken;
        mCalls.pop_front();
    }
    return mTotal;
}

} // namespace lectern::engine

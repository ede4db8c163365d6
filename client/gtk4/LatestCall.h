// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <utility>

namespace lectern::gtk4 {

// A call whose newest value is the only one that matters, such as the place of a
// scrollbar: while one is under way, the others wait, and the last one stays.
template<typename Value>
class LatestCall {
public:
    void want(const Value& value) { mWanted = value; }
    // The value to call with now, if there is one and no call is under way.
    std::optional<Value> begin() {
        if (mIsUnderWay || !mWanted) {
            return {};
        }
        mIsUnderWay = true;
        return std::exchange(mWanted, {});
    }
    void finish() { mIsUnderWay = false; }
    void giveUp() { *this = LatestCall(); }
    bool isIdle() const { return !mIsUnderWay && !mWanted; }
    const std::optional<Value>& wanted() const { return mWanted; }

private:
    std::optional<Value> mWanted;
    bool mIsUnderWay = false;
};

} // namespace lectern::gtk4

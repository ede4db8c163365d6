// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/gtk4/Taps.h"

#include <deque>

namespace lectern::gtk4 {

// How fast a finger moves, from its last places.
class FingerSpeed {
public:
    void begin(Point at, Milliseconds time) {
        mPlaces.clear();
        add(at, time);
    }
    void add(Point at, Milliseconds time) {
        mPlaces.push_back({at, time});
        forgetBefore(time - MEMORY);
    }
    // In pixels a second; 0 if the finger rested before `time`.
    Point at(Milliseconds time) {
        forgetBefore(time - MEMORY);
        if (mPlaces.size() < 2 || mPlaces.back().time == mPlaces.front().time) {
            return {};
        }
        const std::chrono::duration<double> passed = mPlaces.back().time - mPlaces.front().time;
        return (mPlaces.back().at - mPlaces.front().at) * (1 / passed.count());
    }

private:
    // Long enough for several reports of a slow touch screen (60 a second), short enough
    // to forget how the drag began.
    static constexpr Milliseconds MEMORY{80};
    struct Place {
        Point at;
        Milliseconds time;
    };

    void forgetBefore(Milliseconds time) {
        while (!mPlaces.empty() && mPlaces.front().time < time) {
            mPlaces.pop_front();
        }
    }

    std::deque<Place> mPlaces;
};

} // namespace lectern::gtk4

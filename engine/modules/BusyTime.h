// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/host/Export.h"
#include "engine/host/Watchdog.h"

#include <chrono>
#include <deque>

namespace lectern::engine {

// How long the calls of a document took that ended within the last two minutes.
class LECTERN_ENGINE_EXPORT BusyTime {
public:
    static constexpr std::chrono::minutes WINDOW{2};

    // REQUIRES: `to` is not before that of the last call.
    void add(TimePoint from, TimePoint to);
    Clock::duration until(TimePoint now);

private:
    // Calls that ended within the same second count as one.
    struct Calls {
        std::chrono::seconds second;
        Clock::duration taken;
    };
    std::deque<Calls> mCalls;
    Clock::duration mTotal{};
};

} // namespace lectern::engine

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/host/Export.h"
#include "engine/host/Watchdog.h"

#include <atomic>
#include <chrono>
#include <cstdint>
#include <map>

namespace lectern::engine {

// The engines that a document has lost, and whether it comes back in another one. Only
// code() may be called while another function runs.
class LECTERN_ENGINE_EXPORT Losses {
public:
    // A kind of call, named by a function that belongs to it alone.
    using Call = void (*)();
    template<class Function>
    static Call callOf(Function* function) {
        return reinterpret_cast<Call>(function);
    }

    // A call that loses the engine again within this time, without an answer in between, is
    // likely to do so always.
    static constexpr std::chrono::minutes TOO_SOON{1};

    // Notes that a call has just lost the engine, with this result of the call.
    void note(Call call, std::int32_t code, TimePoint now);
    // Notes that a call was answered. Earlier losses were then not its fault: a process that
    // is killed takes a moment to end, and loses the next call, whichever it is.
    void noteAnswer(Call call) { mLast.erase(call); }
    // The document never comes back; the first code counts.
    void giveUp(std::int32_t code);
    // Why the document does not come back; 0 while it does.
    std::int32_t code() const { return mCode; }

private:
    std::map<Call, TimePoint> mLast; // when each kind of call did so last
    std::atomic<std::int32_t> mCode = 0;
};

} // namespace lectern::engine

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/host/EngineProcess.h"

#include <chrono>
#include <cstdint>

namespace lectern::engine {

// What an engine takes in total, and no limit of the kernel counts. One for each engine,
// used by one thread.
class EngineTotals {
public:
    // Looks at an engine. Returns true when it has more than any document needs: 1 GiB of
    // files in its folder, those it has removed but keeps open included, 10,000 files, folders
    // 64 deep, 512 threads, or the processor time of TimeLimits::betweenCalls without a call. Says on
    // standard error which of them. `calls` counts the engine's calls. Takes time for each
    // file.
    bool exceed(const EngineProcess& process, std::uint64_t calls);

private:
    bool spins(int pid, std::uint64_t calls);

    std::uint64_t mCalls = 0;                        // at the last look
    std::chrono::nanoseconds mProcessorTimeAtCall{}; // at the first look after the last call
};

} // namespace lectern::engine

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/host/Export.h"

#include <sys/types.h>

#include <chrono>
#include <string>

namespace lectern::engine {

// How engine processes are started. Engines with equal settings are
// interchangeable.
struct LaunchSettings {
    std::string program;         // path of lectern-engine
    std::string temporaryParent; // folder in which an engine's temporary folder is created
    bool verbose = false;        // pass on what the engine writes to its output

    bool operator==(const LaunchSettings&) const = default;

    // Reads the environment: LECTERN_ENGINE names another program,
    // LECTERN_ENGINE_VERBOSE sets verbose.
    LECTERN_ENGINE_EXPORT static LaunchSettings forFolder(const std::string& temporaryParent);
};

// The longest time for a document's calls; then its engine is killed.
struct TimeLimits {
    std::chrono::milliseconds open{20'000}; // includes the start of an engine
    std::chrono::milliseconds call{10'000}; // a call may lay out the whole text
    std::chrono::milliseconds busy{60'000}; // all calls of two minutes together

    // Limits for a document of `bytes` bytes. Plain text, lists of values and HTML get up
    // to six times as long, because many megabytes of them are slow to lay out.
    // LECTERN_ENGINE_OPEN_LIMIT_MS, LECTERN_ENGINE_CALL_LIMIT_MS and
    // LECTERN_ENGINE_BUSY_LIMIT_MS override the limits for any size.
    LECTERN_ENGINE_EXPORT static TimeLimits forDocument(const std::string& path, off_t bytes);

    // The processor time that an engine may take without a call, to prepare what is shown
    // next. LECTERN_ENGINE_IDLE_LIMIT_MS overrides it.
    static std::chrono::milliseconds betweenCalls();
    // A text that would take longer than any of these limits on a slow machine is
    // better refused before: the suite reads a mebibyte in a second or two.
    LECTERN_ENGINE_EXPORT static bool isTooLong(const std::string& path, off_t bytes);
};

} // namespace lectern::engine

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/host/Export.h"

#include <sys/types.h>

#include <chrono>
#include <string>

namespace lectern::engine {

// How engine processes are started. Two engines with the same settings are as
// good as each other.
struct LaunchSettings {
    std::string program;         // path of lectern-engine
    std::string temporaryParent; // where an engine's own temporary folder is made
    bool verbose = false;        // let what the engine prints through

    bool operator==(const LaunchSettings&) const = default;

    // LECTERN_ENGINE names another program, LECTERN_ENGINE_VERBOSE sets verbose.
    LECTERN_ENGINE_EXPORT static LaunchSettings forFolder(const std::string& temporaryParent);
};

// How long a call of one document may take before its engine is killed.
struct TimeLimits {
    std::chrono::milliseconds open{20'000}; // the start of an engine included
    std::chrono::milliseconds call{10'000}; // a call may lay the whole text out

    // For a document of so many bytes: plain text of many megabytes is slow
    // but no accident, and gets up to six times as long.
    // LECTERN_ENGINE_OPEN_LIMIT_MS and LECTERN_ENGINE_CALL_LIMIT_MS replace
    // either, whatever the size.
    LECTERN_ENGINE_EXPORT static TimeLimits forDocument(const std::string& path, off_t bytes);
};

} // namespace lectern::engine

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/host/EngineSettings.h"
#include "engine/host/TemporaryFolder.h"

#include <sys/types.h>

namespace lectern::engine {

// Starts the engine program as fork server, with only `socket`, the folder's lock and /dev/null
// open, default signal handling, its own environment, and its own session, so that a
// terminal's keys reach the service alone. Returns 0 and the child's pid, or an errno
// value.
[[nodiscard]] int spawnEngine(const LaunchSettings& settings, const TemporaryFolder& folder, int socket,
                              pid_t& pid);

} // namespace lectern::engine

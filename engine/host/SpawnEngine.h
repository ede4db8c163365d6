// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/host/EngineSettings.h"
#include "engine/host/TemporaryFolder.h"

#include <sys/types.h>

namespace lectern::engine {

// Starts the engine program with `socket`, the folder's lock and /dev/null as
// its only open files, default signals, a process group of its own, so that a
// terminal's keys reach the service alone, and an environment made for it.
// Gives 0 and the new child's pid, or an errno value.
[[nodiscard]] int spawnEngine(const LaunchSettings& settings, const TemporaryFolder& folder, int socket,
                              pid_t& pid);

} // namespace lectern::engine

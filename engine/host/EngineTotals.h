// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/host/EngineProcess.h"

namespace lectern::engine {

// Whether an engine has taken more in total than any document needs, for what no limit
// of the kernel counts: 1 GiB of files in its folder, those it has removed but keeps open
// included, 10,000 files, or 512 threads. Says on standard error which of them. Takes
// time for each file.
bool exceedsTotals(const EngineProcess& process);

} // namespace lectern::engine

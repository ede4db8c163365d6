// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>

namespace lectern {

// Ends every child of this process: asks with SIGTERM, and after the patience
// given insists with SIGKILL. In a child subreaper that is every descendant:
// those whose parent ends become children in their turn.
//
// REQUIRES: SIGCHLD is blocked. Returns when there is no child left.
void endDescendants(std::chrono::milliseconds patience);

} // namespace lectern

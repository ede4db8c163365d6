// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>

namespace lectern {

// Ends all children of this process by SIGTERM, and by SIGKILL after
// `patience`. In a child subreaper these are all descendants, because a process
// whose parent ends becomes a child.
//
// REQUIRES: SIGCHLD is blocked. Returns when there is no child left.
void endDescendants(std::chrono::milliseconds patience);

} // namespace lectern

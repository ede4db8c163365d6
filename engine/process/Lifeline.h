// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace lectern::engine {

// From now on the process ends as soon as the other end of the socket is
// closed or shut down, whatever its other threads are doing, and empties
// `folder` before it goes. (The folder's own entry lies outside of what a
// confined process may change; whoever started it removes that.)
void startLifeline(int socket, const std::string& folder);

} // namespace lectern::engine

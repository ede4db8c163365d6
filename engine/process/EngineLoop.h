// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace lectern::engine {

// Serves the calls that come over the socket (taken over) in this thread, for
// ever: the lifeline ends the process with the connection. Returns when there
// is no connection to begin with. `folder` holds the suite's profile and
// temporary files; `confined` is told to the service.
void runEngine(int socket, const std::string& folder, bool confined);

} // namespace lectern::engine

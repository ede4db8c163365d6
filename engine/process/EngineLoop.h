// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace lectern::engine {

// Takes ownership of the socket and serves its calls in this thread. Returns
// only when the connection cannot be made; later the lifeline ends the process
// with the connection. `folder` holds the suite's profile and temporary files.
// `confined` is reported to the service.
void runEngine(int socket, const std::string& folder, bool confined);

} // namespace lectern::engine

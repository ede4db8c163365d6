// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace lectern::engine {

// Starts a thread that ends the process as soon as the socket's other end is
// closed or shut down, whatever the other threads do, and empties `folder`
// first. The folder itself is removed by the service: a confined process may
// not remove it.
void startLifeline(int socket, const std::string& folder);

// Removes what is in a folder, as far as this process may.
void emptyFolder(const std::string& folder);

} // namespace lectern::engine

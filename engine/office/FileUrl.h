// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace lectern::engine {

// Returns the file: URL of an absolute path. Every byte that is reserved in a
// URL or not ASCII is percent-encoded.
std::string fileUrl(const std::string& path);

} // namespace lectern::engine

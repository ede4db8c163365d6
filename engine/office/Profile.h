// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace lectern::engine {

// Writes the settings of a temporary user profile into `directory`, an absolute
// path that is created when missing. Returns false on failure and writes the
// reason to standard error.
bool writeProfile(const std::string& directory);

} // namespace lectern::engine

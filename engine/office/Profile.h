// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace lectern::engine {

// Writes the suite's settings into `directory`, an absolute path that is created
// when missing: a layer of settings with the root "registry". Returns false on failure and writes the
// reason to standard error.
bool writeProfile(const std::string& directory);

} // namespace lectern::engine

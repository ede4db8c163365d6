// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace lectern::engine {

// Writes the settings of a throwaway user profile into an absolute directory,
// made when missing. False, with the reason on standard error, when it cannot.
bool writeProfile(const std::string& directory);

} // namespace lectern::engine

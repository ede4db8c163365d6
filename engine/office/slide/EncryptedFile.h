// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace lectern::engine {

// Returns whether a binary presentation is marked as encrypted. The suite
// cannot read encrypted presentations and reports no reason when it fails.
bool isEncryptedPresentation(const std::string& path);

} // namespace lectern::engine

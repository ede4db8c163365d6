// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace lectern::engine {

// Whether a binary presentation says that it is encrypted. The suite, which
// cannot read those, fails without telling why.
bool isEncryptedPresentation(const std::string& path);

} // namespace lectern::engine

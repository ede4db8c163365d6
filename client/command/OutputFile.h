// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern/Result.h>

#include <cstdio>
#include <functional>
#include <string>

namespace lectern {

// Whether a file can be written at this path, as far as that shows without
// writing it; said before the work that would be lost.
Failure checkOutput(const std::string& path);

// Writes a file through this function, which returns false when it fails. The
// file appears whole or not at all, and an old one stays until then; what is no
// regular file, a terminal or pipe, is written as it goes.
Failure writeOutput(const std::string& path, const std::function<bool(std::FILE*)>& write);

} // namespace lectern

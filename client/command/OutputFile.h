// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern/Result.h>

#include <cstdio>
#include <functional>
#include <string>

namespace lectern {

// The path that stands for standard output.
inline constexpr const char* STANDARD_OUTPUT = "-";

// Checks, as far as possible without writing, that a file can be written at
// this path. Call it before the work whose result would be lost.
Failure checkOutput(const std::string& path);

// Writes a file by calling `write`, which returns false on failure. A regular
// file is replaced only when it is complete; until then an old file stays. A
// terminal or pipe is written directly, and so is standard output.
Failure writeOutput(const std::string& path, const std::function<bool(std::FILE*)>& write);

} // namespace lectern

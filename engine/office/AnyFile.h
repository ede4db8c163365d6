// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace lectern::engine {

// Hears how much of a load is done, as far as the suite tells: a percentage that falls
// when another part of the load begins. May be empty.
using LoadProgress = std::function<void(int32_t percent)>;

// A file to be opened whatever its name; its contents decide how it is read.
struct AnyFile {
    std::string path;               // absolute, of a readable regular file
    std::string password;           // empty: none
    std::string temporaryDirectory; // receives copies
    LoadProgress progress;
};

} // namespace lectern::engine

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

namespace lectern::engine {

// How a file is read that the suite would judge by its name alone.
enum class FileContents {
    Html,
    PlainText,
    Other, // the suite knows it by its contents, or not at all
};

// The start of a file that contentsOf needs.
constexpr std::size_t ENOUGH_CONTENTS = std::size_t{64} << 10;

// Tells what a file contains by its first bytes.
FileContents contentsOf(std::string_view head);

} // namespace lectern::engine

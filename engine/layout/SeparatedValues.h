// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string_view>

namespace lectern::engine {

// How a text file holds the cells of a sheet: a record in each line.
struct SeparatedValues {
    char separator = ','; // tab, semicolon, comma, or that which the file names
    int32_t firstLine = 1;

    bool operator==(const SeparatedValues&) const = default;
};

// Finds the separator: the one that the first line names ("sep=;"), else the one of which
// the most records have equally many. Separators in quotes do not count. Reads the first
// records only.
SeparatedValues separatedValuesOf(std::string_view utf8);

} // namespace lectern::engine

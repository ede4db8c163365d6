// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>

namespace lectern::viewer {

// A cell by its column and row, from 0.
struct CellAddress {
    int column = 0;
    int row = 0;
    bool operator==(const CellAddress&) const = default;
};

// The cell with a name such as "B7", "b7", "$B$7"; spaces around it do not matter. None for
// anything else, and for cells that no spreadsheet has (16384 columns and 1048576 rows).
std::optional<CellAddress> parseCellAddress(const std::string& name);

} // namespace lectern::viewer

// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/CellAddress.h"

#include <glib.h>

#include <regex>

namespace lectern::viewer {

std::optional<CellAddress> parseCellAddress(const std::string& name) {
    constexpr int COLUMNS = 16384; // A to XFD, as many as the suites have
    constexpr int ROWS = 1048576;
    constexpr int LETTERS = 26;
    static const std::regex FORM(R"( *\$?([A-Za-z]{1,3})\$?([0-9]{1,7}) *)");
    std::smatch parts;
    if (!std::regex_match(name, parts, FORM)) {
        return std::nullopt;
    }
    int column = 0;
    for (const char letter : parts[1].str()) {
        column = column * LETTERS + g_ascii_toupper(letter) - 'A' + 1;
    }
    const int row = std::stoi(parts[2]);
    if (column > COLUMNS || row < 1 || row > ROWS) {
        return std::nullopt;
    }
    return CellAddress{column - 1, row - 1};
}

} // namespace lectern::viewer

// SPDX-License-Identifier: Apache-2.0
#include "engine/layout/HeaderRow.h"

#include <algorithm>

namespace lectern::engine {

namespace {

using Row = std::vector<CellKind>;

bool isData(const Row& row, const std::vector<bool>& textAbove) {
    for (size_t column = 0; column < row.size(); ++column) {
        if (row[column] == CellKind::Value && textAbove[column]) {
            return true;
        }
    }
    return false;
}

} // namespace

std::optional<size_t> headerRow(const std::vector<Row>& rows) {
    std::vector<bool> textAbove(rows.empty() ? 0 : rows.front().size());
    std::optional<size_t> header;
    size_t most = 0;
    for (size_t index = 0; index < rows.size(); ++index) {
        const Row& row = rows[index];
        if (isData(row, textAbove)) {
            return header;
        }
        const auto filled =
            row.size() - static_cast<size_t>(std::count(row.begin(), row.end(), CellKind::Empty));
        if (filled > most) {
            const bool hasValues = std::find(row.begin(), row.end(), CellKind::Value) != row.end();
            header = hasValues ? std::nullopt : std::optional(index);
            most = filled;
        }
        for (size_t column = 0; column < row.size(); ++column) {
            textAbove[column] = textAbove[column] || row[column] == CellKind::Text;
        }
    }
    return std::nullopt;
}

} // namespace lectern::engine

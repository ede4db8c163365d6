// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace lectern::engine {

// A rectangle in the suite's view, in twips.
struct ViewBox {
    int64_t left;
    int64_t top;
    int64_t width;
    int64_t height;

    friend bool operator==(const ViewBox&, const ViewBox&) = default;
};

// Reads rectangles as the suite writes them, "x, y, width, height; ...", up to
// the first that is none.
std::vector<ViewBox> readViewBoxes(const std::string& text);

} // namespace lectern::engine

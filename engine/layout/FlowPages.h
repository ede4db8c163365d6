// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>

namespace lectern::engine {

// A page of text as the suite has laid it out, in twips of the suite's view: the
// page's left edge, the top of the text on it, and the text's height. There may
// be blank space below the text, and except on the first page also above it.
struct FlowPage {
    int64_t left;
    int64_t top;
    int64_t height;
};

// A position in the laid-out text: a page, counted from 0, and twips below the
// top of the text on it.
struct FlowPlace {
    size_t page;
    int64_t y;
};

} // namespace lectern::engine

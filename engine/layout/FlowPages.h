// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>

namespace lectern::engine {

// Where the suite has laid out a piece of the text, in twips of its view: the
// page's left edge, the top of the text on it and the text's height. Pages but
// the first may be blank above their text, and all may be below it.
struct FlowPage {
    int64_t left;
    int64_t top;
    int64_t height;
};

// A place in the laid-out text: twips below the top of the text on a page.
struct FlowPlace {
    size_t page;
    int64_t y;
};

} // namespace lectern::engine

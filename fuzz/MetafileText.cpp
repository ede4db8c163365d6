// SPDX-License-Identifier: Apache-2.0
// Reads any bytes as the metafile of a slide. Input: the metafile. Checks that the runs
// of the text are in order and inside the text, and that the boxes of every part of it
// are valid.
#include "engine/layout/MetafileText.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

using lectern::engine::DrawnBox;
using lectern::engine::DrawnText;
using lectern::engine::TextRun;

namespace {

void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

void checkRuns(const DrawnText& drawn) {
    uint32_t end = 0;
    for (const TextRun& run : drawn.runs) {
        require(!run.ends.empty() && run.start >= end && run.end() <= drawn.text.size());
        end = run.end();
    }
}

void checkBoxes(const DrawnText& drawn, uint32_t start, uint32_t end) {
    for (const DrawnBox& box : drawn.boxes({start, end})) {
        require(std::isfinite(box.left) && std::isfinite(box.top) && box.left <= box.right &&
                box.top <= box.bottom);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const DrawnText drawn = lectern::engine::readMetafileText({data, size});
    checkRuns(drawn);
    const auto units = static_cast<uint32_t>(drawn.text.size());
    checkBoxes(drawn, 0, units);
    constexpr uint32_t MOST_LOOKS = 64;
    for (uint32_t start = 0; start < std::min(units, MOST_LOOKS); ++start) {
        checkBoxes(drawn, start, start + 1);
        checkBoxes(drawn, start, units - start);
    }
    return 0;
}

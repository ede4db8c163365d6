// SPDX-License-Identifier: Apache-2.0
#include "touch/Stretched.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace {

// The source position for each position of a stretched length that lies inside the frame.
struct Axis {
    Axis(int sourceLength, int from, int to, int frameLength) : first(std::clamp(from, 0, frameLength)) {
        const int end = std::clamp(to, first, frameLength);
        const double step = static_cast<double>(sourceLength) / (static_cast<double>(to) - from);
        sources.reserve(static_cast<size_t>(end - first));
        for (int i = first; i < end; ++i) {
            const double source = (i + 0.5 - from) * step;
            sources.push_back(std::clamp(static_cast<int>(source), 0, sourceLength - 1));
        }
    }

    int first;
    std::vector<int> sources;
};

} // namespace

void copyStretched(const CpPixmap& picture, const CpRect& to, uint32_t* frame, int width, int height) {
    if (picture.Pixels() == nullptr || to.Empty()) {
        return;
    }
    const Axis columns(picture.Width(), to.Left(), to.Right(), width);
    const Axis rows(picture.Height(), to.Top(), to.Bottom(), height);
    const uint32_t* before = nullptr;
    int sourceBefore = -1;
    uint32_t* out = frame + static_cast<ptrdiff_t>(rows.first) * width + columns.first;
    for (const int source : rows.sources) {
        if (source == sourceBefore) {
            std::memcpy(out, before, columns.sources.size() * sizeof *out);
        } else {
            picture.PickColumns(source, columns.sources.data(), out, columns.sources.size());
        }
        before = out;
        sourceBefore = source;
        out += width;
    }
}

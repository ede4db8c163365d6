// SPDX-License-Identifier: Apache-2.0
#include "engine/layout/ViewBoxes.h"

#include <cstdio>

namespace lectern::engine {

std::vector<ViewBox> readViewBoxes(const std::string& text) {
    std::vector<ViewBox> boxes;
    const char* rest = text.c_str();
    long long left = 0;
    long long top = 0;
    long long width = 0;
    long long height = 0;
    int used = 0;
    while (std::sscanf(rest, "%lld, %lld, %lld, %lld%n", // NOLINT(cert-err34-c)
                       &left, &top, &width, &height, &used) == 4) {
        boxes.push_back({left, top, width, height});
        rest += used;
        rest += *rest == ';' ? 1 : 0;
    }
    return boxes;
}

} // namespace lectern::engine

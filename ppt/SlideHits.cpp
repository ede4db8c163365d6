// SPDX-License-Identifier: Apache-2.0
#include "ppt/SlideHits.h"

#include "view/Bisection.h"

namespace {

int prvFirstRow(const sstg_find_region& region) {
    return region.rectangle_count > 0 && region.rectangles != nullptr ? region.rectangles[0].y : 0;
}

} // namespace

int find_first_region_greater_than_eq(int y, const sstg_find_region* regions, int count) {
    if (regions == nullptr) {
        return 0;
    }
    return firstAtOrAbove(y, count, [=](int i) { return prvFirstRow(regions[i]); });
}

int find_first_slide_greater_than_eq(int slide, const sstg_find_info* infos, int count) {
    if (infos == nullptr) {
        return 0;
    }
    return firstAtOrAbove(slide, count, [=](int i) { return infos[i].slide; });
}

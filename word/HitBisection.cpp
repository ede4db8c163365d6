// SPDX-License-Identifier: Apache-2.0
#include "word/HitBisection.h"

#include "view/Bisection.h"

int find_first_region_greater_than_eq(int y, const wtg_find_region* regions, int count) {
    if (regions == nullptr) {
        return 0;
    }
    return firstAtOrAbove(y, count, [=](int i) { return firstRow(regions[i]); });
}

int find_first_result_greater_than_eq(unsigned int position, const wtg_find_result* results, int count) {
    if (results == nullptr) {
        return 0;
    }
    const auto next = [=](int i) {
        if (position < results[i - 1].start) {
            return (i - 1) / 2;
        }
        return results[i].end >= position ? i : rightOf(i, count);
    };
    return bisect(count, next, [=](int i) { return results[i].end >= position; });
}

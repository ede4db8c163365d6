// SPDX-License-Identifier: Apache-2.0
#include "word/HitBisection.h"

namespace {

int prvRight(int i, int count) {
    return (i + 1) + (count - (i + 1)) / 2;
}

// next(i) gives the index after i, or i when that is the one. The steps may
// cycle or leave the array; then the first entry at or above the key counts,
// or the last where none is.
template<typename Next, typename AtOrAbove>
int prvBisect(int count, Next next, AtOrAbove atOrAbove) {
    int i = count / 2;
    for (int steps = 0; i > 0; ++steps) {
        if (i >= count || steps >= count) {
            for (i = 0; i < count - 1 && !atOrAbove(i);) {
                ++i;
            }
            return i;
        }
        const int following = next(i);
        if (following == i) {
            break;
        }
        i = following;
    }
    return i;
}

} // namespace

int find_first_region_greater_than_eq(int y, const wtg_find_region* regions, int count) {
    if (regions == nullptr || count < 1) {
        return 0;
    }
    const auto next = [=](int i) {
        const int row = firstRow(regions[i]);
        if (row >= y && y >= firstRow(regions[i - 1])) {
            return i;
        }
        return row <= y ? prvRight(i, count) : i / 2;
    };
    return prvBisect(count, next, [=](int i) { return firstRow(regions[i]) >= y; });
}

int find_first_result_greater_than_eq(unsigned int position, const wtg_find_result* results, int count) {
    if (results == nullptr || count < 1) {
        return 0;
    }
    const auto next = [=](int i) {
        if (position < results[i - 1].start) {
            return (i - 1) / 2;
        }
        return results[i].end >= position ? i : prvRight(i, count);
    };
    return prvBisect(count, next, [=](int i) { return results[i].end >= position; });
}

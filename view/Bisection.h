// SPDX-License-Identifier: Apache-2.0
// Bisections among search hits. They usually find the first entry at or above a
// key. They start in the middle, step left by halving the index and never examine
// entry 0, so with few entries, or with unsorted keys, the result may be a
// neighbour. They always end, with an index from 0 to count - 1, or 0 if there are
// no entries.
#pragma once

// The next index to the right of i.
inline int rightOf(int i, int count) {
    return (i + 1) + (count - (i + 1)) / 2;
}

// next(i) returns the index to examine after i, or i if i is the result. The steps
// may cycle or leave the array. Then a linear search returns the first entry at or
// above the key, or the last entry if there is none.
template<typename Next, typename AtOrAbove>
int bisect(int count, Next next, AtOrAbove atOrAbove) {
    int i = count > 0 ? count / 2 : 0;
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

// Bisects entries whose keys are keyOf(i).
template<typename KeyOf>
int firstAtOrAbove(int key, int count, KeyOf keyOf) {
    const auto next = [=](int i) {
        const int own = keyOf(i);
        if (own >= key && key >= keyOf(i - 1)) {
            return i;
        }
        return own <= key ? rightOf(i, count) : i / 2;
    };
    return bisect(count, next, [=](int i) { return keyOf(i) >= key; });
}

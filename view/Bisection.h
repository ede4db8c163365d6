// SPDX-License-Identifier: Apache-2.0
// Where to go on among hits: bisections that find the first entry at or above a
// key, as a rule. They start in the middle, step left by halving the index and
// never look at entry 0, so that with few entries, or keys out of order, the
// answer may be a neighbour. They always end, in 0 to count - 1; 0 for no entries.
#pragma once

// The step to the right of i.
inline int rightOf(int i, int count) {
    return (i + 1) + (count - (i + 1)) / 2;
}

// next(i) gives the index after i, or i when that is the one. The steps may
// cycle or leave the array; then the first entry at or above the key counts,
// or the last where none is.
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

// By a key that entry i has as keyOf(i).
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

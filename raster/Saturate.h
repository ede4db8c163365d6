// SPDX-License-Identifier: Apache-2.0
// Conversions and sums that saturate at the limits of int instead of overflowing.
// Sizes, scales and positions come from clients and files and may have any value.
#pragma once

#include <climits>
#include <cmath>

// Truncates towards zero. NaN becomes 0, a value out of range the nearest int.
inline int saturateToInt(double value) {
    if (std::isnan(value)) {
        return 0;
    }
    if (value <= static_cast<double>(INT_MIN)) {
        return INT_MIN;
    }
    if (value >= static_cast<double>(INT_MAX)) {
        return INT_MAX;
    }
    return static_cast<int>(value);
}

inline int saturateToInt(long long value) {
    return value < INT_MIN ? INT_MIN : value > INT_MAX ? INT_MAX : static_cast<int>(value);
}

inline int saturatedSum(int a, int b) {
    return saturateToInt(static_cast<long long>(a) + b);
}
inline int saturatedDifference(int a, int b) {
    return saturateToInt(static_cast<long long>(a) - b);
}

// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace lectern {

// A point or an offset in pixels; the user of it says whether of the view or of the
// document.
struct Point {
    int x = 0;
    int y = 0;
    bool operator==(const Point&) const = default;
};

} // namespace lectern

// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace lectern {

struct Point {
    int x = 0;
    int y = 0;
    bool operator==(const Point&) const = default;
};

} // namespace lectern

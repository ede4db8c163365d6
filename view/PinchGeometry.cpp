// SPDX-License-Identifier: Apache-2.0
#include "view/PinchGeometry.h"

#include <algorithm>

#include "raster/Saturate.h"

Extent magnifiedPart(double middle, int frameLength, double scale) {
    const double length = frameLength / scale;
    const double from = std::clamp(middle - length / 2, 0.0, frameLength - length);
    return {saturateToInt(from), saturateToInt(from + length)};
}

// SPDX-License-Identifier: Apache-2.0
#include "touch/PinchAnchor.h"

#include "raster/Saturate.h"

#include <algorithm>
#include <cmath>

namespace {

// How much of the way beyond a limit the preview follows, on a logarithmic scale.
constexpr double RESISTANCE = 0.25;

double prvBeyond(double limit, double wanted) {
    return limit * std::pow(wanted / limit, RESISTANCE);
}

int prvPlace(double from, double place, double factor, double to) {
    return saturateToInt(std::round(to + (place - from) * factor));
}

} // namespace

void PinchAnchor::begin(const CpPoint& point, double scale, double smallest, double largest) {
    mBegun = point;
    mPoint = point;
    mFactor = 1.0;
    mSmallest = std::min(1.0, smallest / scale);
    mLargest = std::max(1.0, largest / scale);
}

void PinchAnchor::move(const CpPoint& point, double factor) {
    mPoint = point;
    if (std::isfinite(factor) && factor > 0.0) {
        mFactor = factor;
    }
}

double PinchAnchor::previewFactor() const {
    if (mFactor < mSmallest) {
        return prvBeyond(mSmallest, mFactor);
    }
    return mFactor > mLargest ? prvBeyond(mLargest, mFactor) : mFactor;
}

double PinchAnchor::finalFactor() const {
    return std::clamp(mFactor, mSmallest, mLargest);
}

CpRect PinchAnchor::preview(const CpRect& part) const {
    const double factor = previewFactor();
    return {prvPlace(mBegun.x, part.Left(), factor, mPoint.x),
            prvPlace(mBegun.y, part.Top(), factor, mPoint.y),
            prvPlace(mBegun.x, part.Right(), factor, mPoint.x),
            prvPlace(mBegun.y, part.Bottom(), factor, mPoint.y)};
}

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "raster/CpPoint.h"
#include "raster/CpRect.h"

// Two fingers on the view: the point between them keeps the document pixel that lay
// under it when they came down. Points are in view pixels.
class PinchAnchor {
public:
    // The fingers come down at a point of a view with this zoom and these limits of it.
    void begin(const CpPoint& point, double scale, double smallest, double largest);
    // They move to a point, `factor` times as far from each other as at the beginning.
    // Ignores a factor that is not finite and positive.
    void move(const CpPoint& point, double factor);

    const CpPoint& begun() const { return mBegun; }
    const CpPoint& point() const { return mPoint; }
    // The zoom of the preview, relative to that at the beginning. Beyond the limits it
    // follows the fingers less and less.
    double previewFactor() const;
    // The zoom with which the pinch ends, relative to that at the beginning: inside the limits.
    double finalFactor() const;
    // Where a rectangle of the picture at the beginning lies in the preview.
    CpRect preview(const CpRect& part) const;

private:
    CpPoint mBegun{0, 0};
    CpPoint mPoint{0, 0};
    double mFactor = 1.0;
    double mSmallest = 1.0; // relative to the zoom at the beginning
    double mLargest = 1.0;
};

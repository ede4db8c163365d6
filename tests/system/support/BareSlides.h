// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>

// Every slide of a presentation as the office suite alone paints it. The service
// must show the same, except for the frame that the suite draws at the edges.
class BareSlides {
public:
    // The size of the picture in pixels, and that of the slides in points.
    BareSlides(const std::string& path, int width, int height, int pointsAcross, int pointsDown);

    int width() const { return mWidth; }
    int height() const { return mHeight; }
    // A colour, 0xRRGGBB. REQUIRES: (x, y) is on the slide.
    uint32_t colour(int slide, int x, int y) const;
    // False outside of the slide and at its edges, where the suite draws its frame.
    bool isInside(int x, int y) const {
        return x >= FRAME && y >= FRAME && x < mWidth - FRAME && y < mHeight - FRAME;
    }
    bool isOnSlide(int x, int y) const { return x >= 0 && y >= 0 && x < mWidth && y < mHeight; }

private:
    static constexpr int FRAME = 2;
    int mWidth;
    int mHeight;
    std::string mPixels;
};

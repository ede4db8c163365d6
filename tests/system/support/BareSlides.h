// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>

// Every slide of a presentation as the office suite paints it by itself: what
// the service must show, but for the frame that the suite draws at the edges.
class BareSlides {
public:
    // The picture's size in pixels, the slides' in points.
    BareSlides(const std::string& path, int width, int height, int pointsAcross, int pointsDown);

    int width() const { return mWidth; }
    int height() const { return mHeight; }
    // 0xRRGGBB; x and y lie on the slide.
    uint32_t colour(int slide, int x, int y) const;
    // False for the edges, where the suite draws its frame, and outside.
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

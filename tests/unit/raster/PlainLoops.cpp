// SPDX-License-Identifier: Apache-2.0
#include "PlainLoops.h"

#include <algorithm>

namespace plain {
namespace {

// Calls write(x, y) for every pixel of s inside the image.
template<typename Write>
void forEachPixel(const Image& image, const CpRect& s, Write write) {
    const int right = std::min(s.Right(), image.width);
    const int bottom = std::min(s.Bottom(), image.height);
    for (int y = std::max(s.Top(), 0); y < bottom; y++) {
        for (int x = std::max(s.Left(), 0); x < right; x++) {
            write(x, y);
        }
    }
}

uint32_t at(const Image& image, int x, int y) {
    return image.pixels[static_cast<long>(image.width) * y + x];
}

void blendAt(const Canvas& canvas, long long x, long long y, uint32_t colour) {
    const long long i = canvas.width * y + x;
    if (i < canvas.reachable) {
        canvas.pixels[i] = blended(canvas.pixels[i], colour);
    }
}

} // namespace

void erase(const CpRect& s, uint32_t background, uint32_t* dst) {
    for (int y = s.Top(); y < s.Bottom(); y++) {
        for (int x = s.Left(); x < s.Right(); x++) {
            *dst++ = background;
        }
    }
}

void copyBits(const Image& image, const CpRect& s, uint32_t* dst) {
    const long w = s.Right() - s.Left();
    forEachPixel(image, s, [&](int x, int y) { dst[(y - s.Top()) * w + (x - s.Left())] = at(image, x, y); });
}

void copyBitsTo(const Image& image, const CpRect& s, uint32_t* dst, const CpRect& place, int dstStride) {
    const int left = std::max(s.Left(), 0);
    const int top = std::max(s.Top(), 0);
    forEachPixel(image, s, [&](int x, int y) {
        dst[static_cast<long>(place.Top() + (y - top)) * dstStride + place.Left() + (x - left)] =
            at(image, x, y);
    });
}

void turnLeft(const Image& image, const CpRect& s, uint32_t* dst) {
    const long w = s.Right() - s.Left();
    const long h = s.Bottom() - s.Top();
    const int left = std::max(s.Left(), 0);
    const int top = std::max(s.Top(), 0);
    forEachPixel(image, s, [&](int x, int y) { dst[(w - (x - left)) * h + (y - top)] = at(image, x, y); });
}

void turnRight(const Image& image, const CpRect& s, uint32_t* dst) {
    const long w = s.Right() - s.Left();
    const long h = s.Bottom() - s.Top();
    const int left = std::max(s.Left(), 0);
    const int top = std::max(s.Top(), 0);
    forEachPixel(image, s, [&](int x, int y) { dst[(x - left) * h + (w - (y - top))] = at(image, x, y); });
}

void turnAround(const Image& image, const CpRect& s, uint32_t* dst) {
    const long w = s.Right() - s.Left();
    const long h = s.Bottom() - s.Top();
    forEachPixel(image, s, [&](int x, int y) {
        dst[(h - (y - s.Top())) * w + (w - (x - s.Left()))] = at(image, x, y);
    });
}

void scaleToFit(const Image& image, const CpRect& src, uint32_t* dst, const CpRect& dstRect, int dstWidth,
                int dstHeight) {
    const int left = std::max(src.Left(), 0);
    const int top = std::max(src.Top(), 0);
    const int right = std::min(src.Right(), image.width);
    const int bottom = std::min(src.Bottom(), image.height);
    const int targetWidth = dstRect.Right() - dstRect.Left();
    const int targetHeight = dstRect.Bottom() - dstRect.Top();
    if (targetWidth < 1 || targetHeight < 1) {
        return;
    }
    const float stepX = static_cast<float>(right - left) / static_cast<float>(targetWidth);
    const float stepY = static_cast<float>(bottom - top) / static_cast<float>(targetHeight);
    float fy = 0.0F;
    for (int y = dstRect.Top(); y < dstRect.Bottom(); y++) {
        float fx = 0.0F;
        for (int x = dstRect.Left(); x < dstRect.Right(); x++) {
            const int index = dstWidth * y + x;
            if (index >= 0 && index < dstWidth * dstHeight) {
                const int sx = static_cast<int>(static_cast<float>(left) + fx);
                const int sy = static_cast<int>(static_cast<float>(top) + fy);
                const int i = sx + image.width * sy;
                if (i >= 0 && i < image.width * image.height) {
                    dst[index] = image.pixels[i];
                }
            }
            fx += stepX;
        }
        fy += stepY;
    }
}

uint32_t blended(uint32_t old, uint32_t colour) {
    const uint32_t alpha = colour >> 24;
    uint32_t result = old & 0xFF000000;
    for (unsigned shift = 0; shift < 24; shift += 8) {
        const uint32_t oldChannel = old >> shift & 0xFF;
        const uint32_t channel = colour >> shift & 0xFF;
        result |= ((oldChannel * (255 - alpha) >> 8) + (channel * alpha >> 8)) << shift;
    }
    return result;
}

void alphaRect(const Canvas& canvas, CpRect& r, uint32_t colour) {
    if (r.Left() > canvas.width || r.Top() > canvas.height || r.Right() < 1 || r.Bottom() < 1) {
        return;
    }
    r.Set(std::max(r.Left(), 0), std::max(r.Top(), 0), std::min(r.Right(), canvas.width),
          std::min(r.Bottom(), canvas.height));
    for (int y = r.Top(); y < r.Bottom(); y++) {
        for (int x = r.Left(); x < r.Right(); x++) {
            blendAt(canvas, x, y, colour);
        }
    }
}

void alphaTriangle(const Canvas& canvas, int x, int y, int size, uint32_t colour) {
    if (canvas.width < x || canvas.height < y || x + size < 1 || y + size < 1) {
        return;
    }
    int n = size;
    if (x + size > canvas.width) {
        n = canvas.width - x;
    }
    if (y + n > canvas.height) {
        n = canvas.height - y;
    }
    const int x0 = std::max(x, 0);
    const int y0 = std::max(y, 0);
    for (int i = 0; i < n; i++) {
        for (int column = x0 + i; column <= x0 + n - 1; column++) {
            blendAt(canvas, column, y0 + i, colour);
        }
    }
}

void verticalLine(const Canvas& canvas, int x, int y0, int y1, uint32_t colour) {
    if (x > canvas.width || x < 0 || y0 >= y1 || y1 < 0 || y0 > canvas.height) {
        return;
    }
    for (int y = std::max(y0, 0); y <= std::min(y1, canvas.height); y++) {
        blendAt(canvas, x, y, colour);
    }
}

void horizontalLine(const Canvas& canvas, int y, int x0, int x1, uint32_t colour) {
    if (y > canvas.height || y < 0 || x0 >= x1 || x1 < 0 || x0 > canvas.width) {
        return;
    }
    for (int x = std::max(x0, 0); x <= std::min(x1, canvas.height); x++) {
        blendAt(canvas, x, y, colour);
    }
}

} // namespace plain

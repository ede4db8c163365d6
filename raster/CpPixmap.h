// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "raster/CpRect.h"

#include <cstddef>
#include <cstdint>

// Sets `count` pixels to a colour 0xAARRGGBB.
void FillPixels(uint32_t* pixels, size_t count, uint32_t colour);

// An image of 32-bit pixels 0xAARRGGBB (in memory: blue, green, red, alpha), row
// after row without gaps. It owns its pixels or wraps those of the caller.
//
// The bounds may start anywhere: views keep a surface's position in the document
// in left and top. Source rectangles are nevertheless relative to the pixmap's
// first pixel. Only the part of a source rectangle inside the pixmap is copied;
// except in CopyFrame(), the destination pixels of the rest stay unchanged. The caller provides large
// enough destinations, which must not overlap the pixmap.
//
// Not thread-safe, except for concurrent reading.
class CpPixmap : public CpRect {
public:
    // Allocates zeroed pixels. If the size is empty or overflows int, or out of
    // memory, there are none and Pixels() is null.
    CpPixmap(int width, int height);
    explicit CpPixmap(const CpRect& bounds);
    // Wraps width * height pixels, which stay the caller's and must outlive the
    // pixmap.
    CpPixmap(uint32_t* pixels, int width, int height);
    ~CpPixmap();

    CpPixmap(const CpPixmap&) = delete;
    CpPixmap& operator=(const CpPixmap&) = delete;
    // Takes over the bounds and pixels of the other, which may be destroyed only then.
    CpPixmap& operator=(CpPixmap&& other) noexcept;

    uint32_t* Pixels() { return mPixels; }
    const uint32_t* Pixels() const { return mPixels; }
    // Bytes per pixel.
    static int depth() { return 4; }
    // Bytes per row. Overflows only for widths for which there are no pixels.
    int pixelsperline() const { return static_cast<int>(static_cast<unsigned>(Width()) * 4U); }

    // Copies s to dst, whose rows have s.Width() pixels.
    void CopyBits(const CpRect& s, uint32_t* dst) const;
    // Copies the part of s inside the pixmap to dst. Its first pixel goes to the top
    // left corner of `at`. The rows of dst have dstStride pixels.
    void CopyBitsTo(const CpRect& s, uint32_t* dst, const CpRect& at, int dstStride) const;
    // Copies all of s to dst, whose rows have s.Width() pixels. The pixels outside the
    // pixmap become `background`. Makes a second copy unless `second` is null, each row
    // while the processor still caches it. dst and second must not overlap.
    void CopyFrame(const CpRect& s, uint32_t background, uint32_t* dst, uint32_t* second) const;

    // Rotated copies. They are shifted by one row or column, as clients expect: they
    // write one row or column past the image. dst needs W * H + max(W, H) + 1
    // pixels, where W and H are the size of s. CopyBitsRotatedRight also requires
    // H <= W + 1.
    void CopyBitsRotatedLeft(const CpRect& s, uint32_t* dst) const;
    void CopyBitsRotatedRight(const CpRect& s, uint32_t* dst) const;
    void CopyBitsRotated180(const CpRect& s, uint32_t* dst) const;

    // Copies of the whole image that are turned exactly, a quarter to the left or right or
    // by half. dst has as many pixels as the image.
    void CopyTurnedLeft(uint32_t* dst) const;
    void CopyTurnedRight(uint32_t* dst) const;
    void CopyTurnedHalf(uint32_t* dst) const;

    // Scales src into dstRect of an image of dstWidth * dstHeight pixels, by taking
    // the nearest source pixel to the top left. Does not write outside the image as
    // a whole, but where dstRect is wider than the image, its rows continue in the
    // neighbouring rows. A destination pixel whose source pixel lies outside the
    // pixmap stays unchanged: src may reach outside, and rounding may go past its
    // edge. Does nothing if a side of dstRect is below 1 or above 2^20 pixels.
    void ScaleCopyToFit(const CpRect& src, uint32_t* dst, const CpRect& dstRect, int dstWidth,
                        int dstHeight) const;

    // Copies pixels of a row: dst[i] is that of columns[i]. REQUIRES: columns ascend, and
    // they and the row are inside the image.
    void PickColumns(int row, const int* columns, uint32_t* dst, size_t count) const;

    // Translucent fills: blend the colour 0xAARRGGBB over the pixels, whose own alpha
    // does not change. All return 0. Lines may reach one column and one row past the
    // image, and triangles are not shortened at the left and top edges. A pixmap
    // that owns its pixels has spare ones behind the image for that. Fills never
    // change memory behind those, or behind the image of a wrapping pixmap.
    // Cuts r to the pixmap in place, then fills it.
    int DrawAlphaRectOnPix(CpRect& r, uint32_t colour);
    // A right-angled triangle with its legs along the top and right edges of the
    // square at (x, y) with this size.
    int DrawAlphaTriOnPix(int x, int y, int size, uint32_t colour);
    // Rows y0 to y1 of column x, both inclusive, limited to 0 and Height().
    int DrawVerticalAlphaLine(int x, int y0, int y1, uint32_t colour);
    // Columns x0 to x1 of row y, both inclusive. x1 is limited to Height() and not
    // Width(): callers rely on that.
    int DrawHorizontalAlphaLine(int y, int x0, int x1, uint32_t colour);

private:
    const uint32_t* pixelAt(int x, int y) const { return mPixels + ptrdiff_t{y} * Width() + x; }
    // The number of pixels that fills may change, counted from the first.
    size_t reachablePixels() const;
    // The part of s inside the pixmap, or (0, 0, 0, 0) if there is none.
    CpRect readablePart(const CpRect& s) const;
    // The offset, in a copy of s, of the first pixel of r, the readable part of s.
    static ptrdiff_t offsetInCopy(const CpRect& r, const CpRect& s) {
        return (ptrdiff_t{r.Top()} - s.Top()) * s.Width() + (ptrdiff_t{r.Left()} - s.Left());
    }
    void copyRows(const CpRect& r, uint32_t* dst, ptrdiff_t dstStride) const;
    void blendRun(long long first, long long count, uint32_t colour);

    uint32_t* mPixels;
    bool mOwnsPixels;
};

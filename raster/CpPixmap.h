// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "raster/CpRect.h"

#include <cstddef>
#include <cstdint>

// Sets count pixels to a colour.
void FillPixels(uint32_t* pixels, size_t count, uint32_t colour);

// A rectangle of 32-bit pixels 0xAARRGGBB (in memory blue, green, red, alpha),
// row after row without gaps, that owns its memory or wraps somebody else's.
//
// The bounds may lie anywhere: views keep the place of a surface in its
// document in left and top. Source rectangles count from the pixmap's own first
// pixel all the same. Only the part of a source rectangle inside the pixmap is
// read; what is cut away leaves its destination pixels untouched. Destinations
// are the caller's to size, and never overlap the pixmap.
class CpPixmap : public CpRect {
public:
    // An owned, zeroed pixmap. With an empty or overflowing size there are no pixels.
    CpPixmap(int width, int height);
    explicit CpPixmap(const CpRect& bounds);
    // Wraps width * height pixels of the caller, which must outlive the pixmap.
    CpPixmap(uint32_t* pixels, int width, int height);
    ~CpPixmap();

    CpPixmap(const CpPixmap&) = delete;
    CpPixmap& operator=(const CpPixmap&) = delete;

    uint32_t* Pixels() { return mPixels; }
    const uint32_t* Pixels() const { return mPixels; }
    static int depth() { return 4; }
    // Bytes; wraps for a width that no pixmap with pixels has.
    int pixelsperline() const { return static_cast<int>(static_cast<unsigned>(Width()) * 4U); }

    // Copies s to dst, whose rows are as long as s is wide.
    void CopyBits(const CpRect& s, uint32_t* dst) const;
    // Copies s to dst with its first kept pixel at the top left corner of `at`;
    // dst has rows of dstStride pixels.
    void CopyBitsTo(const CpRect& s, uint32_t* dst, const CpRect& at, int dstStride) const;
    // CopyBits to two destinations, which do not overlap, with one reading pass.
    void CopyBitsTwice(const CpRect& s, uint32_t* dst, uint32_t* second) const;
    // Whether a copy of s leaves no pixel of its destination untouched.
    bool Covers(const CpRect& s) const;

    // Turned copies. The first row or column lands one past the image, as
    // clients expect it: dst needs W * H + max(W, H) + 1 pixels, W and H being
    // the size of s, and the turn to the right needs H <= W + 1.
    void CopyBitsRotatedLeft(const CpRect& s, uint32_t* dst) const;
    void CopyBitsRotatedRight(const CpRect& s, uint32_t* dst) const;
    void CopyBitsRotated180(const CpRect& s, uint32_t* dst) const;

    // Nearest-neighbour scaling of src into dstRect of a dstWidth * dstHeight
    // image. A target that sticks out at the side goes on in the neighbouring
    // row; only the image as a whole is held to. A pixel that would have to be
    // read from outside the pixmap is left as it is: src may lie outside, and
    // rounding may step past its edge. Targets above 2^20 pixels a side are ignored.
    void ScaleCopyToFit(const CpRect& src, uint32_t* dst, const CpRect& dstRect, int dstWidth,
                        int dstHeight) const;

    // Translucent fills: colour 0xAARRGGBB over what is there; the
    // destination's own alpha stays. All return 0. Lines reach one column and one
    // row past the image, and triangles left of it or above are not shortened:
    // owning pixmaps have spare pixels behind the image for that, and nothing is
    // ever changed behind those, or behind the image of a wrapping pixmap.
    // Cuts r to the pixmap in place, then fills it.
    int DrawAlphaRectOnPix(CpRect& r, uint32_t colour);
    // A right triangle with its legs along the top and the right edge.
    int DrawAlphaTriOnPix(int x, int y, int size, uint32_t colour);
    // Rows y0 to y1 of column x, both included and cut to 0 and Height().
    int DrawVerticalAlphaLine(int x, int y0, int y1, uint32_t colour);
    // Columns x0 to x1 of row y, both included; x1 is cut to Height(), as agreed.
    int DrawHorizontalAlphaLine(int y, int x0, int x1, uint32_t colour);

private:
    const uint32_t* pixelAt(int x, int y) const { return mPixels + ptrdiff_t{y} * Width() + x; }
    // Pixels of the memory, counted from the first, that fills may change.
    size_t reachablePixels() const;
    // s without what lies outside the pixmap; (0, 0, 0, 0) when nothing is left.
    CpRect readablePart(const CpRect& s) const;
    // Where the first pixel of r, the readable part of s, goes in a copy of s.
    static ptrdiff_t offsetInCopy(const CpRect& r, const CpRect& s) {
        return (ptrdiff_t{r.Top()} - s.Top()) * s.Width() + (ptrdiff_t{r.Left()} - s.Left());
    }
    void copyRows(const CpRect& r, uint32_t* dst, ptrdiff_t dstStride) const;
    void blendRun(long long first, long long count, uint32_t colour);

    uint32_t* mPixels;
    bool mOwnsPixels;
};

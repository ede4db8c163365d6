// SPDX-License-Identifier: Apache-2.0
// The rotated copies. Clients expect each but the turned ones to be shifted by one row or
// column from the exact position, so their sums below are one too large on purpose.
#include "raster/CpPixmap.h"
#include "raster/PixelKernels.h"

void CpPixmap::CopyBitsRotatedLeft(const CpRect& s, uint32_t* dst) const {
    const CpRect r = readablePart(s);
    if (r.Empty()) {
        return;
    }
    // Source column c, read from top to bottom, becomes destination row W - c, from
    // left to right.
    const ptrdiff_t rowLength = s.Height();
    pixelKernels().transpose(pixelAt(r.Left(), r.Top()), Width(), dst + s.Width() * rowLength, -rowLength,
                             static_cast<size_t>(r.Width()), static_cast<size_t>(r.Height()));
}

void CpPixmap::CopyBitsRotatedRight(const CpRect& s, uint32_t* dst) const {
    const CpRect r = readablePart(s);
    if (r.Empty()) {
        return;
    }
    // Source column c, read from bottom to top, becomes destination row c, from left
    // to right. Source row 0 becomes destination column W.
    const ptrdiff_t last = ptrdiff_t{r.Height()} - 1;
    pixelKernels().transpose(pixelAt(r.Left(), r.Bottom() - 1), -ptrdiff_t{Width()}, dst + s.Width() - last,
                             s.Height(), static_cast<size_t>(r.Width()), static_cast<size_t>(r.Height()));
}

void CpPixmap::CopyBitsRotated180(const CpRect& s, uint32_t* dst) const {
    const CpRect r = readablePart(s);
    if (r.Empty()) {
        return;
    }
    const ptrdiff_t stride = s.Width();
    const ptrdiff_t firstRow = ptrdiff_t{s.Height()} - (ptrdiff_t{r.Top()} - s.Top());
    const ptrdiff_t firstColumn = stride - (ptrdiff_t{r.Left()} - s.Left());
    size_t width = static_cast<size_t>(r.Width());
    size_t height = static_cast<size_t>(r.Height());
    const uint32_t* src = pixelAt(r.Left(), r.Top());
    // The destination of the row's leftmost pixel.
    uint32_t* end = dst + firstRow * stride + firstColumn;
    if (r.Width() == Width() && stride == Width()) {
        // The rows are complete, so the image can be copied as one long row.
        width *= height;
        height = 1;
    }
    for (; height > 0; height--, src += Width(), end -= stride) {
        pixelKernels().reverse(src, end - (width - 1), width);
    }
}

void CpPixmap::CopyTurnedLeft(uint32_t* dst) const {
    if (mPixels != nullptr) {
        const ptrdiff_t rowLength = Height();
        pixelKernels().transpose(mPixels, Width(), dst + (ptrdiff_t{Width()} - 1) * rowLength, -rowLength,
                                 static_cast<size_t>(Width()), static_cast<size_t>(Height()));
    }
}

void CpPixmap::CopyTurnedRight(uint32_t* dst) const {
    if (mPixels != nullptr) {
        pixelKernels().transpose(pixelAt(0, Height() - 1), -ptrdiff_t{Width()}, dst, Height(),
                                 static_cast<size_t>(Width()), static_cast<size_t>(Height()));
    }
}

void CpPixmap::CopyTurnedHalf(uint32_t* dst) const {
    if (mPixels != nullptr) {
        pixelKernels().reverse(mPixels, dst, static_cast<size_t>(Width()) * static_cast<size_t>(Height()));
    }
}

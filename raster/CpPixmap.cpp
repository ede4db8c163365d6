// SPDX-License-Identifier: Apache-2.0
// Construction, destruction and the copies without rotation.
#include "raster/CpPixmap.h"

#include "raster/PixelKernels.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace {

// The number of pixels of an image; 0 if it is empty.
size_t pixelCount(const CpRect& bounds) {
    return bounds.Empty() ? 0 : static_cast<size_t>(bounds.Width()) * static_cast<size_t>(bounds.Height());
}

// The pixels of the image and the spare pixels behind it that the line fills may
// change: row Height(), up to column Width() or Height(), whichever is larger.
size_t allocatedCount(const CpRect& bounds) {
    return pixelCount(bounds) + static_cast<size_t>(std::max(bounds.Width(), bounds.Height())) + 1;
}

uint32_t* allocatePixels(const CpRect& bounds) {
    return bounds.Area() > 0 && pixelCount(bounds) == static_cast<size_t>(bounds.Area())
               ? static_cast<uint32_t*>(std::calloc(allocatedCount(bounds), sizeof(uint32_t)))
               : nullptr;
}

} // namespace

void FillPixels(uint32_t* pixels, size_t count, uint32_t colour) {
    pixelKernels().fill(pixels, count, colour);
}

CpPixmap::CpPixmap(int width, int height) : CpPixmap(CpRect(0, 0, width, height)) {}

CpPixmap::CpPixmap(const CpRect& bounds)
    : CpRect(bounds), mPixels(allocatePixels(bounds)), mOwnsPixels(true) {}

CpPixmap::CpPixmap(uint32_t* pixels, int width, int height)
    : CpRect(0, 0, width, height), mPixels(pixels), mOwnsPixels(false) {}

CpPixmap::~CpPixmap() {
    if (mOwnsPixels) {
        std::free(mPixels);
    }
}

CpPixmap& CpPixmap::operator=(CpPixmap&& other) noexcept {
    static_cast<CpRect&>(*this) = other;
    std::swap(mPixels, other.mPixels);
    std::swap(mOwnsPixels, other.mOwnsPixels);
    return *this;
}

size_t CpPixmap::reachablePixels() const {
    if (mPixels == nullptr) {
        return 0;
    }
    return mOwnsPixels ? allocatedCount(*this) : pixelCount(*this);
}

CpRect CpPixmap::readablePart(const CpRect& s) const {
    CpRect r(s);
    r.clip(Width(), Height());
    if (mPixels == nullptr || r.Empty()) {
        r.setEmpty();
    }
    return r;
}

void CpPixmap::copyRows(const CpRect& r, uint32_t* dst, ptrdiff_t dstStride) const {
    if (r.Empty()) {
        return;
    }
    const size_t width = static_cast<size_t>(r.Width());
    const size_t height = static_cast<size_t>(r.Height());
    const uint32_t* src = pixelAt(r.Left(), r.Top());
    if (r.Width() == Width() && dstStride == Width()) {
        std::memcpy(dst, src, width * height * sizeof(uint32_t));
        return;
    }
    for (size_t row = 0; row < height; row++, src += Width(), dst += dstStride) {
        std::memcpy(dst, src, width * sizeof(uint32_t));
    }
}

void CpPixmap::CopyBits(const CpRect& s, uint32_t* dst) const {
    const CpRect r = readablePart(s);
    if (!r.Empty()) {
        copyRows(r, dst + offsetInCopy(r, s), s.Width());
    }
}

void CpPixmap::CopyBitsTo(const CpRect& s, uint32_t* dst, const CpRect& at, int dstStride) const {
    const CpRect r = readablePart(s);
    if (!r.Empty()) {
        copyRows(r, dst + ptrdiff_t{at.Top()} * dstStride + at.Left(), dstStride);
    }
}

void CpPixmap::CopyFrame(const CpRect& s, uint32_t background, uint32_t* dst, uint32_t* second) const {
    if (s.Empty()) {
        return;
    }
    const CpRect r = readablePart(s);
    const size_t width = static_cast<size_t>(s.Width());
    const size_t inside = static_cast<size_t>(r.Width());
    const size_t before = static_cast<size_t>(r.Empty() ? 0 : ptrdiff_t{r.Left()} - s.Left());
    for (int y = s.Top(); y < s.Bottom(); y++, dst += width) {
        if (r.Top() <= y && y < r.Bottom()) {
            FillPixels(dst, before, background);
            std::memcpy(dst + before, pixelAt(r.Left(), y), inside * sizeof *dst);
            FillPixels(dst + before + inside, width - before - inside, background);
        } else {
            FillPixels(dst, width, background);
        }
        if (second != nullptr) {
            std::memcpy(second, dst, width * sizeof *dst);
            second += width;
        }
    }
}

// SPDX-License-Identifier: Apache-2.0
// Scaling by taking the nearest source pixel to the top left.
#include "raster/CpPixmap.h"
#include "raster/PixelKernels.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>

namespace {

// Limits the size of tables and the length of loops. Much larger than any frame at
// any zoom.
constexpr int MAX_TARGET_SIDE = 1 << 20;

// A half-open range of rows or columns of the destination.
struct Range {
    long long first;
    long long end;

    size_t count() const { return first < end ? static_cast<size_t>(end - first) : 0; }
    bool operator==(const Range&) const = default;
};

// A table of the source row or column for each row or column in a range of the
// target.
class Positions {
public:
    // The target starts at targetFirst and has targetSize rows or columns, for
    // sourceSize of the source. The range lies inside it. Positions are a running
    // sum in single precision: a product of step and index would round differently
    // and select other pixels.
    Positions(int sourceFirst, int sourceSize, int targetFirst, int targetSize, const Range& range)
        : mFirst(range.first), mCount(range.count()),
          mTable(new (std::nothrow) int[std::max<size_t>(mCount, 1)]) {
        const float step = static_cast<float>(sourceSize) / static_cast<float>(targetSize);
        const float origin = static_cast<float>(sourceFirst);
        float sum = 0.0F;
        for (long long i = targetFirst; i < mFirst; i++) {
            sum += step;
        }
        for (size_t i = 0; mTable != nullptr && i < mCount; i++, sum += step) {
            mTable[i] = saturateToInt(static_cast<double>(origin + sum));
        }
    }

    bool empty() const { return mTable == nullptr || mCount == 0; }
    const int* at(long long target) const { return &mTable[static_cast<size_t>(target - mFirst)]; }
    // All steps have the same sign, so the extremes are at the ends.
    long long min() const { return std::min(mTable[0], mTable[mCount - 1]); }
    long long max() const { return std::max(mTable[0], mTable[mCount - 1]); }

private:
    long long mFirst;
    size_t mCount;
    std::unique_ptr<int[]> mTable;
};

// The destination rectangle of a scaled picture. Writes are limited by the index of
// a pixel in the whole image, not by its column: rows of a target that is wider
// than the image continue in the neighbouring rows, and later rows overwrite
// earlier ones.
class Target {
public:
    Target(const CpRect& r, int imageWidth, int imageHeight)
        : mRect(r), mStride(imageWidth), mPixels(static_cast<long long>(imageWidth) * imageHeight) {}

    long long stride() const { return mStride; }
    // The rows that may have pixels in the image.
    Range rows() const {
        return {std::max<long long>(mRect.Top(), -mRect.Right() / mStride - 1),
                std::min<long long>(mRect.Bottom(), (mPixels - mRect.Left()) / mStride + 1)};
    }
    // The columns of row y that lie in the image.
    Range columns(long long y) const {
        return {std::max<long long>(mRect.Left(), -mStride * y),
                std::min<long long>(mRect.Right(), mPixels - mStride * y)};
    }
    // The columns of row y that no later row overwrites.
    Range lastingColumns(long long y) const {
        Range range = columns(y);
        if (y + 1 < mRect.Bottom()) {
            range.end = std::min(range.end, mRect.Left() + mStride);
        }
        return range;
    }
    // The smallest range with all columns of these rows.
    Range columns(const Range& rows) const { return {columns(rows.end - 1).first, columns(rows.first).end}; }

private:
    CpRect mRect;
    long long mStride;
    long long mPixels;
};

// For source positions that all lie inside the pixmap.
void scaleRows(const uint32_t* pixels, int width, const Positions& sourceColumns, const Positions& sourceRows,
               const Target& target, const Range& rows, uint32_t* dst) {
    int doneRow = -1;
    Range done{0, 0};
    for (long long y = rows.first; y < rows.end; y++) {
        const int sourceRow = *sourceRows.at(y);
        const Range columns = target.lastingColumns(y);
        if (columns.count() == 0) {
            continue;
        }
        uint32_t* row = dst + target.stride() * y + columns.first;
        if (sourceRow == doneRow && columns == done && columns.end - columns.first <= target.stride()) {
            std::memcpy(row, row - target.stride(), columns.count() * sizeof(uint32_t));
        } else {
            pixelKernels().pick(pixels + ptrdiff_t{sourceRow} * width, sourceColumns.at(columns.first), row,
                                columns.count());
        }
        doneRow = sourceRow;
        done = columns;
    }
}

// For all others: skips pixels whose source lies outside the pixmap.
void scaleRowsChecked(const CpPixmap& source, const Positions& sourceColumns, const Positions& sourceRows,
                      const Target& target, const Range& rows, uint32_t* dst) {
    const long long sourcePixels = static_cast<long long>(source.Width()) * source.Height();
    for (long long y = rows.first; y < rows.end; y++) {
        const long long rowStart = static_cast<long long>(*sourceRows.at(y)) * source.Width();
        const Range columns = target.columns(y);
        for (long long x = columns.first; x < columns.end; x++) {
            const long long i = *sourceColumns.at(x) + rowStart;
            if (i >= 0 && i < sourcePixels) {
                dst[target.stride() * y + x] = source.Pixels()[i];
            }
        }
    }
}

} // namespace

void CpPixmap::ScaleCopyToFit(const CpRect& src, uint32_t* dst, const CpRect& dstRect, int dstWidth,
                              int dstHeight) const {
    if (mPixels == nullptr || dstWidth < 1 || dstHeight < 1 ||
        !between(1, dstRect.Width(), MAX_TARGET_SIDE) || !between(1, dstRect.Height(), MAX_TARGET_SIDE)) {
        return;
    }
    CpRect s(src);
    s.clip(Width(), Height());
    const Target target(dstRect, dstWidth, dstHeight);
    const Range rows = target.rows();
    if (rows.count() == 0) {
        return;
    }
    const Positions sourceRows(s.Top(), s.Height(), dstRect.Top(), dstRect.Height(), rows);
    const Positions sourceColumns(s.Left(), s.Width(), dstRect.Left(), dstRect.Width(), target.columns(rows));
    if (sourceRows.empty() || sourceColumns.empty()) {
        return;
    }
    const bool inside = sourceRows.min() >= 0 && sourceRows.max() < Height() && sourceColumns.min() >= 0 &&
                        sourceColumns.max() < Width();
    if (inside) {
        scaleRows(mPixels, Width(), sourceColumns, sourceRows, target, rows, dst);
    } else {
        scaleRowsChecked(*this, sourceColumns, sourceRows, target, rows, dst);
    }
}

void CpPixmap::PickColumns(int row, const int* columns, uint32_t* dst, size_t count) const {
    pixelKernels().pick(mPixels + ptrdiff_t{row} * Width(), columns, dst, count);
}

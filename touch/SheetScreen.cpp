// SPDX-License-Identifier: Apache-2.0
#include "touch/SheetScreen.h"

#include "raster/PixelKernels.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

namespace {

constexpr uint32_t PAPER = 0xFFFFFFFF;
constexpr uint32_t GRID = 0xFFC0C0C0;
constexpr uint32_t HEADER = 0xFFCCCCCC;
constexpr uint32_t HEADER_LINE = 0xFF8C8C8C;
constexpr int OUTSIDE = -1;

// For each pixel of [from, to) of one axis of the screen: the pixel of a picture of this
// length that it shows, or OUTSIDE. `first` is where the pixel `from` lies in the picture.
std::vector<int> prvSources(int from, int to, double first, double scale, int length) {
    std::vector<int> sources;
    sources.reserve(static_cast<size_t>(std::max(0, to - from)));
    for (int pixel = from; pixel < to; ++pixel) {
        const double source = std::floor(first + (pixel - from + 0.5) / scale);
        sources.push_back(source >= 0.0 && source < length ? static_cast<int>(source) : OUTSIDE);
    }
    return sources;
}

} // namespace

SheetScreen::SheetScreen(uint32_t* frame, int width, int height, const SheetPlace& place)
    : mScreen(frame, width, height), mPlace(place),
      mCells(std::clamp(place.header.x, 0, width), std::clamp(place.header.y, 0, height), width, height) {}

CpRect SheetScreen::shown() const {
    return {saturateToInt(std::floor(mPlace.left)), saturateToInt(std::floor(mPlace.top)),
            saturateToInt(std::ceil(mPlace.left + mCells.Width() / mPlace.scale)),
            saturateToInt(std::ceil(mPlace.top + mCells.Height() / mPlace.scale))};
}

CpRect SheetScreen::onScreen(const CpRect& area) const {
    return {saturateToInt(std::round(mPlace.screenX(area.Left()))),
            saturateToInt(std::round(mPlace.screenY(area.Top()))),
            saturateToInt(std::round(mPlace.screenX(area.Right()))),
            saturateToInt(std::round(mPlace.screenY(area.Bottom())))};
}

void SheetScreen::fill(const CpRect& part, uint32_t colour) {
    CpRect visible = part;
    visible.clip(mScreen.Width(), mScreen.Height());
    for (int row = visible.Top(); row < visible.Bottom() && visible.Left() < visible.Right(); ++row) {
        FillPixels(mScreen.Pixels() + ptrdiff_t{row} * mScreen.Width() + visible.Left(),
                   static_cast<size_t>(visible.Width()), colour);
    }
}

void SheetScreen::blend(CpRect part, uint32_t colour) {
    part.Intersect(mCells);
    if (!part.Empty()) {
        mScreen.DrawAlphaRectOnPix(part, colour);
    }
}

void SheetScreen::drawGround(const CpPoint& sheetSize, const CpPoint& cellSize) {
    fill(mCells, PAPER);
    fill(CpRect(0, 0, mScreen.Width(), mCells.Top()), HEADER);
    fill(CpRect(0, 0, mCells.Left(), mScreen.Height()), HEADER);
    CpRect sheet = onScreen(CpRect(0, 0, sheetSize.x, sheetSize.y));
    sheet.Intersect(mCells);
    const CpRect pixels = shown();
    const auto lines = [](int first, int last, int step, auto draw) {
        const int length = std::max(2, step);
        for (long long at = first / length * static_cast<long long>(length); at < last; at += length) {
            draw(static_cast<int>(at));
        }
    };
    lines(std::max(0, pixels.Left()), std::min(pixels.Right(), sheetSize.x), cellSize.x, [&](int column) {
        const int x = saturateToInt(std::round(mPlace.screenX(column)));
        if (x >= sheet.Left() && x < sheet.Right()) {
            fill(CpRect(x, sheet.Top(), x + 1, sheet.Bottom()), GRID);
            fill(CpRect(x, 0, x + 1, mCells.Top()), HEADER_LINE);
        }
    });
    lines(std::max(0, pixels.Top()), std::min(pixels.Bottom(), sheetSize.y), cellSize.y, [&](int row) {
        const int y = saturateToInt(std::round(mPlace.screenY(row)));
        if (y >= sheet.Top() && y < sheet.Bottom()) {
            fill(CpRect(sheet.Left(), y, sheet.Right(), y + 1), GRID);
            fill(CpRect(0, y, mCells.Left(), y + 1), HEADER_LINE);
        }
    });
}

void SheetScreen::draw(const CpPixmap& picture, const int* left, const int* top, const CpRect& part) {
    const double firstX = left != nullptr ? mPlace.left - *left : 0.0;
    const double firstY = top != nullptr ? mPlace.top - *top : 0.0;
    const std::vector<int> columns =
        prvSources(part.Left(), part.Right(), firstX, mPlace.scale, picture.Width());
    const std::vector<int> rows =
        prvSources(part.Top(), part.Bottom(), firstY, mPlace.scale, picture.Height());
    // The pixels that the picture has are one run.
    const auto isInside = [](int source) { return source != OUTSIDE; };
    const auto first = std::find_if(columns.begin(), columns.end(), isInside);
    const auto last = std::find_if_not(first, columns.end(), isInside);
    const auto count = static_cast<size_t>(last - first);
    if (count == 0) {
        return;
    }
    uint32_t* to =
        mScreen.Pixels() + ptrdiff_t{part.Top()} * mScreen.Width() + part.Left() + (first - columns.begin());
    for (size_t row = 0; row < rows.size(); ++row, to += mScreen.Width()) {
        if (rows[row] == OUTSIDE) {
            continue;
        }
        const uint32_t* from = picture.Pixels() + ptrdiff_t{rows[row]} * picture.Width();
        if (row > 0 && rows[row - 1] == rows[row]) {
            std::memcpy(to, to - mScreen.Width(), count * sizeof *to);
        } else if (mPlace.scale == 1.0) {
            std::memcpy(to, from + *first, count * sizeof *to);
        } else {
            pixelKernels().pick(from, &*first, to, count);
        }
    }
}

void SheetScreen::drawCells(const CpPixmap& cells, const CpRect& bounds) {
    const int left = bounds.Left();
    const int top = bounds.Top();
    draw(cells, &left, &top, mCells);
}

void SheetScreen::drawHeaders(const CpPixmap& rows, const CpPixmap& columns, const CpRect& bounds) {
    const int left = bounds.Left();
    const int top = bounds.Top();
    draw(rows, nullptr, &top, CpRect(0, mCells.Top(), mCells.Left(), mCells.Bottom()));
    draw(columns, &left, nullptr, CpRect(mCells.Left(), 0, mCells.Right(), mCells.Top()));
}

void SheetScreen::drawCorner() {
    fill(CpRect(0, 0, mCells.Left(), mCells.Top()), HEADER);
}

void SheetScreen::tint(const CpRect& area, uint32_t colour) {
    blend(onScreen(area), colour);
}

void SheetScreen::drawFrame(const CpRect& area, int thickness, uint32_t colour) {
    // The lines lie on the cell's edges, inside of the sheet.
    const CpRect r = onScreen(area);
    const CpRect outer(saturatedDifference(r.Left(), thickness / 2),
                       saturatedDifference(r.Top(), thickness / 2), saturatedSum(r.Right(), thickness / 2),
                       saturatedSum(r.Bottom(), thickness / 2));
    const int innerTop = saturatedSum(outer.Top(), thickness);
    const int innerBottom = saturatedDifference(outer.Bottom(), thickness);
    blend(CpRect(outer.Left(), outer.Top(), outer.Right(), innerTop), colour);
    blend(CpRect(outer.Left(), innerBottom, outer.Right(), outer.Bottom()), colour);
    blend(CpRect(outer.Left(), innerTop, saturatedSum(outer.Left(), thickness), innerBottom), colour);
    blend(CpRect(saturatedDifference(outer.Right(), thickness), innerTop, outer.Right(), innerBottom),
          colour);
}

void SheetScreen::drawVeil(uint32_t colour) {
    blend(mCells, colour);
}

void SheetScreen::drawVerticalGuide(int x, int thickness, uint32_t colour) {
    fill(CpRect(x, 0, saturatedSum(x, thickness), mScreen.Height()), colour);
}

void SheetScreen::drawHorizontalGuide(int y, int thickness, uint32_t colour) {
    fill(CpRect(0, y, mScreen.Width(), saturatedSum(y, thickness)), colour);
}

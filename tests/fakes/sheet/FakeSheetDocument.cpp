// SPDX-License-Identifier: Apache-2.0
#include "tests/fakes/sheet/FakeSheetDocument.h"

#include <algorithm>

extern "C" FakeSheetControl* fake_sheet_control();

namespace {

const FakeSheet& sheetOf(int32_t sheet) {
    return fake_sheet_control()->sheets[static_cast<size_t>(sheet)];
}

// Fills a buffer with the value that a function returns for each pixel.
template<typename Pixel>
void paint(const FakeSheetDocument::Buffer& buffer, Pixel pixel) {
    uint32_t* next = buffer.pixels;
    for (int32_t y = 0; next != nullptr && y < buffer.height; ++y) {
        for (int32_t x = 0; x < buffer.width; ++x) {
            *next++ = pixel(x, y);
        }
    }
}

} // namespace

bool FakeSheetDocument::has(int32_t sheet) {
    return sheet >= 0 && sheet < static_cast<int32_t>(fake_sheet_control()->sheets.size());
}

void FakeSheetDocument::setDpi(int32_t dpi) {
    mDpi = dpi;
    fake_sheet_control()->dpi = dpi;
}

int32_t FakeSheetDocument::sheetWidth(int32_t sheet) const {
    return saturateToInt(static_cast<long long>(sheetOf(sheet).columns) *
                         scaled(fake_sheet_control()->cellWidth));
}

int32_t FakeSheetDocument::sheetHeight(int32_t sheet) const {
    return saturateToInt(static_cast<long long>(sheetOf(sheet).rows) *
                         scaled(fake_sheet_control()->cellHeight));
}

FakeSheetDocument::Cell FakeSheetDocument::cellAt(int32_t sheet, int32_t x, int32_t y) const {
    const int32_t column = x / scaled(fake_sheet_control()->cellWidth);
    const int32_t row = y / scaled(fake_sheet_control()->cellHeight);
    return {std::clamp(column, 0, sheetOf(sheet).columns - 1), std::clamp(row, 0, sheetOf(sheet).rows - 1)};
}

module_rect FakeSheetDocument::bounds(const Cell& cell) const {
    const int32_t width = scaled(fake_sheet_control()->cellWidth);
    const int32_t height = scaled(fake_sheet_control()->cellHeight);
    return {saturateToInt(static_cast<long long>(cell.column) * width),
            saturateToInt(static_cast<long long>(cell.row) * height), width, height};
}

stg_cell FakeSheetDocument::contents(const Cell& cell) const {
    const FakeSheetControl& control = *fake_sheet_control();
    static constexpr uint16_t NONE[] = {0};
    module_rect area{cell.column, cell.row, 1, 1};
    for (const module_rect& m : control.merged) {
        if (cell.column >= m.x && cell.column < m.x + m.width && cell.row >= m.y &&
            cell.row < m.y + m.height) {
            area = m;
        }
    }
    const auto find = [&](const std::map<std::pair<int32_t, int32_t>, std::u16string>& texts) {
        const auto text = texts.find({area.x, area.y});
        return text == texts.end() ? NONE : reinterpret_cast<const uint16_t*>(text->second.c_str());
    };
    const module_rect first = bounds({area.x, area.y});
    return {area.x,
            area.y,
            {first.x, first.y, first.width * area.width, first.height * area.height},
            find(control.texts),
            find(control.formulas)};
}

void FakeSheetDocument::render(int32_t sheet, int32_t x, int32_t y) {
    ++fake_sheet_control()->renders;
    const int32_t columnsLeft = sheetWidth(sheet) - x;
    const int32_t rowsLeft = sheetHeight(sheet) - y;
    paint(cells, [=](int32_t column, int32_t row) {
        return column < columnsLeft && row < rowsLeft ? fakeCellPixel(x + column, y + row, sheet)
                                                      : FAKE_BESIDE_SHEET;
    });
    paint(columnHeaders, [=](int32_t column, int32_t row) {
        return column < columnsLeft ? fakeColumnHeaderPixel(x + column, row, sheet) : FAKE_BESIDE_SHEET;
    });
    paint(rowHeaders, [=](int32_t column, int32_t row) {
        return row < rowsLeft ? fakeRowHeaderPixel(column, y + row, sheet) : FAKE_BESIDE_SHEET;
    });
}

void FakeSheetDocument::fetchMarks() {
    const FakeSheetControl& control = *fake_sheet_control();
    marks.clear();
    if (control.marks) {
        marks = *control.marks;
        return;
    }
    for (const auto& [cell, text] : control.comments) {
        const module_rect r = bounds({cell.first, cell.second});
        marks.push_back({0, r.x, r.y, r.width, r.height});
    }
}

void FakeSheetDocument::fetchFound() {
    found.clear();
    if (!searched) {
        return;
    }
    const FakeSheetControl& control = *fake_sheet_control();
    const auto ofSheet = control.hitsOfSheets.find(searchedSheet);
    const std::vector<stg_region> none;
    for (const stg_region& hit : control.hitsOfSheets.empty()            ? control.hits
                                 : ofSheet == control.hitsOfSheets.end() ? none
                                                                         : ofSheet->second) {
        found.push_back({0, scaled(hit.x), scaled(hit.y), scaled(hit.width), scaled(hit.height)});
    }
}

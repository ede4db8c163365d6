// SPDX-License-Identifier: Apache-2.0
#include "tests/system/sheet/WorkbookView.h"

#include "tests/system/support/Python.h"
#include "tests/system/support/Subprocess.h"

#include <filesystem>
#include <fstream>
#include <limits>

namespace lectern::test {

namespace {

const STGFunc& STG = sheetModule();

const std::string& folder() {
    static const TemporaryFolder temporary;
    return temporary.path();
}

std::string utf8(const std::u16string& text) {
    const std::u8string bytes = std::filesystem::path(text).u8string();
    return {bytes.begin(), bytes.end()};
}

// Reads the text of a call that takes (text, capacity, length), after a call
// for its length.
template<class Call>
std::u16string textOf(Call call) {
    std::int32_t length = 0;
    EXPECT_EQ(call(static_cast<std::uint16_t*>(nullptr), 0, &length), MODULE_OK);
    std::u16string text(static_cast<std::size_t>(length) + 1, u'\0');
    EXPECT_EQ(call(reinterpret_cast<std::uint16_t*>(text.data()), length + 1, &length), MODULE_OK);
    text.pop_back();
    return text;
}

} // namespace

void Picture::resize(std::int32_t w, std::int32_t h) {
    width = w;
    height = h;
    pixels.assign(static_cast<std::size_t>(w) * static_cast<std::size_t>(h), 0x12345678);
}

std::uint32_t Picture::at(std::int32_t x, std::int32_t y) const {
    return pixels.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                     static_cast<std::size_t>(x));
}

WorkbookView::WorkbookView(const std::string& path, const std::string& password) {
    EXPECT_EQ(mWorkbook.open(path, "/tmp", password), MODULE_OK) << path;
}

void WorkbookView::show(std::int32_t sheet, std::int32_t width, std::int32_t height, std::int32_t dpi) {
    mSheet = sheet;
    EXPECT_EQ(STG.stg_set_dpi(get(), dpi), MODULE_OK);
    const module_rect corner = bounds(-1, -1);
    mCells.resize(width, height);
    mRows.resize(corner.width, height);
    mColumns.resize(width, corner.height);
    EXPECT_EQ(STG.stg_set_offscreen_buffer(get(), 0, mCells.pixels.data(), width, height), MODULE_OK);
    EXPECT_EQ(STG.stg_set_row_offscreen_buffer(get(), 0, mRows.pixels.data(), corner.width, height),
              MODULE_OK);
    EXPECT_EQ(STG.stg_set_column_offscreen_buffer(get(), 0, mColumns.pixels.data(), width, corner.height),
              MODULE_OK);
}

void WorkbookView::render(std::int32_t x, std::int32_t y) {
    EXPECT_EQ(STG.stg_render_sheet(get(), mSheet, x, y), MODULE_OK);
}

std::pair<std::int32_t, std::int32_t> WorkbookView::dimensions() const {
    std::pair<std::int32_t, std::int32_t> size;
    EXPECT_EQ(STG.stg_get_sheet_dimensions(get(), mSheet, &size.first, &size.second), MODULE_OK);
    return size;
}

module_rect WorkbookView::bounds(std::int32_t x, std::int32_t y) const {
    module_rect r{};
    EXPECT_EQ(STG.stg_cell_bounds(get(), mSheet, x, y, &r.x, &r.y, &r.width, &r.height), MODULE_OK);
    return r;
}

CellReference WorkbookView::cellAt(std::int32_t x, std::int32_t y) const {
    CellReference cell;
    EXPECT_EQ(STG.stg_get_cell_reference_at_location(get(), mSheet, x, y, &cell.column, &cell.row),
              MODULE_OK);
    return cell;
}

module_rect WorkbookView::place(CellReference cell) const {
    // Positions increase with the reference, so find the cell by bisection.
    const auto search = [](std::int32_t high, auto referenceAt, std::int32_t wanted) {
        std::int32_t low = 0;
        while (low < high) {
            const std::int32_t middle = low + (high - low) / 2;
            (referenceAt(middle) < wanted ? low : high) = referenceAt(middle) < wanted ? middle + 1 : middle;
        }
        return low;
    };
    const auto [width, height] = dimensions();
    return bounds(search(
                      width - 1, [&](std::int32_t x) { return cellAt(x, 0).column; }, cell.column),
                  search(
                      height - 1, [&](std::int32_t y) { return cellAt(0, y).row; }, cell.row));
}

std::vector<std::int32_t> WorkbookView::visibleColumns(std::int32_t count) const {
    std::vector<std::int32_t> columns;
    const std::int32_t width = dimensions().first;
    for (std::int32_t x = 0; x < width && static_cast<std::int32_t>(columns.size()) < count;) {
        columns.push_back(cellAt(x, 0).column);
        const module_rect cell = bounds(x, 0);
        x = cell.x + std::max(cell.width, 1);
    }
    return columns;
}

std::vector<std::int32_t> WorkbookView::visibleRows(std::int32_t count) const {
    std::vector<std::int32_t> rows;
    const std::int32_t height = dimensions().second;
    for (std::int32_t y = 0; y < height && static_cast<std::int32_t>(rows.size()) < count;) {
        rows.push_back(cellAt(0, y).row);
        const module_rect cell = bounds(0, y);
        y = cell.y + std::max(cell.height, 1);
    }
    return rows;
}

std::u16string WorkbookView::title(std::int32_t sheet) const {
    return textOf([&](std::uint16_t* text, std::int32_t capacity, std::int32_t* length) {
        return STG.stg_get_sheet_title(get(), sheet, text, capacity, length);
    });
}

std::vector<std::string> WorkbookView::titles() const {
    std::int32_t count = 0;
    EXPECT_EQ(STG.stg_get_sheet_count(get(), &count), MODULE_OK);
    std::vector<std::string> all;
    for (std::int32_t i = 0; i < count; i++) {
        all.push_back(utf8(title(i)));
    }
    return all;
}

std::string WorkbookView::comment(CellReference cell) const {
    const module_rect at = place(cell);
    return utf8(textOf([&](std::uint16_t* text, std::int32_t capacity, std::int32_t* length) {
        return STG.stg_get_comment(get(), mSheet, at.x + at.width / 2, at.y + at.height / 2, text, capacity,
                                   0, length);
    }));
}

std::vector<stg_region> WorkbookView::commentMarks() const {
    const stg_region* marks = nullptr;
    std::int32_t count = -1;
    EXPECT_EQ(STG.stg_get_comment_marks_rects(get(), mSheet, &marks, &count), MODULE_OK);
    return {marks, marks + count};
}

std::vector<stg_region> WorkbookView::find(const std::string& text) const {
    EXPECT_EQ(STG.stg_find(get(), wide(text).data(), mSheet, 0, mSheet, dimensions().second), MODULE_OK);
    return regions();
}

std::vector<stg_region> WorkbookView::regions() const {
    const stg_region* found = nullptr;
    std::int32_t count = -1;
    EXPECT_EQ(STG.stg_get_found_regions(get(), &count, &found), MODULE_OK);
    return {found, found + count};
}

void WorkbookView::highlight(std::uint8_t red, std::uint8_t green, std::uint8_t blue) const {
    const std::uint8_t colour[] = {red, green, blue};
    EXPECT_EQ(STG.stg_set_highlight_color(get(), colour), MODULE_OK);
}

std::string WorkbookView::copy() const {
    return utf8(textOf([&](std::uint16_t* text, std::int32_t capacity, std::int32_t* length) {
        return STG.stg_copy_selection(get(), text, capacity, 0, length);
    }));
}

std::vector<std::string> WorkbookView::column(std::int32_t column) const {
    const module_rect at = place({column, 0});
    std::int32_t count = 0;
    EXPECT_EQ(STG.stg_select_column(get(), mSheet, at.x, at.x, &count), MODULE_OK);
    return linesOf(copy());
}

std::string sample(const std::string& name) {
    return SAMPLES_FOLDER "/" + name;
}

std::string generated(const std::string& name, std::vector<std::string> arguments) {
    const std::string path = folder() + "/" + name;
    if (std::filesystem::exists(path)) {
        return path;
    }
    for (std::string& argument : arguments) {
        argument = argument == "OUT" ? path : argument;
    }
    arguments.insert(arguments.begin(), sample("make_xlsx.py"));
    python(arguments);
    return path;
}

std::string written(const std::string& name, const std::string& bytes) {
    const std::string path = folder() + "/" + name;
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
}

std::string nameOf(CellReference cell) {
    std::string letters;
    for (std::int32_t rest = cell.column + 1; rest > 0; rest = (rest - 1) / 26) {
        letters.insert(letters.begin(), static_cast<char>('A' + (rest - 1) % 26));
    }
    return letters + std::to_string(cell.row + 1);
}

} // namespace lectern::test

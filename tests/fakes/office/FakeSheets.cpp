// SPDX-License-Identifier: Apache-2.0
// Workbooks of the fake office suite, text files as in FakeOffice.cpp:
//   name, password    as there
//   surface, render, sort    how these calls misbehave, see Misbehaviour.h
//   lie               return an impossible header corner and number of sheets
//   counted           sheets are wider by a pixel for each time they were measured
//   widened           sheets are wider by a pixel for each change of sheet 0
// There are two sheets, "One" and "Two", of 10 x 20 cells of 50 x 20 pixels at
// every dpi. Area a of sheet s is painted 0xFF000000 + a * 0x10000 + s * 0x1000
// + the document row of its pixels. Every second cell of row 1 has the comment
// "Told". A search has as many hits, in cells of column 0, as its text is long.
// The selection's text is "a\tb". Changes of sheet 1 are refused; their number
// can be restored in another engine. Every cell shows "7" and has the formula "=7";
// finds with options have one hit more for each flag.

#include "engine/office/sheet/SheetDocument.h"
#include "modules/ModuleResults.h"
#include "tests/fakes/office/FakeSettings.h"
#include "tests/fakes/office/Misbehaviour.h"

#include <algorithm>
#include <array>
#include <limits>

namespace lectern::engine {

namespace {

constexpr int32_t SHEETS = 2;
constexpr int32_t COLUMNS = 10;
constexpr int32_t ROWS = 20;
constexpr int32_t CELL_WIDTH = 50;
constexpr int32_t CELL_HEIGHT = 20;

int32_t trackAt(int32_t pixel, int32_t size, int32_t count) {
    return std::clamp(pixel / size, 0, count - 1);
}

int32_t whenSheet(int32_t sheet) {
    return sheet >= 0 && sheet < SHEETS ? MODULE_OK : MODULE_BAD_ARGUMENT;
}

} // namespace

struct SheetDocument::Private {
    fake::Settings settings;
    std::array<Surface, SHEET_AREAS> surfaces;
    int32_t hits = 0;
    int32_t findOptions = 0;
    bool selected = false;
    int32_t measured = 0; // calls of dimensions()
    int32_t changed = 0;  // calls that changed sheet 0

    int32_t change(int32_t sheet) {
        changed += sheet == 0 ? 1 : 0;
        return sheet == 1 ? MODULE_REFUSED : whenSheet(sheet);
    }
    std::string setting(const std::string& key) const {
        const auto found = settings.find(key);
        return found == settings.end() ? std::string() : found->second;
    }
    bool lies() const { return settings.count("lie") != 0; }
};

SheetDocument::SheetDocument(std::unique_ptr<Private> d) : mPrivate(std::move(d)) {}
SheetDocument::~SheetDocument() = default;

int32_t SheetDocument::open(Office&, const std::string& path, const std::string& password,
                            const std::string& /*temporaryDirectory*/,
                            std::unique_ptr<SheetDocument>& document) {
    auto d = std::make_unique<Private>();
    d->settings = fake::readSettings(path);
    if (d->settings.empty()) {
        return MODULE_DAMAGED;
    }
    if (const std::string wanted = d->setting("password"); wanted != password) {
        return password.empty() ? MODULE_NEEDS_PASSWORD : MODULE_WRONG_PASSWORD;
    }
    document.reset(new SheetDocument(std::move(d)));
    return MODULE_OK;
}

int32_t SheetDocument::openAny(Office& office, const AnyFile& file,
                               std::unique_ptr<SheetDocument>& document) {
    return open(office, file.path, file.password, file.temporaryDirectory, document);
}

int32_t SheetDocument::setSurface(SheetArea area, uint32_t* pixels, int32_t width, int32_t height) {
    if (const int32_t result = fake::misbehave(mPrivate->setting("surface")); result != MODULE_OK) {
        return result;
    }
    mPrivate->surfaces[static_cast<size_t>(area)] = {pixels, width, height};
    return MODULE_OK;
}

int32_t SheetDocument::setDpi(int32_t dpi) {
    return dpi > MOST_DPI ? MODULE_BAD_ARGUMENT : MODULE_OK;
}

int32_t SheetDocument::render(int32_t sheet, int32_t /*x*/, int32_t y) {
    if (const int32_t result = fake::misbehave(mPrivate->setting("render")); result != MODULE_OK) {
        return result;
    }
    for (size_t area = 0; area < mPrivate->surfaces.size() && whenSheet(sheet) == MODULE_OK; area++) {
        const Surface& surface = mPrivate->surfaces[area];
        const auto base =
            0xFF000000 + static_cast<uint32_t>(area) * 0x10000 + static_cast<uint32_t>(sheet) * 0x1000;
        for (int32_t row = 0; row < surface.height; row++) {
            std::fill_n(surface.row(row), surface.width, base + static_cast<uint32_t>(y + row));
        }
    }
    return whenSheet(sheet);
}

bool SheetDocument::prepareNext() {
    return false;
}

int32_t SheetDocument::releaseMemory() {
    return MODULE_OK;
}

int32_t SheetDocument::sheetCount(int32_t& count) {
    count = mPrivate->lies() ? std::numeric_limits<int32_t>::max() : SHEETS;
    return MODULE_OK;
}

int32_t SheetDocument::title(int32_t sheet, std::u16string& text) {
    text = sheet == 0 ? u"One" : u"Two";
    return whenSheet(sheet);
}

int32_t SheetDocument::columnCount(int32_t sheet, int32_t& count) {
    count = COLUMNS;
    return whenSheet(sheet);
}

int32_t SheetDocument::dimensions(int32_t sheet, int32_t& width, int32_t& height) {
    mPrivate->measured++;
    width = COLUMNS * CELL_WIDTH + (mPrivate->settings.count("counted") != 0 ? mPrivate->measured : 0) +
            (mPrivate->settings.count("widened") != 0 ? mPrivate->changed : 0);
    height = ROWS * CELL_HEIGHT;
    return whenSheet(sheet);
}

int32_t SheetDocument::cellBounds(int32_t sheet, int32_t x, int32_t y, PixelRect& bounds) {
    if (x == -1 && y == -1) {
        bounds = mPrivate->lies() ? PixelRect{0, 0, 1 << 30, -5} : PixelRect{0, 0, 30, 16};
    } else {
        bounds = {trackAt(x, CELL_WIDTH, COLUMNS) * CELL_WIDTH, trackAt(y, CELL_HEIGHT, ROWS) * CELL_HEIGHT,
                  CELL_WIDTH, CELL_HEIGHT};
    }
    return whenSheet(sheet);
}

int32_t SheetDocument::cellAt(int32_t sheet, int32_t x, int32_t y, int32_t& column, int32_t& row) {
    column = trackAt(x, CELL_WIDTH, COLUMNS);
    row = trackAt(y, CELL_HEIGHT, ROWS);
    return whenSheet(sheet);
}

int32_t SheetDocument::commentMarks(int32_t sheet, std::vector<PixelRect>& marks) {
    for (int32_t column = 0; column < COLUMNS; column += 2) {
        marks.push_back({column * CELL_WIDTH, CELL_HEIGHT, CELL_WIDTH, CELL_HEIGHT});
    }
    return whenSheet(sheet);
}

int32_t SheetDocument::comment(int32_t sheet, int32_t x, int32_t y, std::u16string& text) {
    const bool commented = trackAt(y, CELL_HEIGHT, ROWS) == 1 && trackAt(x, CELL_WIDTH, COLUMNS) % 2 == 0;
    text = commented ? u"Told" : u"";
    return whenSheet(sheet) == MODULE_OK && !commented ? MODULE_NOTHING_THERE : whenSheet(sheet);
}

int32_t SheetDocument::setHighlightColor(const Colour& /*colour*/) {
    return MODULE_OK;
}

int32_t SheetDocument::find(int32_t sheet, const std::u16string& text) {
    // Only the two flags count, because a fuzzer sends any number.
    mPrivate->hits = static_cast<int32_t>(text.size()) + (mPrivate->findOptions & 3);
    return whenSheet(sheet);
}

int32_t SheetDocument::foundRegions(std::vector<PixelRect>& regions) {
    for (int32_t row = 0; row < mPrivate->hits; row++) {
        regions.push_back({0, row * CELL_HEIGHT, CELL_WIDTH, CELL_HEIGHT});
    }
    return MODULE_OK;
}

int32_t SheetDocument::stopFind() {
    mPrivate->hits = 0;
    return MODULE_OK;
}

int32_t SheetDocument::selectArea(int32_t sheet, int32_t /*left*/, int32_t /*top*/, int32_t width,
                                  int32_t height) {
    mPrivate->selected = true;
    return width < 1 || height < 1 ? MODULE_BAD_ARGUMENT : whenSheet(sheet);
}

int32_t SheetDocument::selectTracks(int32_t sheet, Axis axis, int32_t first, int32_t last, int32_t& count) {
    const int32_t size = axis == Axis::Columns ? CELL_WIDTH : CELL_HEIGHT;
    const int32_t tracks = axis == Axis::Columns ? COLUMNS : ROWS;
    count = trackAt(last, size, tracks) - trackAt(first, size, tracks) + 1;
    mPrivate->selected = true;
    return whenSheet(sheet);
}

int32_t SheetDocument::selectCell(int32_t sheet, int32_t /*x*/, int32_t /*y*/) {
    mPrivate->selected = true;
    return whenSheet(sheet);
}

int32_t SheetDocument::clearSelection() {
    mPrivate->selected = false;
    return MODULE_OK;
}

int32_t SheetDocument::copySelection(std::u16string& text) {
    text = u"a\tb";
    return mPrivate->selected ? MODULE_OK : MODULE_NOTHING_THERE;
}

int32_t SheetDocument::sort(int32_t sheet, int32_t /*column*/, bool /*ascending*/) {
    const int32_t result = fake::misbehave(mPrivate->setting("sort"));
    return result != MODULE_OK ? result : mPrivate->change(sheet);
}

int32_t SheetDocument::hide(int32_t sheet, Axis /*axis*/, int32_t /*first*/, int32_t /*last*/) {
    return mPrivate->change(sheet);
}

int32_t SheetDocument::unhide(int32_t sheet, Axis /*axis*/, int32_t /*first*/, int32_t /*last*/) {
    return mPrivate->change(sheet);
}

int32_t SheetDocument::unhideAll(int32_t sheet, Axis /*axis*/) {
    return mPrivate->change(sheet);
}

int32_t SheetDocument::resize(int32_t sheet, Axis /*axis*/, int32_t /*at*/, int32_t /*change*/) {
    return mPrivate->change(sheet);
}

int32_t SheetDocument::autofitColumn(int32_t sheet, int32_t /*x*/) {
    return mPrivate->change(sheet);
}

// Changes are counted, and the selection has no place.
int32_t SheetDocument::changes(int32_t sheet, std::vector<int32_t>& numbers) {
    numbers = {mPrivate->changed};
    return whenSheet(sheet);
}

int32_t SheetDocument::restoreChanges(int32_t sheet, const std::vector<int32_t>& numbers) {
    mPrivate->changed = numbers.at(0);
    return whenSheet(sheet);
}

std::vector<int32_t> SheetDocument::selection() const {
    return {mPrivate->selected ? 1 : 0};
}

int32_t SheetDocument::restoreSelection(const std::vector<int32_t>& numbers) {
    mPrivate->selected = numbers.at(0) != 0;
    return MODULE_OK;
}

int32_t SheetDocument::cell(int32_t sheet, int32_t column, int32_t row, SheetCell& cell) {
    const PixelRect place{column * CELL_WIDTH, row * CELL_HEIGHT, mPrivate->lies() ? -1 : CELL_WIDTH,
                          CELL_HEIGHT};
    cell = {column, row, place, u"7", u"=7"};
    return column < COLUMNS && row < ROWS ? whenSheet(sheet) : MODULE_BAD_ARGUMENT;
}

int32_t SheetDocument::cells(int32_t sheet, int32_t x, int32_t y, int32_t width, int32_t height,
                             std::vector<SheetCell>& cells) {
    for (int32_t row = trackAt(y, CELL_HEIGHT, ROWS); row <= trackAt(y + height - 1, CELL_HEIGHT, ROWS);
         row++) {
        for (int32_t column = trackAt(x, CELL_WIDTH, COLUMNS);
             column <= trackAt(x + width - 1, CELL_WIDTH, COLUMNS); column++) {
            cell(sheet, column, row, cells.emplace_back());
        }
    }
    return whenSheet(sheet);
}

int32_t SheetDocument::tapArea(int32_t sheet, int32_t x, int32_t y, PixelRect& area) {
    return cellBounds(sheet, x, y, area);
}

int32_t SheetDocument::setFindOptions(int32_t flags) {
    mPrivate->findOptions = flags;
    return flags < 0 || flags > 3 ? MODULE_BAD_ARGUMENT : MODULE_OK;
}

int32_t SheetDocument::information(DocumentInformation& information) {
    const std::string name = mPrivate->setting("name");
    information = {{name.begin(), name.end()}, u"Somebody", u"", 1234567890, 0};
    return MODULE_OK;
}

} // namespace lectern::engine

// SPDX-License-Identifier: Apache-2.0
// The contents of cells: comments, hits, the selection and its text.
#include "engine/office/sheet/Comments.h"
#include "engine/office/sheet/SheetCopy.h"
#include "engine/office/sheet/SheetDocumentPrivate.h"

namespace lectern::engine {

namespace {

// The rectangles of the blocks that are not hidden.
template<class Blocks, class Place>
std::vector<PixelRect> visiblePlaces(const Blocks& blocks, Place place) {
    std::vector<PixelRect> places;
    for (const CellBlock& block : blocks) {
        if (const PixelRect rect = place(block); rect.width > 0 && rect.height > 0) {
            places.push_back(rect);
        }
    }
    return places;
}

} // namespace

int32_t SheetDocument::commentMarks(int32_t sheet, std::vector<PixelRect>& marks) {
    Private& d = *mPrivate;
    return d.onSheet(sheet, [&](const SheetGeometry& geometry) {
        marks = visiblePlaces(commentedCells(d.book, sheet),
                              [&](const CellBlock& cell) { return d.place(geometry, cell); });
        return MODULE_OK;
    });
}

int32_t SheetDocument::comment(int32_t sheet, int32_t x, int32_t y, std::u16string& text) {
    Private& d = *mPrivate;
    return d.onSheet(sheet, [&](const SheetGeometry& geometry) -> int32_t {
        std::optional<std::u16string> found =
            commentOf(d.book, sheet, geometry.columns.trackAt(x), geometry.rows.trackAt(y));
        text = std::move(found).value_or(u"");
        return text.empty() ? MODULE_NOTHING_THERE : MODULE_OK;
    });
}

int32_t SheetDocument::setHighlightColor(const Colour& colour) {
    mPrivate->highlight = colour;
    return MODULE_OK;
}

int32_t SheetDocument::find(int32_t sheet, const std::u16string& text) {
    Private& d = *mPrivate;
    // Without the sheet's geometry, which takes long to read: most searches of all sheets
    // find nothing on most of them.
    return guardedInOffice([&]() -> int32_t {
        if (!d.book.has(sheet)) {
            return MODULE_BAD_ARGUMENT;
        }
        d.hits = text.empty() ? CellHits() : findInSheet(d.book, sheet, text, d.findOptions);
        d.hitColour = d.highlight;
        return MODULE_OK;
    });
}

int32_t SheetDocument::foundRegions(std::vector<PixelRect>& regions) {
    Private& d = *mPrivate;
    if (d.hits.cells().empty()) {
        return MODULE_OK;
    }
    return d.onSheet(d.hits.sheet(), [&](const SheetGeometry& geometry) {
        regions =
            visiblePlaces(d.hits.cells(), [&](const CellBlock& cell) { return d.place(geometry, cell); });
        return MODULE_OK;
    });
}

int32_t SheetDocument::stopFind() {
    mPrivate->hits = CellHits();
    return MODULE_OK;
}

int32_t SheetDocument::selectArea(int32_t sheet, int32_t left, int32_t top, int32_t width, int32_t height) {
    Private& d = *mPrivate;
    if (width < 1 || height < 1) {
        return MODULE_BAD_ARGUMENT;
    }
    return d.onSheet(sheet, [&](const SheetGeometry& geometry) {
        const CellBlock block{geometry.columns.trackAt(left), geometry.rows.trackAt(top),
                              geometry.columns.trackAt(int64_t{left} + width - 1),
                              geometry.rows.trackAt(int64_t{top} + height - 1)};
        d.selection = {sheet, block, std::nullopt, d.highlight};
        return MODULE_OK;
    });
}

int32_t SheetDocument::selectTracks(int32_t sheet, Axis axis, int32_t first, int32_t last, int32_t& count) {
    Private& d = *mPrivate;
    return d.onSheet(sheet, [&](const SheetGeometry& geometry) {
        const Tracks& tracks = geometry.along(axis);
        const int32_t from = tracks.trackAt(std::min(first, last));
        const int32_t to = tracks.trackAt(std::max(first, last));
        const CellBlock block = axis == Axis::Columns ? CellBlock{from, 0, to, geometry.rows.count() - 1}
                                                      : CellBlock{0, from, geometry.columns.count() - 1, to};
        d.selection = {sheet, block, axis, d.highlight};
        count = tracks.visibleIn(from, to);
        return MODULE_OK;
    });
}

int32_t SheetDocument::selectCell(int32_t sheet, int32_t x, int32_t y) {
    Private& d = *mPrivate;
    return d.onSheet(sheet, [&](const SheetGeometry& geometry) {
        const CellBlock block =
            d.book.mergedBlock(sheet, geometry.columns.trackAt(x), geometry.rows.trackAt(y));
        d.selection = {sheet, block, std::nullopt, d.highlight};
        return MODULE_OK;
    });
}

int32_t SheetDocument::clearSelection() {
    mPrivate->selection.reset();
    return MODULE_OK;
}

int32_t SheetDocument::copySelection(std::u16string& text) {
    Private& d = *mPrivate;
    if (!d.selection) {
        return MODULE_NOTHING_THERE;
    }
    return d.onSheet(d.selection->sheet, [&](const SheetGeometry&) -> int32_t {
        text = textOfBlock(d.book, d.selection->sheet, d.selection->block);
        return MODULE_OK;
    });
}

} // namespace lectern::engine

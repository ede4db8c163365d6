// SPDX-License-Identifier: Apache-2.0
// What only views with touch manners ask for.
#include "engine/office/sheet/CellContents.h"
#include "engine/office/sheet/SheetDocumentPrivate.h"

#include <utility>

namespace lectern::engine {

int32_t SheetDocument::cell(int32_t sheet, int32_t column, int32_t row, SheetCell& cell) {
    Private& d = *mPrivate;
    return d.onSheet(sheet, [&](const SheetGeometry& geometry) -> int32_t {
        if (column < 0 || row < 0 || column >= geometry.columns.count() || row >= geometry.rows.count()) {
            return MODULE_BAD_ARGUMENT;
        }
        CellContents contents = contentsOf(d.book, sheet, column, row);
        cell = {contents.block.left, contents.block.top, d.place(geometry, contents.block),
                std::move(contents.text), std::move(contents.formula)};
        return MODULE_OK;
    });
}

int32_t SheetDocument::cells(int32_t sheet, int32_t x, int32_t y, int32_t width, int32_t height,
                             std::vector<SheetCell>& cells) {
    Private& d = *mPrivate;
    if (width < 1 || height < 1) {
        return MODULE_BAD_ARGUMENT;
    }
    return d.onSheet(sheet, [&](const SheetGeometry& geometry) {
        const CellBlock shown{geometry.columns.trackAt(x), geometry.rows.trackAt(y),
                              geometry.columns.trackAt(int64_t{x} + width - 1),
                              geometry.rows.trackAt(int64_t{y} + height - 1)};
        for (CellContents& contents : textsIn(d.book, sheet, shown)) {
            const PixelRect place = d.place(geometry, contents.block);
            if (place.width > 0 && place.height > 0) {
                cells.push_back(
                    {contents.block.left, contents.block.top, place, std::move(contents.text), {}});
            }
        }
        return MODULE_OK;
    });
}

int32_t SheetDocument::tapArea(int32_t sheet, int32_t x, int32_t y, PixelRect& area) {
    Private& d = *mPrivate;
    return d.onSheet(sheet, [&](const SheetGeometry& geometry) {
        if (const auto drawing = d.book.drawingAt(sheet, x, y)) {
            area = *drawing;
        } else {
            area = d.place(geometry,
                           d.book.mergedBlock(sheet, geometry.columns.trackAt(x), geometry.rows.trackAt(y)));
        }
        return MODULE_OK;
    });
}

int32_t SheetDocument::setFindOptions(int32_t flags) {
    if ((flags & ~(FIND_MATCH_CASE | FIND_WHOLE_WORDS)) != 0) {
        return MODULE_BAD_ARGUMENT;
    }
    mPrivate->findOptions = flags;
    return MODULE_OK;
}

} // namespace lectern::engine

// SPDX-License-Identifier: Apache-2.0
#include "engine/office/sheet/Workbook.h"

#include "engine/layout/Twips.h"

#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XCellRangesQuery.hpp>
#include <com/sun/star/sheet/XSheetAnnotation.hpp>
#include <com/sun/star/sheet/XSheetAnnotations.hpp>
#include <com/sun/star/sheet/XSheetAnnotationsSupplier.hpp>
#include <com/sun/star/sheet/XSheetCellCursor.hpp>
#include <com/sun/star/sheet/XSheetCellRange.hpp>
#include <com/sun/star/sheet/XSheetCellRanges.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <com/sun/star/sheet/XUsedAreaCursor.hpp>
#include <com/sun/star/text/WritingMode2.hpp>
#include <com/sun/star/util/XMergeable.hpp>
#include <json-c/json.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace lectern::engine {

using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

namespace {

// The least extent of a sheet, even of an empty one.
constexpr int32_t LEAST_COLUMNS = 21;
constexpr int32_t LEAST_ROWS = 51;

constexpr char GEOMETRY_COMMAND[] = ".uno:SheetGeometryData?columns=true&rows=true&sizes=true&hidden=true";

// Comments are reported through the interface, not drawn.
void hideComments(const Reference<css::sheet::XSpreadsheet>& sheet) {
    const Reference<css::sheet::XSheetAnnotationsSupplier> supplier(sheet, UNO_QUERY_THROW);
    const Reference<css::container::XIndexAccess> comments(supplier->getAnnotations(), UNO_QUERY_THROW);
    for (sal_Int32 i = 0; i < comments->getCount(); ++i) {
        const Reference<css::sheet::XSheetAnnotation> comment(comments->getByIndex(i), UNO_QUERY_THROW);
        if (comment->getIsVisible()) {
            comment->setIsVisible(false);
        }
    }
}

using Json = std::unique_ptr<json_object, decltype(&json_object_put)>;

Tracks readTracks(json_object* geometry, const char* axis) {
    json_object* tracks = json_object_object_get(geometry, axis);
    const auto text = [&](const char* key) {
        const char* value = json_object_get_string(json_object_object_get(tracks, key));
        return std::string(value == nullptr ? "" : value);
    };
    return {text("sizes"), text("hidden")};
}

bool holdsMerged(const Reference<css::sheet::XSpreadsheet>& sheet, const CellBlock& block) {
    const Reference<css::util::XMergeable> range(
        sheet->getCellRangeByPosition(block.left, block.top, block.right, block.bottom), UNO_QUERY_THROW);
    return range->getIsMerged();
}

// The largest index in [0, last] for which isAnyFrom(index) is true: whether
// there is anything from that index to the end. It counts as true for 0.
template<class IsAnyFrom>
int32_t lastWith(int32_t last, IsAnyFrom isAnyFrom) {
    int32_t first = 0;
    while (first < last) {
        const int32_t middle = last - (last - first) / 2;
        if (isAnyFrom(middle)) {
            first = middle;
        } else {
            last = middle - 1;
        }
    }
    return first;
}

// Number of tracks within the `twips` that the suite lays out for cells and drawings.
int32_t laidOut(const Tracks& tracks, long twips, int32_t dpi) {
    const int64_t pixels = (int64_t{twips} * dpi + TWIPS_PER_INCH / 2) / TWIPS_PER_INCH;
    // One pixel less, because the twips were already rounded from pixels.
    return tracks.countUpTo(pixels - 1);
}

} // namespace

CellSet::CellSet(const CellBlock& within) : mWithin(within) {
    mBits.resize(index(within.right, within.bottom) + 1);
}

void CellSet::insert(const CellBlock& cells) {
    for (int32_t row = cells.top; row <= cells.bottom; ++row) {
        const auto first = mBits.begin() + static_cast<std::ptrdiff_t>(index(cells.left, row));
        std::fill(first, first + (cells.right - cells.left + 1), true);
    }
}

Workbook::Workbook(LoadedModel loaded) : mLoaded(std::move(loaded)) {
    painter().initializeForRendering("{}");
    setProperty(propertiesOf(model()), "IsUndoEnabled", false);
    setProperty(propertiesOf(model()->getCurrentController()), "ShowNotes", false);
    const Reference<css::sheet::XSpreadsheetDocument> document(model(), UNO_QUERY_THROW);
    const Reference<css::container::XIndexAccess> sheets(document->getSheets(), UNO_QUERY_THROW);
    for (sal_Int32 part = 0; part < sheets->getCount(); ++part) {
        const Reference<css::sheet::XSpreadsheet> cells(sheets->getByIndex(part), UNO_QUERY_THROW);
        const auto properties = propertiesOf(cells);
        if (!property<bool>(properties, "IsVisible", true)) {
            continue;
        }
        mSheets.push_back({part, cells, Drawings(cells)});
    }
}

void Workbook::prepare(Sheet& sheet) {
    // For a sheet that runs from right to left the painter would mirror the
    // letters as well.
    const auto properties = propertiesOf(sheet.cells);
    if (property<sal_Int16>(properties, "TableLayout") != css::text::WritingMode2::LR_TB) {
        setProperty(properties, "TableLayout", css::text::WritingMode2::LR_TB);
    }
    hideComments(sheet.cells);
    sheet.drawings.read();
    sheet.prepared = true;
}

void Workbook::show(int32_t sheet) {
    const int part = mSheets[static_cast<size_t>(sheet)].part;
    if (painter().getPart() != part) {
        painter().setPart(part);
    }
}

void Workbook::setDpi(int32_t dpi) {
    mDpi = dpi;
    painter().setClientZoom(dpi, dpi, TWIPS_PER_INCH, TWIPS_PER_INCH);
    for (Sheet& sheet : mSheets) {
        if (sheet.geometry) {
            sheet.geometry->columns.setDpi(dpi);
            sheet.geometry->rows.setDpi(dpi);
        }
    }
}

const SheetGeometry& Workbook::geometry(int32_t index) {
    Sheet& sheet = mSheets[static_cast<size_t>(index)];
    if (!sheet.prepared) {
        prepare(sheet);
    }
    if (!sheet.geometry) {
        show(index);
        const std::unique_ptr<char, decltype(&std::free)> text(painter().getCommandValues(GEOMETRY_COMMAND),
                                                               &std::free);
        const Json json(json_tokener_parse(text ? text.get() : "{}"), &json_object_put);
        SheetGeometry read{readTracks(json.get(), "columns"), readTracks(json.get(), "rows")};
        read.columns.setDpi(mDpi);
        read.rows.setDpi(mDpi);
        long width = 0;
        long height = 0;
        painter().getDocumentSize(&width, &height);
        const CellBlock used = usedBlock(index).value_or(CellBlock{});
        const CellBlock merged = mergedExtent(index).value_or(CellBlock{});
        const int32_t columns = std::max({used.right + 1, merged.right + 1, LEAST_COLUMNS});
        const int32_t rows = std::max({used.bottom + 1, merged.bottom + 1, LEAST_ROWS});
        read.columns.setCount(std::max(columns, laidOut(read.columns, width, mDpi)));
        read.rows.setCount(std::max(rows, laidOut(read.rows, height, mDpi)));
        sheet.geometry = std::move(read);
    }
    return *sheet.geometry;
}

void Workbook::changed(int32_t index) {
    ++mRevision;
    Sheet& sheet = mSheets[static_cast<size_t>(index)];
    sheet.geometry.reset();
    sheet.drawings.read();
}

void Workbook::alignDrawings(int32_t index, int64_t left, int64_t top, int64_t right, int64_t bottom) {
    const auto& [columns, rows] = geometry(index);
    mSheets[static_cast<size_t>(index)].drawings.align(
        {columns, columns.displacementAt(left, mDpi), left, right},
        {rows, rows.displacementAt(top, mDpi), top, bottom}, mDpi);
}

std::optional<PixelRect> Workbook::drawingAt(int32_t index, int32_t x, int32_t y) {
    const auto& [columns, rows] = geometry(index);
    return mSheets[static_cast<size_t>(index)].drawings.at(columns, rows, mDpi, x, y);
}

bool Workbook::showsGrid() const {
    return property<bool>(propertiesOf(model()->getCurrentController()), "ShowGrid");
}

void Workbook::showGrid(bool shown) {
    setProperty(propertiesOf(model()->getCurrentController()), "ShowGrid", shown);
}

CellSet Workbook::emptyCells(int32_t index, const CellBlock& block) const {
    const Reference<css::sheet::XCellRangesQuery> cells(
        sheet(index)->getCellRangeByPosition(block.left, block.top, block.right, block.bottom),
        UNO_QUERY_THROW);
    CellSet empty(block);
    const Reference<css::sheet::XSheetCellRanges> ranges(cells->queryEmptyCells(), UNO_QUERY_THROW);
    for (const css::table::CellRangeAddress& range : ranges->getRangeAddresses()) {
        empty.insert(blockOf(range));
    }
    return empty;
}

std::optional<CellBlock> Workbook::usedBlock(int32_t index) const {
    const auto cursor = sheet(index)->createCursor();
    const Reference<css::sheet::XUsedAreaCursor> used(cursor, UNO_QUERY_THROW);
    used->gotoStartOfUsedArea(false);
    used->gotoEndOfUsedArea(true);
    const Reference<css::sheet::XCellRangeAddressable> address(cursor, UNO_QUERY_THROW);
    const CellBlock block = blockOf(address->getRangeAddress());
    const bool empty = block.right == 0 && block.bottom == 0 &&
                       sheet(index)->getCellByPosition(0, 0)->getType() == css::table::CellContentType_EMPTY;
    return empty ? std::nullopt : std::optional(block);
}

std::optional<CellBlock> Workbook::mergedExtent(int32_t index) const {
    const auto& cells = sheet(index);
    const Reference<css::sheet::XCellRangeAddressable> all(cells, UNO_QUERY_THROW);
    const CellBlock whole = blockOf(all->getRangeAddress());
    if (!holdsMerged(cells, whole)) {
        return std::nullopt;
    }
    const int32_t column = lastWith(whole.right, [&](int32_t first) {
        return holdsMerged(cells, {first, 0, whole.right, whole.bottom});
    });
    const int32_t row = lastWith(whole.bottom, [&](int32_t first) {
        return holdsMerged(cells, {0, first, whole.right, whole.bottom});
    });
    return mergedAround(index, {0, 0, column, row});
}

CellBlock Workbook::mergedBlock(int32_t index, int32_t column, int32_t row) const {
    return mergedAround(index, {column, row, column, row});
}

CellBlock Workbook::mergedAround(int32_t index, const CellBlock& block) const {
    const auto& cells = sheet(index);
    const Reference<css::sheet::XSheetCellRange> range(
        cells->getCellRangeByPosition(block.left, block.top, block.right, block.bottom), UNO_QUERY_THROW);
    const auto cursor = cells->createCursorByRange(range);
    cursor->collapseToMergedArea();
    const Reference<css::sheet::XCellRangeAddressable> address(cursor, UNO_QUERY_THROW);
    return blockOf(address->getRangeAddress());
}

} // namespace lectern::engine

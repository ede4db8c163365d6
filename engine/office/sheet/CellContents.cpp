// SPDX-License-Identifier: Apache-2.0
#include "engine/office/sheet/CellContents.h"

#include <com/sun/star/sheet/CellFlags.hpp>
#include <com/sun/star/sheet/XCellRangesQuery.hpp>
#include <com/sun/star/sheet/XSheetCellRanges.hpp>
#include <com/sun/star/text/XSimpleText.hpp>

#include <algorithm>
#include <tuple>

namespace lectern::engine {

using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

namespace {

// Cells with contents that are looked at. A screen of the smallest cells has fewer.
constexpr size_t MOST_CELLS = size_t{1} << 16;

struct CellPlace {
    int32_t column;
    int32_t row;
};

std::u16string shownText(const Workbook& book, int32_t sheet, const CellPlace& place) {
    const Reference<css::text::XSimpleText> text(
        book.sheet(sheet)->getCellByPosition(place.column, place.row), UNO_QUERY_THROW);
    return toText(text->getString());
}

bool overlap(const CellBlock& a, const CellBlock& b) {
    return a.left <= b.right && b.left <= a.right && a.top <= b.bottom && b.top <= a.bottom;
}

// The cells of a block with any contents, row by row.
std::vector<CellPlace> filledCells(const Workbook& book, int32_t sheet, const CellBlock& block) {
    using namespace css::sheet;
    const Reference<XCellRangesQuery> query(
        book.sheet(sheet)->getCellRangeByPosition(block.left, block.top, block.right, block.bottom),
        UNO_QUERY_THROW);
    const Reference<XSheetCellRanges> filled(query->queryContentCells(CellFlags::VALUE | CellFlags::DATETIME |
                                                                      CellFlags::STRING | CellFlags::FORMULA),
                                             UNO_QUERY_THROW);
    std::vector<CellPlace> places;
    for (const css::table::CellRangeAddress& range : filled->getRangeAddresses()) {
        for (int32_t row = range.StartRow; row <= range.EndRow && places.size() < MOST_CELLS; ++row) {
            for (int32_t column = range.StartColumn; column <= range.EndColumn; ++column) {
                places.push_back({column, row});
            }
        }
    }
    std::sort(places.begin(), places.end(), [](const CellPlace& a, const CellPlace& b) {
        return std::tie(a.row, a.column) < std::tie(b.row, b.column);
    });
    return places;
}

} // namespace

CellContents contentsOf(const Workbook& book, int32_t sheet, int32_t column, int32_t row) {
    const CellBlock block = book.mergedBlock(sheet, column, row);
    const auto cell = book.sheet(sheet)->getCellByPosition(block.left, block.top);
    const bool hasFormula = cell->getType() == css::table::CellContentType_FORMULA;
    return {block, shownText(book, sheet, {block.left, block.top}),
            hasFormula ? toText(cell->getFormula()) : std::u16string()};
}

std::vector<CellContents> textsIn(const Workbook& book, int32_t sheet, const CellBlock& block) {
    std::vector<CellContents> texts;
    const bool mayBeMerged = book.mergedExtent(sheet).has_value();
    const CellBlock around = mayBeMerged ? book.mergedAround(sheet, block) : block;
    for (const CellPlace& place : filledCells(book, sheet, around)) {
        if (texts.size() == MOST_TEXTS) {
            break;
        }
        const CellBlock cell = mayBeMerged ? book.mergedBlock(sheet, place.column, place.row)
                                           : CellBlock{place.column, place.row, place.column, place.row};
        const bool isFirst = cell.left == place.column && cell.top == place.row;
        if (isFirst && overlap(cell, block)) {
            if (std::u16string text = shownText(book, sheet, place); !text.empty()) {
                texts.push_back({cell, std::move(text), {}});
            }
        }
    }
    return texts;
}

} // namespace lectern::engine

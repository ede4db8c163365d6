// SPDX-License-Identifier: Apache-2.0
#include "engine/office/sheet/SheetSearch.h"

#include "engine/layout/WholeWords.h"

#include <com/sun/star/sheet/XSheetCellRanges.hpp>
#include <com/sun/star/text/XSimpleText.hpp>
#include <com/sun/star/util/XMergeable.hpp>
#include <com/sun/star/util/XSearchable.hpp>

#include <algorithm>
#include <tuple>

namespace lectern::engine {

using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

namespace {

constexpr size_t MOST_HITS = 1'000'000;
constexpr sal_Int16 SEARCH_VALUES = 1;

css::uno::Sequence<css::table::CellRangeAddress> findRanges(const Reference<css::sheet::XSpreadsheet>& sheet,
                                                            const std::u16string& text, bool matchCase) {
    const Reference<css::util::XSearchable> searchable(sheet, UNO_QUERY_THROW);
    const auto descriptor = searchable->createSearchDescriptor();
    descriptor->setSearchString(
        OUString(reinterpret_cast<const sal_Unicode*>(text.data()), static_cast<sal_Int32>(text.size())));
    setProperty(propertiesOf(descriptor), "SearchType", SEARCH_VALUES);
    setProperty(propertiesOf(descriptor), "SearchFormatted", true);
    setProperty(propertiesOf(descriptor), "SearchCaseSensitive", matchCase);
    const Reference<css::sheet::XSheetCellRanges> found(searchable->findAll(descriptor), UNO_QUERY);
    return found.is() ? found->getRangeAddresses() : css::uno::Sequence<css::table::CellRangeAddress>();
}

bool holdsMergedCells(const Reference<css::sheet::XSpreadsheet>& sheet, const CellBlock& block) {
    const Reference<css::util::XMergeable> range(
        sheet->getCellRangeByPosition(block.left, block.top, block.right, block.bottom), UNO_QUERY);
    return range.is() && range->getIsMerged();
}

// The suite's own option compares whole cells.
bool holdsWholeWords(const Reference<css::table::XCell>& cell, const std::u16string& wanted, bool matchCase) {
    const Reference<css::text::XSimpleText> simple(cell, UNO_QUERY_THROW);
    return hasWholeWords(toText(simple->getString()), wanted, matchCase);
}

} // namespace

CellHits::CellHits(int32_t sheet, std::vector<CellBlock> cells) : mSheet(sheet), mCells(std::move(cells)) {
    std::sort(mCells.begin(), mCells.end(), [](const CellBlock& a, const CellBlock& b) {
        return std::tie(a.top, a.left) < std::tie(b.top, b.left);
    });
    for (const CellBlock& cell : mCells) {
        mTallest = std::max(mTallest, cell.bottom - cell.top + 1);
    }
}

size_t CellHits::firstFrom(int32_t row) const {
    const auto first =
        std::lower_bound(mCells.begin(), mCells.end(), row - mTallest + 1,
                         [](const CellBlock& cell, int32_t wanted) { return cell.top < wanted; });
    return static_cast<size_t>(first - mCells.begin());
}

CellHits findInSheet(const Workbook& book, int32_t sheet, const std::u16string& text, int32_t options) {
    const bool matchCase = (options & FIND_MATCH_CASE) != 0;
    std::vector<CellBlock> cells;
    for (const css::table::CellRangeAddress& range : findRanges(book.sheet(sheet), text, matchCase)) {
        const CellBlock block = blockOf(range);
        const bool merged = holdsMergedCells(book.sheet(sheet), block);
        for (int32_t row = block.top; row <= block.bottom && cells.size() < MOST_HITS; ++row) {
            for (int32_t column = block.left; column <= block.right; ++column) {
                if ((options & FIND_WHOLE_WORDS) == 0 ||
                    holdsWholeWords(book.sheet(sheet)->getCellByPosition(column, row), text, matchCase)) {
                    cells.push_back(merged ? book.mergedBlock(sheet, column, row)
                                           : CellBlock{column, row, column, row});
                }
            }
        }
    }
    return {sheet, std::move(cells)};
}

} // namespace lectern::engine

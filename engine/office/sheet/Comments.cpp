// SPDX-License-Identifier: Apache-2.0
#include "engine/office/sheet/Comments.h"

#include <com/sun/star/sheet/XSheetAnnotation.hpp>
#include <com/sun/star/sheet/XSheetAnnotationAnchor.hpp>
#include <com/sun/star/sheet/XSheetAnnotations.hpp>
#include <com/sun/star/sheet/XSheetAnnotationsSupplier.hpp>
#include <com/sun/star/text/XSimpleText.hpp>

#include <algorithm>
#include <tuple>

namespace lectern::engine {

using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

std::vector<CellBlock> commentedCells(const Workbook& book, int32_t sheet) {
    const Reference<css::sheet::XSheetAnnotationsSupplier> supplier(book.sheet(sheet), UNO_QUERY_THROW);
    const auto comments = supplier->getAnnotations();
    std::vector<CellBlock> cells;
    for (sal_Int32 i = 0; i < comments->getCount(); ++i) {
        const Reference<css::sheet::XSheetAnnotation> comment(comments->getByIndex(i), UNO_QUERY_THROW);
        const css::table::CellAddress at = comment->getPosition();
        cells.push_back(book.mergedBlock(sheet, at.Column, at.Row));
    }
    std::sort(cells.begin(), cells.end(), [](const CellBlock& a, const CellBlock& b) {
        return std::tie(a.top, a.left) < std::tie(b.top, b.left);
    });
    return cells;
}

std::optional<std::u16string> commentOf(const Workbook& book, int32_t sheet, int32_t column, int32_t row) {
    const CellBlock block = book.mergedBlock(sheet, column, row);
    const Reference<css::sheet::XSheetAnnotationAnchor> anchor(
        book.sheet(sheet)->getCellByPosition(block.left, block.top), UNO_QUERY_THROW);
    const Reference<css::text::XSimpleText> comment(anchor->getAnnotation(), UNO_QUERY_THROW);
    std::u16string text = toText(comment->getString());
    return text.empty() ? std::nullopt : std::optional(std::move(text));
}

} // namespace lectern::engine

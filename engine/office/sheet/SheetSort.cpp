// SPDX-License-Identifier: Apache-2.0
#include "engine/office/sheet/SheetSort.h"

#include "modules/ModuleResults.h"

#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/document/XUndoManagerSupplier.hpp>
#include <com/sun/star/sheet/CellFlags.hpp>
#include <com/sun/star/sheet/FormulaResult.hpp>
#include <com/sun/star/sheet/XCellRangesQuery.hpp>
#include <com/sun/star/sheet/XSheetCellRanges.hpp>
#include <com/sun/star/table/TableSortField.hpp>
#include <com/sun/star/util/XProtectable.hpp>
#include <com/sun/star/util/XSortable.hpp>

#include <iterator>

namespace lectern::engine {

using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

namespace {

namespace CellFlags = css::sheet::CellFlags;
namespace FormulaResult = css::sheet::FormulaResult;

using Cells = Reference<css::table::XCellRange>;

bool hasConstants(const Cells& cells, sal_Int32 flags) {
    const Reference<css::sheet::XCellRangesQuery> query(cells, UNO_QUERY_THROW);
    return query->queryContentCells(static_cast<sal_Int16>(flags))->getRangeAddresses().hasElements();
}

bool hasFormulas(const Cells& cells, sal_Int32 results) {
    const Reference<css::sheet::XCellRangesQuery> query(cells, UNO_QUERY_THROW);
    return query->queryFormulaCells(results)->getRangeAddresses().hasElements();
}

bool holdsText(const Cells& cells) {
    return hasConstants(cells, CellFlags::STRING) || hasFormulas(cells, FormulaResult::STRING);
}

bool holdsOther(const Cells& cells) {
    return hasConstants(cells, CellFlags::VALUE | CellFlags::DATETIME) ||
           hasFormulas(cells, FormulaResult::VALUE | FormulaResult::ERROR);
}

bool holdsAnything(const Cells& cells) {
    return holdsText(cells) || holdsOther(cells);
}

bool startsWithHeader(const Reference<css::sheet::XSpreadsheet>& sheet, const CellBlock& block) {
    if (block.top == block.bottom ||
        holdsOther(sheet->getCellRangeByPosition(block.left, block.top, block.right, block.top))) {
        return false;
    }
    for (int32_t column = block.left; column <= block.right; ++column) {
        if (holdsText(sheet->getCellRangeByPosition(column, block.top, column, block.top)) &&
            holdsOther(sheet->getCellRangeByPosition(column, block.top + 1, column, block.bottom))) {
            return true;
        }
    }
    return false;
}

template<class T>
css::beans::PropertyValue option(const char* name, const T& value) {
    css::beans::PropertyValue option;
    option.Name = OUString::createFromAscii(name);
    option.Value <<= value;
    return option;
}

css::uno::Sequence<css::beans::PropertyValue> sortDescriptor(int32_t field, bool ascending, bool header) {
    css::table::TableSortField byColumn;
    byColumn.Field = field;
    byColumn.IsAscending = ascending;
    const css::beans::PropertyValue options[] = {
        option("SortFields", css::uno::Sequence<css::table::TableSortField>(&byColumn, 1)),
        option("ContainsHeader", header), option("IsSortColumns", false),
        option("BindFormatsToContent", true)};
    return {options, static_cast<sal_Int32>(std::size(options))};
}

// Tells whether the suite has sorted. The suite reports no error when it
// refuses, but a sort that was done can be undone.
class UndoWatch {
public:
    explicit UndoWatch(const Reference<css::frame::XModel>& model)
        : mProperties(propertiesOf(model)),
          mManager(Reference<css::document::XUndoManagerSupplier>(model, UNO_QUERY_THROW)->getUndoManager()) {
        setProperty(mProperties, "IsUndoEnabled", true);
        mManager->clear();
    }
    ~UndoWatch() {
        try {
            mManager->clear();
        } catch (const css::uno::Exception&) {
            // The undo stack keeps its entries.
        }
        setProperty(mProperties, "IsUndoEnabled", false);
    }
    UndoWatch(const UndoWatch&) = delete;
    UndoWatch& operator=(const UndoWatch&) = delete;

    bool hasChange() const { return mManager->isUndoPossible(); }

private:
    Reference<css::beans::XPropertySet> mProperties;
    Reference<css::document::XUndoManager> mManager;
};

} // namespace

int32_t sortSheet(Workbook& book, int32_t index, int32_t column, bool ascending) {
    const auto& sheet = book.sheet(index);
    const std::optional<CellBlock> block = book.usedBlock(index);
    if (!block || column < block->left || column > block->right ||
        !holdsAnything(sheet->getCellRangeByPosition(column, block->top, column, block->bottom))) {
        return MODULE_NOTHING_THERE;
    }
    const Reference<css::util::XProtectable> protection(sheet, UNO_QUERY);
    if (protection.is() && protection->isProtected()) {
        return MODULE_REFUSED;
    }
    const bool header = startsWithHeader(sheet, *block);
    const Reference<css::util::XSortable> sortable(
        sheet->getCellRangeByPosition(block->left, block->top, block->right, block->bottom), UNO_QUERY_THROW);
    const UndoWatch undo(book.model());
    sortable->sort(sortDescriptor(column - block->left, ascending, header));
    return undo.hasChange() ? MODULE_OK : MODULE_REFUSED;
}

} // namespace lectern::engine

// SPDX-License-Identifier: Apache-2.0
#include "engine/office/sheet/SheetSort.h"

#include "engine/layout/HeaderRow.h"
#include "modules/ModuleResults.h"

#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/document/XUndoManagerSupplier.hpp>
#include <com/sun/star/sheet/CellFlags.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XCellRangeData.hpp>
#include <com/sun/star/sheet/XCellRangesQuery.hpp>
#include <com/sun/star/sheet/XDatabaseRange.hpp>
#include <com/sun/star/sheet/XSheetCellRanges.hpp>
#include <com/sun/star/sheet/XUnnamedDatabaseRanges.hpp>
#include <com/sun/star/table/TableSortField.hpp>
#include <com/sun/star/util/XProtectable.hpp>
#include <com/sun/star/util/XSortable.hpp>

#include <algorithm>
#include <iterator>

namespace lectern::engine {

using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

namespace {

// Rows at the start of the used area that are looked at for a header.
constexpr int32_t HEADER_ROWS = 100;

bool holdsAnything(const Reference<css::table::XCellRange>& cells) {
    namespace CellFlags = css::sheet::CellFlags;
    constexpr sal_Int16 ANYTHING =
        CellFlags::VALUE | CellFlags::DATETIME | CellFlags::STRING | CellFlags::FORMULA;
    const Reference<css::sheet::XCellRangesQuery> query(cells, UNO_QUERY_THROW);
    return query->queryContentCells(ANYTHING)->getRangeAddresses().hasElements();
}

CellKind kindOf(const css::uno::Any& contents) {
    OUString text;
    if (contents >>= text) {
        return text.isEmpty() ? CellKind::Empty : CellKind::Text;
    }
    return CellKind::Value;
}

std::vector<std::vector<CellKind>> kindsOf(const Reference<css::sheet::XSpreadsheet>& sheet,
                                           const CellBlock& block) {
    const Reference<css::sheet::XCellRangeData> cells(
        sheet->getCellRangeByPosition(block.left, block.top, block.right, block.bottom), UNO_QUERY_THROW);
    std::vector<std::vector<CellKind>> rows;
    for (const auto& contents : cells->getDataArray()) {
        std::vector<CellKind>& row = rows.emplace_back();
        std::transform(contents.begin(), contents.end(), std::back_inserter(row), kindOf);
    }
    return rows;
}

// The first row below the header, or the first row of the block without one.
int32_t firstRowOfData(const Workbook& book, int32_t sheet, const CellBlock& block) {
    const int32_t last = std::min(block.bottom, block.top + HEADER_ROWS - 1);
    const std::optional<size_t> header =
        headerRow(kindsOf(book.sheet(sheet), {block.left, block.top, block.right, last}));
    if (!header) {
        return block.top;
    }
    // A merged area of the header may cover rows below.
    const int32_t row = block.top + static_cast<int32_t>(*header);
    return book.mergedAround(sheet, {block.left, row, block.right, row}).bottom + 1;
}

// The sheet's lists with filter buttons and a header.
std::vector<CellBlock> filteredLists(const Workbook& book, int32_t sheet) {
    const Reference<css::sheet::XCellRangeAddressable> cells(book.sheet(sheet), UNO_QUERY_THROW);
    const sal_Int16 number = cells->getRangeAddress().Sheet;
    std::vector<CellBlock> lists;
    const auto add = [&](const Reference<css::sheet::XDatabaseRange>& range) {
        const auto properties = propertiesOf(range);
        if (range.is() && range->getDataArea().Sheet == number && property<bool>(properties, "AutoFilter") &&
            property<bool>(properties, "ContainsHeader")) {
            lists.push_back(blockOf(range->getDataArea()));
        }
    };
    const auto model = propertiesOf(book.model());
    Reference<css::sheet::XUnnamedDatabaseRanges> unnamed;
    if ((anyProperty(model, "UnnamedDatabaseRanges") >>= unnamed) && unnamed->hasByTable(number)) {
        add(Reference<css::sheet::XDatabaseRange>(unnamed->getByTable(number), UNO_QUERY));
    }
    Reference<css::container::XIndexAccess> named;
    anyProperty(model, "DatabaseRanges") >>= named;
    for (sal_Int32 i = 0; named.is() && i < named->getCount(); ++i) {
        add(Reference<css::sheet::XDatabaseRange>(named->getByIndex(i), UNO_QUERY));
    }
    return lists;
}

// The rows that a sort by the column moves, of all used columns.
CellBlock sortedBlock(Workbook& book, int32_t index, CellBlock used, int32_t column) {
    for (const CellBlock& list : filteredLists(book, index)) {
        if (list.left <= column && column <= list.right && list.top < list.bottom) {
            return {used.left, list.top + 1, used.right, std::min(list.bottom, used.bottom)};
        }
    }
    std::optional<int32_t>& first = book.firstSortedRow(index);
    if (!first) {
        first = firstRowOfData(book, index, used);
    }
    used.top = std::min(*first, used.bottom);
    return used;
}

template<class T>
css::beans::PropertyValue option(const char* name, const T& value) {
    css::beans::PropertyValue option;
    option.Name = OUString::createFromAscii(name);
    option.Value <<= value;
    return option;
}

css::uno::Sequence<css::beans::PropertyValue> sortDescriptor(int32_t field, bool ascending) {
    css::table::TableSortField byColumn;
    byColumn.Field = field;
    byColumn.IsAscending = ascending;
    const css::beans::PropertyValue options[] = {
        option("SortFields", css::uno::Sequence<css::table::TableSortField>(&byColumn, 1)),
        option("ContainsHeader", false), option("IsSortColumns", false),
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
    const std::optional<CellBlock> used = book.usedBlock(index);
    if (!used || column < used->left || column > used->right ||
        !holdsAnything(sheet->getCellRangeByPosition(column, used->top, column, used->bottom))) {
        return MODULE_NOTHING_THERE;
    }
    const Reference<css::util::XProtectable> protection(sheet, UNO_QUERY);
    if (protection.is() && protection->isProtected()) {
        return MODULE_REFUSED;
    }
    const CellBlock block = sortedBlock(book, index, *used, column);
    const Reference<css::util::XSortable> sortable(
        sheet->getCellRangeByPosition(block.left, block.top, block.right, block.bottom), UNO_QUERY_THROW);
    const UndoWatch undo(book.model());
    sortable->sort(sortDescriptor(column - block.left, ascending));
    return undo.hasChange() ? MODULE_OK : MODULE_REFUSED;
}

} // namespace lectern::engine

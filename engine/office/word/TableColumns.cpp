// SPDX-License-Identifier: Apache-2.0
#include "engine/office/word/TableColumns.h"

#include "engine/layout/Twips.h"

#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/table/XTableRows.hpp>
#include <com/sun/star/text/TableColumnSeparator.hpp>
#include <com/sun/star/text/XTextTable.hpp>

#include <algorithm>

namespace lectern::engine {

using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

namespace {

using Separators = css::uno::Sequence<css::text::TableColumnSeparator>;

constexpr int LETTERS = 4;
constexpr double LETTER_WIDTH = 0.6; // of the font's height
constexpr double TWIPS_PER_POINT = 20.0;
constexpr double USUAL_HEIGHT = 12.0;     // points
constexpr sal_Int32 ROWS_LOOKED_AT = 200; // rows further down are usually like those

Separators separatorsOf(const Reference<css::beans::XPropertySet>& row) {
    return property<Separators>(row, "TableColumnSeparators");
}

// The share of a row's narrowest cell.
double narrowestOf(const Separators& separators, double sum) {
    double least = sum;
    double left = 0.0;
    for (const css::text::TableColumnSeparator& separator : separators) {
        if (separator.IsVisible != sal_False) {
            least = std::min(least, separator.Position - left);
            left = separator.Position;
        }
    }
    return std::max(std::min(least, sum - left), 1.0) / sum;
}

double narrowestColumn(const Reference<css::text::XTextTable>& table) {
    const double sum =
        std::max<double>(1.0, property<sal_Int16>(propertiesOf(table), "TableColumnRelativeSum", 10000));
    const Reference<css::container::XIndexAccess> rows(table->getRows(), UNO_QUERY_THROW);
    double least = 1.0;
    for (sal_Int32 i = 0; i < std::min(rows->getCount(), ROWS_LOOKED_AT); ++i) {
        const Reference<css::beans::XPropertySet> row(rows->getByIndex(i), UNO_QUERY);
        least = std::min(least, narrowestOf(separatorsOf(row), sum));
    }
    return least;
}

// The width of a column that has room for the letters of a cell, with its padding.
double widthOfLetters(const Reference<css::beans::XPropertySet>& cursor) {
    const auto height = static_cast<double>(property<float>(cursor, "CharHeight", USUAL_HEIGHT));
    const auto cell = property<Reference<css::beans::XPropertySet>>(cursor, "Cell");
    const int64_t padding = int64_t{property<sal_Int32>(cell, "LeftBorderDistance")} +
                            property<sal_Int32>(cell, "RightBorderDistance");
    return LETTERS * LETTER_WIDTH * height * TWIPS_PER_POINT +
           static_cast<double>(twipsFromHundredthMm(padding));
}

} // namespace

double leastTableWidth(const Reference<css::beans::XPropertySet>& cursor) {
    const auto table = property<Reference<css::text::XTextTable>>(cursor, "TextTable");
    return table.is() ? widthOfLetters(cursor) / narrowestColumn(table) : 0.0;
}

} // namespace lectern::engine

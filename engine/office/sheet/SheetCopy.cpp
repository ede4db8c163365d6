// SPDX-License-Identifier: Apache-2.0
#include "engine/office/sheet/SheetCopy.h"

#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/table/XColumnRowRange.hpp>
#include <com/sun/star/text/XSimpleText.hpp>

#include <algorithm>
#include <chrono>
#include <optional>
#include <vector>

namespace lectern::engine {

using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

namespace {

// A copy ends before the row after these: a call that misses its deadline would cost
// the document, and views take a few thousand units only.
constexpr std::chrono::seconds MOST_TIME(3);
constexpr size_t MOST_UNITS = size_t{1} << 20;

// Reads the texts of a block. Hidden rows and columns belong to it, rows that a
// filter hides do not.
class BlockReader {
public:
    BlockReader(Workbook& book, int32_t sheet, const CellBlock& block)
        : mBook(book), mSheet(sheet), mBlock(block), mGeometry(book.geometry(sheet)),
          mMerged(book.mergedExtent(sheet)), mRows(allRowsOf(book.sheet(sheet))) {
        const std::optional<CellBlock> used = book.usedBlock(sheet);
        mBlock.right =
            std::min(block.right, std::max(used ? used->right : -1, mMerged ? mMerged->right : -1));
        mBlock.bottom =
            std::min(block.bottom, std::max(used ? used->bottom : -1, mMerged ? mMerged->bottom : -1));
    }

    std::u16string text() const {
        std::vector<Line> lines;
        size_t width = 0;  // up to the last text
        size_t height = 0; // likewise
        size_t units = 0;
        const auto end = std::chrono::steady_clock::now() + MOST_TIME;
        for (int32_t row = mBlock.top;
             row <= mBlock.bottom && units < MOST_UNITS && std::chrono::steady_clock::now() < end; ++row) {
            if (isFiltered(row)) {
                continue;
            }
            lines.push_back(lineAt(row));
            for (const std::u16string& text : lines.back()) {
                units += text.size();
            }
            if (!lines.back().empty()) {
                width = std::max(width, lines.back().size());
                height = lines.size();
            }
        }
        lines.resize(height);
        return joined(lines, width);
    }

private:
    using Rows = Reference<css::container::XIndexAccess>;
    using Line = std::vector<std::u16string>;

    static Rows allRowsOf(const Reference<css::sheet::XSpreadsheet>& sheet) {
        const Reference<css::table::XColumnRowRange> range(sheet, UNO_QUERY_THROW);
        return {range->getRows(), UNO_QUERY_THROW};
    }
    bool isFiltered(int32_t row) const {
        return mGeometry.rows.isHidden(row) && property<bool>(propertiesOf(Reference<css::uno::XInterface>(
                                                                  mRows->getByIndex(row), UNO_QUERY)),
                                                              "IsFiltered");
    }
    // The texts of a row up to the last one that is not empty.
    Line lineAt(int32_t row) const {
        Line line;
        for (int32_t column = mBlock.left; column <= mBlock.right; ++column) {
            line.push_back(textAt(column, row));
        }
        while (!line.empty() && line.back().empty()) {
            line.pop_back();
        }
        return line;
    }
    static std::u16string joined(const std::vector<Line>& lines, size_t width) {
        std::u16string text;
        for (const Line& line : lines) {
            text += &line == lines.data() ? u"" : u"\n";
            for (size_t column = 0; column < width; ++column) {
                text += column == 0 ? u"" : u"\t";
                text += column < line.size() ? line[column] : u"";
            }
        }
        return text;
    }
    // A merged area whose first cell is hidden and not copied shows its text in
    // the first cell that is.
    std::u16string textAt(int32_t column, int32_t row) const {
        if (mMerged && (isBehindHidden(mGeometry.columns, column) || isBehindHidden(mGeometry.rows, row))) {
            const CellBlock area = mBook.mergedBlock(mSheet, column, row);
            const bool copied = area.left >= mBlock.left && area.top >= mBlock.top && !isFiltered(area.top);
            if (!copied && isFirstVisible(mGeometry.columns, area.left, column) &&
                isFirstVisible(mGeometry.rows, area.top, row)) {
                return textOf(area.left, area.top);
            }
        }
        return textOf(column, row);
    }
    static bool isBehindHidden(const Tracks& tracks, int32_t track) {
        return track > 0 && tracks.isHidden(track - 1);
    }
    static bool isFirstVisible(const Tracks& tracks, int32_t first, int32_t track) {
        return first == track || tracks.visibleIn(first, track - 1) == 0;
    }
    std::u16string textOf(int32_t column, int32_t row) const {
        const Reference<css::text::XSimpleText> cell(mBook.sheet(mSheet)->getCellByPosition(column, row),
                                                     UNO_QUERY_THROW);
        std::u16string text = toText(cell->getString());
        std::replace_if(
            text.begin(), text.end(), [](char16_t c) { return c == u'\n' || c == u'\t'; }, u' ');
        return text;
    }

    Workbook& mBook;
    int32_t mSheet;
    CellBlock mBlock;
    const SheetGeometry& mGeometry;
    std::optional<CellBlock> mMerged;
    Rows mRows;
};

} // namespace

std::u16string textOfBlock(Workbook& book, int32_t sheet, const CellBlock& block) {
    return BlockReader(book, sheet, block).text();
}

} // namespace lectern::engine

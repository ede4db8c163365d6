// SPDX-License-Identifier: Apache-2.0
// The optional functions of the spreadsheet module on real workbooks.

#include "tests/system/sheet/WorkbookView.h"
#include "touch/SheetFunctions.h"

#include <dlfcn.h>

#include <algorithm>

namespace lectern::test {
namespace {

constexpr std::int32_t PASSENGERS = 0;
constexpr std::int32_t MOORINGS = 1;
constexpr std::int32_t VOICES = 2;

class SheetTouchFunctionsTest : public testing::TestWithParam<const char*> {
protected:
    SheetTouchFunctionsTest() : mView(sample(GetParam())) {}

    static std::string utf8(const std::uint16_t* units) {
        const std::u16string text(reinterpret_cast<const char16_t*>(units));
        return {text.begin(), text.end()}; // the texts looked at are ASCII
    }
    // "the first cell of its area|what it shows|its formula"
    std::string cell(std::int32_t sheet, std::int32_t column, std::int32_t row) {
        EXPECT_EQ(mStg.getCell(mView.get(), sheet, column, row, &mCell), MODULE_OK);
        return nameOf({mCell.column, mCell.row}) + "|" + utf8(mCell.text) + "|" + utf8(mCell.formula);
    }
    std::size_t find(const std::string& text, std::int32_t options) {
        EXPECT_EQ(mStg.setFindOptions(mView.get(), options), MODULE_OK);
        return mView.find(text).size();
    }

    SheetFunctions mStg{dlopen(MODULE_FOLDER "/SheetToGoModule.so", RTLD_NOW)};
    WorkbookView mView;
    stg_cell mCell{};
};

INSTANTIATE_TEST_SUITE_P(Formats, SheetTouchFunctionsTest, testing::Values("tour.xlsx", "tour.xls"),
                         [](const auto& format) { return std::string(format.param).substr(5); });

TEST_P(SheetTouchFunctionsTest, ACellTellsItsTextAndFormula) {
    mView.show(PASSENGERS, 300, 300, 110);
    EXPECT_EQ(cell(PASSENGERS, 0, 3), "A4|January|");
    EXPECT_EQ(cell(PASSENGERS, 9, 3), "J4|9,608|=SUM(B4:I4)");
    EXPECT_EQ(cell(PASSENGERS, 1, 15).substr(0, 4), "B16|");
    EXPECT_EQ(cell(PASSENGERS, 5, 0), "A1|Passengers by boat and month|") << "a merged title";
    EXPECT_EQ(cell(VOICES, 0, 12), "A13|#DIV/0!|=1/0");
    const module_rect at = mView.place({0, 3});
    EXPECT_EQ(cell(PASSENGERS, 0, 3), "A4|January|");
    EXPECT_EQ(mCell.place.x, at.x);
    EXPECT_EQ(mCell.place.y, at.y);
    EXPECT_EQ(mCell.place.width, at.width);
    EXPECT_EQ(mCell.place.height, at.height);
}

TEST_P(SheetTouchFunctionsTest, CellsBeyondTheSheetAreRefused) {
    EXPECT_EQ(mStg.getCell(mView.get(), PASSENGERS, 10000, 0, &mCell), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(mStg.getCell(mView.get(), PASSENGERS, 0, 1000000, &mCell), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(mStg.getCell(mView.get(), PASSENGERS, -1, 0, &mCell), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(mStg.getCell(mView.get(), 99, 0, 0, &mCell), MODULE_BAD_ARGUMENT);
}

TEST_P(SheetTouchFunctionsTest, AHiddenCellHasNoPlaceButAText) {
    EXPECT_EQ(cell(MOORINGS, 7, 1).substr(0, 3), "H2|");
    EXPECT_EQ(mCell.place.width, 0);
    EXPECT_NE(utf8(mCell.text), "");
}

TEST_P(SheetTouchFunctionsTest, TheCellsOfARectangleAreInReadingOrder) {
    mView.show(PASSENGERS, 300, 300, 110);
    const module_rect first = mView.place({1, 3});
    const module_rect last = mView.place({2, 4});
    const stg_cell* cells = nullptr;
    std::int32_t count = 0;
    ASSERT_EQ(mStg.getCells(mView.get(), PASSENGERS, first.x, first.y, last.x + last.width - first.x,
                            last.y + last.height - first.y, &cells, &count),
              MODULE_OK);
    std::vector<std::string> found;
    for (std::int32_t i = 0; i < count; i++) {
        found.push_back(nameOf({cells[i].column, cells[i].row}) + "|" + utf8(cells[i].text));
    }
    EXPECT_EQ(found, (std::vector<std::string>{"B4|900", "C4|1,111", "B5|1,097", "C5|1,308"}));
    const module_rect title = mView.place({5, 0});
    ASSERT_EQ(mStg.getCells(mView.get(), PASSENGERS, title.x, title.y, 10, 10, &cells, &count), MODULE_OK);
    ASSERT_EQ(count, 1) << "a merged area whose first cell is outside";
    EXPECT_EQ(utf8(cells[0].text), "Passengers by boat and month");
    EXPECT_EQ(cells[0].place.x, 0);
}

TEST_P(SheetTouchFunctionsTest, ATapShowsADrawingOrAMergedAreaOrACell) {
    mView.show(PASSENGERS, 300, 300, 110);
    const module_rect corner = mView.place({1, 20}); // the chart begins at A19
    module_rect area{};
    ASSERT_EQ(mStg.getTapArea(mView.get(), PASSENGERS, corner.x, corner.y, &area), MODULE_OK);
    EXPECT_NEAR(area.x, 0, 2);
    EXPECT_NEAR(area.y, mView.place({0, 18}).y, 2);
    EXPECT_NEAR(area.width, 15.0 / 2.54 * 110, 90) << "15 cm; the old format has less exact places";
    const module_rect cell = mView.place({2, 5});
    ASSERT_EQ(mStg.getTapArea(mView.get(), PASSENGERS, cell.x + 1, cell.y + 1, &area), MODULE_OK);
    EXPECT_EQ(area.x, cell.x);
    EXPECT_EQ(area.width, cell.width);
    const module_rect title = mView.place({5, 0});
    ASSERT_EQ(mStg.getTapArea(mView.get(), PASSENGERS, title.x, title.y, &area), MODULE_OK);
    EXPECT_EQ(area.x, 0);
    EXPECT_GT(area.width, 5 * cell.width);
}

TEST_P(SheetTouchFunctionsTest, FindsRegardOptions) {
    mView.show(PASSENGERS, 300, 300, 110);
    EXPECT_EQ(find("heron", 0), 1U);
    EXPECT_EQ(find("heron", 1), 0U);
    EXPECT_EQ(find("Heron", 1), 1U);
    EXPECT_EQ(find("Her", 2), 0U);
    EXPECT_EQ(find("blue", 2), 1U);
    EXPECT_EQ(find("blue", 3), 0U);
    EXPECT_EQ(find("heron", 0), 1U);
}

} // namespace
} // namespace lectern::test

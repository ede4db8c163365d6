// SPDX-License-Identifier: Apache-2.0
// The optional functions of the spreadsheet module, with a fake suite.

#include "modules/TouchSheetFunctions.h"
#include "tests/process/engine/EngineTest.h"
#include "tests/process/engine/SheetHost.h"
#include "touch/SheetFunctions.h"

#include <dlfcn.h>

namespace lectern::test {
namespace {

class SheetTouchTest : public EngineTest {
protected:
    void open(const std::string& contents) {
        ASSERT_EQ(workbook.open(write("book.xlsx", contents), temporary()), MODULE_OK);
    }
    static std::u16string text(const std::uint16_t* units) {
        return reinterpret_cast<const char16_t*>(units);
    }
    std::int32_t hits() {
        const stg_region* regions = nullptr;
        std::int32_t number = -1;
        EXPECT_EQ(sheetModule().stg_get_found_regions(workbook.get(), &number, &regions), MODULE_OK);
        return number;
    }

    SheetFunctions stg{dlopen(MODULE_FOLDER "/SheetToGoModule.so", RTLD_NOW)};
    WorkbookHandle workbook;
    stg_cell cell{};
    const stg_cell* cells = nullptr;
    std::int32_t count = -1;
    module_rect area{};
};

TEST_F(SheetTouchTest, ACellComesWithItsTextAndFormula) {
    open("name=x\n");
    ASSERT_EQ(stg.getCell(workbook.get(), 1, 3, 5, &cell), MODULE_OK);
    EXPECT_EQ(cell.column, 3);
    EXPECT_EQ(cell.row, 5);
    EXPECT_EQ(cell.place.x, 150);
    EXPECT_EQ(cell.place.height, 20);
    EXPECT_EQ(text(cell.text), u"7");
    EXPECT_EQ(text(cell.formula), u"=7");
    EXPECT_EQ(stg.getCell(workbook.get(), 0, 10, 0, &cell), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(stg.getCell(workbook.get(), 2, 0, 0, &cell), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(stg.getCell(workbook.get(), 0, 0, 0, nullptr), MODULE_BAD_ARGUMENT);
}

TEST_F(SheetTouchTest, CellsOfARectangleComeWithTheirTexts) {
    open("name=x\n");
    ASSERT_EQ(stg.getCells(workbook.get(), 0, 60, 25, 100, 30, &cells, &count), MODULE_OK);
    ASSERT_EQ(count, 6) << "columns 1 to 3 of rows 1 and 2";
    EXPECT_EQ(cells[1].column, 2);
    EXPECT_EQ(cells[3].row, 2);
    EXPECT_EQ(text(cells[5].text), u"7");
    EXPECT_EQ(text(cells[5].formula), u"");
    EXPECT_EQ(stg.getCells(workbook.get(), 0, 0, 0, 10, 10, nullptr, &count), MODULE_BAD_ARGUMENT);
    EXPECT_NE(stg.getCells(workbook.get(), 5, 0, 0, 10, 10, &cells, &count), MODULE_OK);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(cells, nullptr);
}

TEST_F(SheetTouchTest, ATapHasAnArea) {
    open("name=x\n");
    ASSERT_EQ(stg.getTapArea(workbook.get(), 0, 60, 25, &area), MODULE_OK);
    EXPECT_EQ(area.x, 50);
    EXPECT_EQ(area.width, 50);
    EXPECT_EQ(stg.getTapArea(workbook.get(), 0, 60, 25, nullptr), MODULE_BAD_ARGUMENT);
}

TEST_F(SheetTouchTest, EveryFunctionSurvivesANullDocument) {
    EXPECT_EQ(stg.getCell(nullptr, 0, 0, 0, &cell), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(stg.getCells(nullptr, 0, 0, 0, 1, 1, &cells, &count), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(stg.getTapArea(nullptr, 0, 0, 0, &area), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(stg.setFindOptions(nullptr, 0), MODULE_BAD_ARGUMENT);
}

TEST_F(SheetTouchTest, ImpossiblePlacesAreNotBelieved) {
    open("lie=yes\n");
    EXPECT_EQ(stg.getCell(workbook.get(), 0, 0, 0, &cell), MODULE_FAILED);
    EXPECT_EQ(stg.getCells(workbook.get(), 0, 0, 0, 100, 100, &cells, &count), MODULE_FAILED);
    EXPECT_EQ(count, 0);
}

TEST_F(SheetTouchTest, FindOptionsComeBackWithTheHits) {
    open("name=x\n");
    EXPECT_EQ(stg.setFindOptions(workbook.get(), 4), MODULE_BAD_ARGUMENT);
    ASSERT_EQ(stg.setFindOptions(workbook.get(), 3), MODULE_OK);
    ASSERT_EQ(sheetModule().stg_find(workbook.get(), wide("abc").data(), 0, 0, 0, 0), MODULE_OK);
    ASSERT_EQ(hits(), 6);
    ASSERT_EQ(stg.setFindOptions(workbook.get(), 1), MODULE_OK);
    killEngine();
    EXPECT_EQ(hits(), 6) << "those of the find";
    ASSERT_EQ(sheetModule().stg_find(workbook.get(), wide("abc").data(), 0, 0, 0, 0), MODULE_OK);
    EXPECT_EQ(hits(), 4) << "those of later finds";
}

TEST_F(SheetTouchTest, ACellIsReadByTheCallThatFindsTheEngineLost) {
    open("name=x\n");
    killEngine();
    EXPECT_EQ(stg.getCell(workbook.get(), 0, 0, 0, &cell), MODULE_OK);
    killEngine();
    EXPECT_EQ(stg.getCells(workbook.get(), 0, 0, 0, 10, 10, &cells, &count), MODULE_OK);
}

} // namespace
} // namespace lectern::test

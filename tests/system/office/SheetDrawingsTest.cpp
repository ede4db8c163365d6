// SPDX-License-Identifier: Apache-2.0
// The drawings that a painting moves to their cells' pixels.
#include "engine/office/sheet/CellPainter.h"
#include "tests/system/office/WorkbookFixture.h"

#include <com/sun/star/drawing/XDrawPageSupplier.hpp>
#include <com/sun/star/drawing/XShape.hpp>

namespace lectern::engine::test {

namespace {

using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

constexpr int32_t SIZE = 300; // of a window, in pixels
constexpr int32_t DPI = 126;
constexpr int32_t CHARTS_COLUMN = 7;

// Charts at H20 and H200, on rows whose heights are not whole pixels.
class SheetDrawingsTest : public WorkbookTest {
protected:
    SheetDrawingsTest() : WorkbookTest("charted", DPI) {}

    // Vertical places of the charts, in 1/100 mm.
    std::vector<int32_t> places() {
        std::vector<int32_t> places;
        guarded([&] {
            const Reference<css::drawing::XDrawPageSupplier> supplier(mBook->sheet(0), UNO_QUERY_THROW);
            const auto page = supplier->getDrawPage();
            for (sal_Int32 i = 0; i < page->getCount(); ++i) {
                const Reference<css::drawing::XShape> shape(page->getByIndex(i), UNO_QUERY_THROW);
                places.push_back(shape->getPosition().Y);
            }
        });
        return places;
    }
    // Paints the window that begins at a row of the charts' column.
    void paintAt(int32_t row) {
        std::vector<uint32_t> pixels(size_t{SIZE} * SIZE);
        guarded([&] {
            const SheetGeometry& geometry = mBook->geometry(0);
            mPainter.paint(*mBook, 0, geometry.columns.position(CHARTS_COLUMN), geometry.rows.position(row),
                           DPI, {pixels.data(), SIZE, SIZE});
        });
    }

    CellPainter mPainter;
};

TEST_F(SheetDrawingsTest, AChartIsMovedWhenAWindowShowsItsPlace) {
    const std::vector<int32_t> read = places();
    ASSERT_EQ(read.size(), 2U);
    paintAt(15);
    const std::vector<int32_t> above = places();
    EXPECT_NE(above[0], read[0]);
    EXPECT_EQ(above[1], read[1]);
    paintAt(195);
    const std::vector<int32_t> below = places();
    EXPECT_EQ(below[0], above[0]);
    EXPECT_NE(below[1], read[1]);
}

TEST_F(SheetDrawingsTest, MovedChartsReturnBeforeTheSheetChanges) {
    const std::vector<int32_t> read = places();
    paintAt(15);
    paintAt(195);
    guarded([&] { mBook->aboutToChange(0); });
    EXPECT_EQ(places(), read);
}

} // namespace

} // namespace lectern::engine::test

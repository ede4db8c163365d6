// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/CellAddress.h"

#include <gtest/gtest.h>

namespace {

using namespace lectern::viewer;

TEST(CellAddress, TellsTheColumnAndTheRow) {
    EXPECT_EQ(parseCellAddress("A1"), (CellAddress{0, 0}));
    EXPECT_EQ(parseCellAddress("B7"), (CellAddress{1, 6}));
    EXPECT_EQ(parseCellAddress("Z10"), (CellAddress{25, 9}));
    EXPECT_EQ(parseCellAddress("AA100"), (CellAddress{26, 99}));
}

TEST(CellAddress, AllowsSmallLettersDollarsAndSpaces) {
    EXPECT_EQ(parseCellAddress("b7"), (CellAddress{1, 6}));
    EXPECT_EQ(parseCellAddress("$B$7"), (CellAddress{1, 6}));
    EXPECT_EQ(parseCellAddress("B$7"), (CellAddress{1, 6}));
    EXPECT_EQ(parseCellAddress("  B7 "), (CellAddress{1, 6}));
}

TEST(CellAddress, ReachesTheLastCellOfASpreadsheet) {
    EXPECT_EQ(parseCellAddress("XFD1048576"), (CellAddress{16383, 1048575}));
    EXPECT_EQ(parseCellAddress("XFE1"), std::nullopt);
    EXPECT_EQ(parseCellAddress("A1048577"), std::nullopt);
    EXPECT_EQ(parseCellAddress("AAAA1"), std::nullopt);
    EXPECT_EQ(parseCellAddress("A99999999999999999999"), std::nullopt);
}

TEST(CellAddress, IsNoneForOtherTexts) {
    for (const char* text : {"", " ", "B", "7", "7B", "B0", "B-1", "B7x", "B7 C8", "B7:C8", "Ä1", "$$B7"}) {
        EXPECT_EQ(parseCellAddress(text), std::nullopt) << text;
    }
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
#include "engine/layout/HeaderRow.h"

#include <gtest/gtest.h>

#include <string>

namespace lectern::engine::test {
namespace {

// Rows of letters: t for a text, 1 for a value, a dot for an empty cell.
std::optional<size_t> headerOf(const std::vector<std::string>& sheet) {
    std::vector<std::vector<CellKind>> rows;
    for (const std::string& letters : sheet) {
        std::vector<CellKind>& row = rows.emplace_back();
        for (const char letter : letters) {
            row.push_back(letter == 't' ? CellKind::Text : letter == '1' ? CellKind::Value : CellKind::Empty);
        }
    }
    return headerRow(rows);
}

TEST(HeaderRowTest, IsTheRowOfTextsAboveValues) {
    EXPECT_EQ(headerOf({"tt", "t1", "t1"}), 0U);
}

TEST(HeaderRowTest, LiesBelowTitles) {
    EXPECT_EQ(headerOf({"t..", "...", "ttt", "t11", "t11"}), 2U);
    EXPECT_EQ(headerOf({"t..", "t1.", "tt.", "ttt", "t11"}), 3U) << "a date beside a label";
}

TEST(HeaderRowTest, LiesAboveDataThatAreTexts) {
    EXPECT_EQ(headerOf({"tt", "tt", "t1"}), 0U);
    EXPECT_EQ(headerOf({"tt", "t.", "t1"}), 0U);
}

TEST(HeaderRowTest, IsNotThereWithoutTextsAboveValues) {
    EXPECT_EQ(headerOf({}), std::nullopt);
    EXPECT_EQ(headerOf({"tt", "tt"}), std::nullopt);
    EXPECT_EQ(headerOf({"1t", "1t"}), std::nullopt);
    EXPECT_EQ(headerOf({"1t", "tt", "1t"}), std::nullopt) << "a row of texts among the data";
    EXPECT_EQ(headerOf({"t1", "t1"}), std::nullopt);
}

} // namespace
} // namespace lectern::engine::test

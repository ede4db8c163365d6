// SPDX-License-Identifier: Apache-2.0
#include "engine/layout/SeparatedValues.h"

#include <gtest/gtest.h>

#include <string>

namespace lectern::engine::test {
namespace {

char separatorOf(std::string_view text) {
    return separatedValuesOf(text).separator;
}

TEST(SeparatedValuesTest, FindsWhatSeparatesTheValues) {
    EXPECT_EQ(separatorOf("a,b\n1,2\n"), ',');
    EXPECT_EQ(separatorOf("a;b\r\n1;2\r\n"), ';');
    EXPECT_EQ(separatorOf("a\tb\n1\t2"), '\t');
    EXPECT_EQ(separatorOf("a|b\n1|2"), '|');
}

TEST(SeparatedValuesTest, CommasInNumbersAndWordsDoNotMislead) {
    EXPECT_EQ(separatorOf("city;people\nBern;134,6\nBasel, at the Rhine;173,9\n"), ';');
    EXPECT_EQ(separatorOf("a\tb, c\n1,5\t2,5\n"), '\t');
}

TEST(SeparatedValuesTest, SeparatorsInQuotesDoNotCount) {
    EXPECT_EQ(separatorOf("a,\"x;y;z\"\nb,\"u;v;w\"\n"), ',');
    EXPECT_EQ(separatorOf("a,\"one\nline; and\nanother\"\nb,c\n"), ',') << "a record of three lines";
}

TEST(SeparatedValuesTest, TheFirstLineMayNameTheSeparator) {
    EXPECT_EQ(separatedValuesOf("sep=#\na#b\n"), (SeparatedValues{'#', 2}));
    EXPECT_EQ(separatedValuesOf("sep=;\r\na;b\n"), (SeparatedValues{';', 2}));
    EXPECT_EQ(separatedValuesOf("sep=ab\n1;2\n"), (SeparatedValues{';', 1}));
}

TEST(SeparatedValuesTest, OneColumnHasTheUsualSeparator) {
    EXPECT_EQ(separatedValuesOf("only\nwords\n"), SeparatedValues());
    EXPECT_EQ(separatedValuesOf(""), SeparatedValues());
}

TEST(SeparatedValuesTest, AHeadingAboveTheListIsOneRecordOfMany) {
    EXPECT_EQ(separatorOf("A list, made by hand\n\nx;y\n1;2\n3;4\n"), ';');
}

TEST(SeparatedValuesTest, ReadsNoMoreThanTheFirstRecords) {
    std::string text;
    for (int i = 0; i < 100; ++i) {
        text += "a,b\n";
    }
    for (int i = 0; i < 200; ++i) {
        text += "a;b\n";
    }
    EXPECT_EQ(separatorOf(text), ',');
}

} // namespace
} // namespace lectern::engine::test

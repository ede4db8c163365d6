// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/DateText.h"

#include <gtest/gtest.h>

#include <clocale>

namespace {

using namespace lectern::viewer;

TEST(DateText, IsInTheWayOfTheLanguage) {
    std::setlocale(LC_ALL, "C.UTF-8");
    EXPECT_EQ(dateText("2024-03-05T14:07:09Z"), "03/05/24 14:07");
    EXPECT_EQ(dateText("2024-03-05T14:07:09.123456789"), "03/05/24 14:07");
}

TEST(DateText, LeavesOtherTextsAsTheyAre) {
    EXPECT_EQ(dateText(""), "");
    EXPECT_EQ(dateText("last spring"), "last spring");
}

} // namespace

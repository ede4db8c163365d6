// SPDX-License-Identifier: Apache-2.0
#include "view/DocumentList.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

TEST(DocumentList, EndsWithAnyCountThatAModuleReturns) {
    int titles = 0;
    const std::string list = documentList(INT_MAX, 0, [&](int, std::span<uint16_t>) { ++titles; });
    EXPECT_EQ(titles, 65535);
    EXPECT_LE(list.size(), size_t{128} * 65535);
    EXPECT_EQ(documentList(INT_MIN, 0, [](int, std::span<uint16_t>) {}), "");
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
#include "service/MethodTables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using testing::ElementsAre;

std::vector<std::string> namesIn(const HubMethod* table) {
    std::vector<std::string> names;
    for (; table->name != nullptr; ++table) {
        EXPECT_NE(table->handler, nullptr) << table->name;
        EXPECT_EQ(table->flags, 0U) << table->name;
        names.emplace_back(table->name);
    }
    EXPECT_EQ(table->handler, nullptr);
    EXPECT_EQ(table->flags, 0U);
    return names;
}

TEST(MethodTables, Common) {
    EXPECT_THAT(namesIn(commonMethods),
                ElementsAre("getDocProperties", "Search", "nextResult", "previousResult", "closeSearch",
                            "clearSelection", "getMimeInfo"));
}

TEST(MethodTables, Events) {
    EXPECT_THAT(namesIn(eventMethods),
                ElementsAre("create", "destroy", "ping", "handlePenUp", "handlePenDown", "handlePenMove",
                            "handleKeyUp", "handleKeyDown", "handleClick", "handleFlick",
                            "handleDoubleClick"));
}

TEST(MethodTables, Word) {
    EXPECT_THAT(namesIn(wordMethods), ElementsAre("wideMode"));
}

TEST(MethodTables, Ppt) {
    EXPECT_THAT(namesIn(pptMethods),
                ElementsAre("getSlideCount", "jumpToSlide", "fitWideMode", "getSlideNote", "getSlideList"));
}

TEST(MethodTables, Excel) {
    EXPECT_THAT(namesIn(excelMethods),
                ElementsAre("copySelection", "getSheetList", "jumpToSheet", "getLastComment",
                            "getColumnCount", "sortAscending", "sortDescending", "resizeMode",
                            "hideSelection", "unhideSelection", "unhideAll"));
}

TEST(MethodTables, Touch) {
    EXPECT_THAT(namesIn(touchMethods),
                ElementsAre("getView", "scrollTo", "zoomTo", "getLink", "search", "nextResult",
                            "previousResult", "select", "getSelection", "getText", "getOutline", "goTo",
                            "getCell", "getThumbnail", "export", "resize", "cancel"));
}

} // namespace

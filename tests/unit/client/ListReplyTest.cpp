// SPDX-License-Identifier: Apache-2.0
#include <lectern/ListReply.h>

#include <gmock/gmock.h>

namespace {

using namespace lectern;
using testing::ElementsAre;

// A list as the service makes it, in which no part is the current one.
std::string listOf(const std::vector<std::string>& titles) {
    std::string text;
    for (size_t i = 0; i < titles.size(); ++i) {
        text += (i == 0 ? "{\"list\": [" : ",") + ("{\"data\":\"" + titles[i]) + "\", \"listitem\":\"" +
                std::to_string(i + 1) + "\", \"status\":\"\"}";
    }
    return (text + "]}").substr(0, titles.size() * 128);
}

TEST(PartList, HasTitlesAndTheOneShown) {
    const PartList list = readPartList(R"({"list": [{"data":"Intro", "listitem":"1", "status":""},)"
                                       R"({"data":"", "listitem":"2", "status":"images/check.png"}]})");
    EXPECT_THAT(list.parts, ElementsAre(ListedPart{"Intro", false}, ListedPart{"", true}));
    EXPECT_EQ(list.count, 2);
}

TEST(PartList, KeepsTitlesThatAreNoJson) {
    const std::vector<std::string> titles{R"(the "quick" one)", R"(C:\new)", R"("},{)", "two\nlines",
                                          "Größe"};
    const PartList list = readPartList(listOf(titles));
    ASSERT_EQ(list.parts.size(), titles.size());
    for (size_t i = 0; i < titles.size(); ++i) {
        EXPECT_EQ(list.parts[i].title, titles[i]);
    }
}

TEST(PartList, KnowsHowManyThereAreWhenItIsCut) {
    const PartList list = readPartList(listOf({std::string(90, 'a'), "b", std::string(250, 'c'), "d"}));
    EXPECT_EQ(list.parts.size(), 3U);
    EXPECT_EQ(list.count, 4);
    const PartList one = readPartList(listOf({std::string(100, 'x')}));
    EXPECT_TRUE(one.parts.empty());
    EXPECT_EQ(one.count, 1);
}

TEST(PartList, IsEmptyForWhatIsNoList) {
    for (const char* text : {"", "{}", R"({"returnValue": true})", "{\"list\"", "[]"}) {
        const PartList list = readPartList(text);
        EXPECT_TRUE(list.parts.empty()) << text;
        EXPECT_EQ(list.count, 0) << text;
    }
}

} // namespace

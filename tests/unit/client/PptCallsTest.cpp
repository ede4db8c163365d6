// SPDX-License-Identifier: Apache-2.0
#include "tests/unit/client/CallsFixture.h"
#include <lectern/PptCalls.h>

namespace {

using namespace lectern;

class PptCalls : public CallsTest {};

TEST_F(PptCalls, ListAndNoteComeAsTheyAre) {
    const std::string list = R"({"list": [{"data":"Plan", "listitem":"1", "status":""}]})";
    mService.answer("/ppt getSlideList", list);
    mService.answer("/ppt getSlideNote", "");
    EXPECT_EQ(*ask(ppt::getSlideList(), 2), list);
    EXPECT_EQ(payload().integer("docid"), 2);
    EXPECT_EQ(*ask(ppt::getSlideNote(), 2), "");
    EXPECT_EQ(place(), "/ppt getSlideNote");
    EXPECT_EQ(payload().integer("docid"), 2);
}

TEST_F(PptCalls, ANoteIsItsWords) {
    mService.answer("/ppt getSlideNote", R"({"note": "Smile."})");
    EXPECT_EQ(*ask(ppt::getNote(), 2), "Smile.");
    EXPECT_EQ(payload().integer("docid"), 2);
    mService.answer("/ppt getSlideNote", ""); // a slide without one
    EXPECT_EQ(*ask(ppt::getNote()), "");
    mService.answer("/ppt getSlideNote", "{}");
    EXPECT_FALSE(ask(ppt::getNote()));
}

TEST_F(PptCalls, TheCountIsANumber) {
    mService.answer("/ppt getSlideCount", R"({"slidecnt": 12})");
    EXPECT_EQ(*ask(ppt::getSlideCount(), 2), 12);
    EXPECT_EQ(payload().integer("docid"), 2);
    mService.answer("/ppt getSlideCount", R"({"slidecnt": "12"})");
    EXPECT_FALSE(ask(ppt::getSlideCount(), 2));
}

TEST_F(PptCalls, AJumpGivesTheSlideNowShown) {
    mService.answer("/ppt jumpToSlide", R"({"slideNumber": 4})");
    EXPECT_EQ(*ask(ppt::jumpToSlide(99), 5), 4);
    EXPECT_EQ(payload().integer("docid"), 5);
    EXPECT_EQ(payload().integer("slide"), 99);
}

TEST_F(PptCalls, AnOrientationIsSentWhereOneIsGiven) {
    EXPECT_FALSE(ask(ppt::fitWideMode("right")));
    EXPECT_EQ(place(), "/ppt fitWideMode");
    EXPECT_EQ(payload().string("orientation"), "right");
    EXPECT_FALSE(ask(ppt::fitWideMode()));
    EXPECT_FALSE(payload().has("orientation"));
    EXPECT_EQ(payload().integer("docid"), 1);
}

} // namespace

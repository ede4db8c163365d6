// SPDX-License-Identifier: Apache-2.0
#include "tests/unit/client/FakeService.h"
#include <lectern/Navigation.h>

#include <gmock/gmock.h>

namespace {

using namespace lectern;
using testing::ElementsAre;
using testing::HasSubstr;

class NavigationTest : public testing::Test {
protected:
    NavigationTest() : mBus(std::move(*Bus::connect(mService.address()))) { reopen(); }

    void reopen() {
        mDocument.reset();
        mDocument =
            std::move(*Document::open(mBus, "/a", {.width = 48, .height = 80, .manners = Manners::Classic}));
    }

    FakeService mService;
    Bus mBus;
    std::unique_ptr<Document> mDocument;
};

TEST_F(NavigationTest, APinchIsPaintedBetweenItsChangeAndItsEnd) {
    ASSERT_FALSE(pinch(*mDocument, 2.0));
    EXPECT_THAT(mService.view().taken(), ElementsAre(1, 7, 8, 1, 9, 1));
    EXPECT_EQ(mDocument->state().scale, 2.0);
}

TEST_F(NavigationTest, APinchGoesAsFarAsTheViewDoes) {
    ASSERT_FALSE(pinch(*mDocument, 100.0));
    EXPECT_EQ(mDocument->state().scale, 4.0);
}

TEST_F(NavigationTest, ScrollsToAPlaceInViewsHeights) {
    const auto arrived = scrollTo(*mDocument, {0, 1'234});
    ASSERT_TRUE(arrived);
    EXPECT_TRUE(*arrived);
    EXPECT_EQ(mDocument->state().scrollY, 1'234);
}

TEST_F(NavigationTest, ScrollsToTheStartAfterAPinchThatLedAwayFromIt) {
    mService.view().rowsAbove = 450;
    ASSERT_FALSE(pinch(*mDocument, 1.5));
    ASSERT_NE(mDocument->state().scrollY, 0);
    const auto arrived = scrollTo(*mDocument, {0, 0});
    ASSERT_TRUE(arrived);
    EXPECT_TRUE(*arrived);
    EXPECT_EQ(mService.view().rowsAbove, 0);
}

TEST_F(NavigationTest, TellsThatTheDocumentEndsBeforeThePlace) {
    mService.view().lastRow = 200;
    const auto arrived = scrollTo(*mDocument, {0, 1'000});
    ASSERT_TRUE(arrived);
    EXPECT_FALSE(*arrived);
    EXPECT_EQ(mDocument->state().scrollY, 200);
}

TEST_F(NavigationTest, ADragOfASheetEndsInTheSlowestFlick) {
    mService.documentKind(1);
    reopen();
    const auto arrived = scrollTo(*mDocument, {0, 30});
    ASSERT_TRUE(arrived);
    EXPECT_TRUE(*arrived);
    EXPECT_THAT(mService.view().taken(), ElementsAre(1, 4, 6, 5, 1));
    EXPECT_THAT(mService.waitForCall("/events handleFlick"), HasSubstr(R"("xCoord": 0, "yCoord": -1)"));
}

TEST_F(NavigationTest, ASheetIsShownAndMeasured) {
    mService.answer("/excel jumpToSheet", R"({"cursheet": 2})");
    ASSERT_FALSE(showSheet(*mDocument, 2));
    EXPECT_THAT(mService.waitForCall("/excel jumpToSheet"), HasSubstr(R"("sheet": 2)"));
    EXPECT_THAT(mService.waitForCall("/events handleFlick"), HasSubstr(R"("yCoord": -1)"));
    EXPECT_THAT(mService.view().taken(), ElementsAre(5, 1));
}

TEST_F(NavigationTest, ASlideIsShown) {
    mService.answer("/ppt jumpToSlide", R"({"slideNumber": 4})");
    ASSERT_FALSE(showSlide(*mDocument, 4));
    EXPECT_THAT(mService.waitForCall("/ppt jumpToSlide"), HasSubstr(R"("slide": 4)"));
    EXPECT_THAT(mService.view().taken(), ElementsAre(1));
    mService.answer("/ppt jumpToSlide", R"({"errorCode": "errWrongType", "errorText": "no"})");
    EXPECT_TRUE(showSlide(*mDocument, 4));
}

TEST_F(NavigationTest, GivesUpWhenPaintsFail) {
    mService.view().paintResult = -4;
    EXPECT_TRUE(pinch(*mDocument, 2.0));
    EXPECT_FALSE(scrollTo(*mDocument, {0, 10}));
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
// Presentations with touch manners through the real service.
#include "tests/system/support/SlideFixture.h"

#include <sys/shm.h>

#include <algorithm>

namespace {

class TouchSlideTest : public SlidesTest {
protected:
    void SetUp() override {
        SlidesTest::SetUp();
        startService();
        tour = std::make_unique<TestDocument>(
            *client, *queue, sample("tour.pptx"), 360, 640,
            TestDocument::Options{.password = "", .dataStore = 0, .touchKind = "ppt", .awaitsOpen = true});
        ASSERT_EQ(tour->openResult(), 0);
        ASSERT_EQ(tour->paint(), 0);
    }
    void TearDown() override {
        tour.reset();
        SlidesTest::TearDown();
    }
    std::string touch(const std::string& method, const std::string& more = "") {
        return tour->call("/touch", method, more);
    }
    void flick(int vx, int vy) {
        tour->call("/events", "handleFlick",
                   ",\"xCoord\":" + std::to_string(vx) + ",\"yCoord\":" + std::to_string(vy));
    }
    Shown picture() const { return shown(*tour); }

    std::unique_ptr<TestDocument> tour;
};

TEST_F(TouchSlideTest, SlideIsWholeAndInTheMiddle) {
    const Shown shows = picture();
    EXPECT_EQ(shows[0], 0U) << "above the slide";
    EXPECT_EQ(shows[320 * 360], 0xFFFFFFU);
    EXPECT_EQ(shows[320 * 360 + 359], 0xFFFFFFU);
    EXPECT_EQ(shows[639 * 360], 0U);
    EXPECT_NE(touch("getView").find("\"part\": 0, \"parts\": 7"), std::string::npos);
}

TEST_F(TouchSlideTest, FlicksAndJumpsTurnPages) {
    flick(-900, 0);
    EXPECT_EQ(slideTold(*tour), 1);
    EXPECT_EQ(tour->slide(), 1);
    EXPECT_EQ(jump(*tour, 99), 6);
    EXPECT_NE(touch("goTo", ",\"entry\":7").find("errOutOfRange"), std::string::npos);
    EXPECT_NE(touch("goTo", ",\"entry\":3").find("true"), std::string::npos);
    EXPECT_EQ(tour->slide(), 3);
}

TEST_F(TouchSlideTest, HitsAreNumberedAndShown) {
    EXPECT_EQ(touch("search", ",\"search\":\"ferry\""), R"({ "hit": 0, "hits": 3, "part": 1 })");
    const Shown first = picture();
    EXPECT_EQ(touch("previousResult"), R"({ "hit": 2, "hits": 3, "part": 3 })");
    EXPECT_EQ(touch("nextResult"), R"({ "hit": 0, "hits": 3, "part": 1 })");
    EXPECT_EQ(picture(), first);
    EXPECT_NE(touch("search", ",\"search\":\"FERRY\",\"matchCase\":true").find("errNothingThere"),
              std::string::npos);
}

TEST_F(TouchSlideTest, TurnedSlideIsTheUprightOneOfAViewOnItsSide) {
    tour->call("/ppt", "fitWideMode", ",\"orientation\":\"right\"");
    const Shown turned = picture();
    TestDocument wide(*client, *queue, sample("tour.pptx"), 640, 360,
                      {.password = "", .dataStore = 0, .touchKind = "ppt", .awaitsOpen = true});
    ASSERT_EQ(wide.paint(), 0);
    const Shown upright = shown(wide);
    int different = 0;
    for (int y = 0; y < 640; ++y) {
        for (int x = 0; x < 360; ++x) {
            const auto there = static_cast<size_t>(x * 640 + 639 - y);
            different += turned[static_cast<size_t>(y * 360 + x)] != upright[there] ? 1 : 0;
        }
    }
    EXPECT_LE(different, 2) << "the status bytes count as black";
}

TEST_F(TouchSlideTest, TextsAreReadAndSelected) {
    EXPECT_NE(touch("getText").find("\"text\": \"The Harbour in Slides\""), std::string::npos);
    EXPECT_NE(touch("select", ",\"unit\":\"all\"").find("true"), std::string::npos);
    EXPECT_NE(touch("getSelection").find("The Harbour in Slides\\n"), std::string::npos);
    EXPECT_NE(touch("getOutline").find("\"title\": \"Who sails when\""), std::string::npos);
}

TEST_F(TouchSlideTest, ThumbnailsAreSmallSlides) {
    constexpr size_t BYTES = 160 * 90 * 4 + 4096;
    const int segment = shmget(IPC_PRIVATE, BYTES, IPC_CREAT | 0600);
    auto* const pixels = static_cast<uint32_t*>(shmat(segment, nullptr, 0));
    shmctl(segment, IPC_RMID, nullptr);
    EXPECT_NE(touch("getThumbnail", ",\"part\":1,\"width\":160,\"height\":90,\"size\":" +
                                        std::to_string(BYTES) + ",\"shmid\":" + std::to_string(segment))
                  .find("true"),
              std::string::npos);
    const auto ink = std::count_if(pixels, pixels + 160 * 90, [](uint32_t p) { return p != 0xFFFFFFFF; });
    EXPECT_GT(ink, 50);
    EXPECT_LT(ink, 160 * 90 / 2);
    shmdt(pixels);
}

} // namespace

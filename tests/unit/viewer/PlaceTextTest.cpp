// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/PlaceText.h"

#include <gtest/gtest.h>

namespace {

using namespace lectern::viewer;

ShownPlace inText(int y, int height, gint64 documentHeight) {
    return {.kind = LECTERN_DOCUMENT_KIND_TEXT, .y = y, .height = height, .documentHeight = documentHeight};
}

TEST(PlaceText, CountsSlidesFromOne) {
    EXPECT_EQ(placeText({.kind = LECTERN_DOCUMENT_KIND_PRESENTATION, .part = 2, .parts = 12}),
              "Slide 3 of 12");
}

TEST(PlaceText, NamesTheSheetOrElseCountsIt) {
    EXPECT_EQ(placeText({.kind = LECTERN_DOCUMENT_KIND_SPREADSHEET, .part = 1, .parts = 3, .sheet = "Costs"}),
              "Sheet Costs");
    EXPECT_EQ(placeText({.kind = LECTERN_DOCUMENT_KIND_SPREADSHEET, .part = 1, .parts = 3}), "Sheet 2 of 3");
}

TEST(PlaceText, TellsHowMuchOfATextIsRead) {
    EXPECT_EQ(placeText(inText(0, 100, 1100)), "0%");
    EXPECT_EQ(placeText(inText(420, 100, 1100)), "42%");
    EXPECT_EQ(placeText(inText(1000, 100, 1100)), "100%");
}

TEST(PlaceText, IsAllOfATextThatIsInView) {
    EXPECT_EQ(placeText(inText(0, 100, 100)), "100%");
    EXPECT_EQ(placeText(inText(0, 100, 40)), "100%");
}

TEST(PlaceText, NeverExceedsAllWhileTheHeightIsAnEstimate) {
    EXPECT_EQ(placeText(inText(2000, 100, 1100)), "100%");
}

TEST(HitText, TellsTheCurrentHitAndHowManyThereAre) {
    EXPECT_EQ(hitText(2, 17), "3 of 17");
    EXPECT_EQ(hitText(0, 1), "1 of 1");
}

TEST(HitText, TellsThatThereIsNoHit) {
    EXPECT_EQ(hitText(-1, 0), "No results");
}

TEST(HitText, CountsWithoutACurrentHit) {
    EXPECT_EQ(hitText(-1, 1), "1 result");
    EXPECT_EQ(hitText(-1, 17), "17 results");
}

TEST(SlideTitle, HasTheNumberOfTheSlide) {
    EXPECT_EQ(slideTitle(2, "Harbours"), "3. Harbours");
    EXPECT_EQ(slideTitle(2, ""), "Slide 3");
}

TEST(NotesHeading, NamesTheSlideOrTheCell) {
    EXPECT_EQ(notesHeading(2), "Notes of Slide 3");
    EXPECT_EQ(commentHeading("B7"), "Comment on B7");
}

} // namespace

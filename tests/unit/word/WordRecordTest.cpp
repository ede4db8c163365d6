// SPDX-License-Identifier: Apache-2.0
// The state record: returning to an earlier place. And the rest of a view.
#include "tests/unit/view/RecordTest.h"
#include "tests/unit/view/RestTest.h"
#include "tests/unit/word/WordTest.h"

#include <tuple>

namespace {

class WordRecordTest : public WordTest {
protected:
    static constexpr const char* KEY_PATH = "/usr";
    static constexpr double FIRST_SCALE = 1.0;
    static constexpr int FIRST_LEVEL = 1;

    static std::unique_ptr<TestWord> openLong() { return openView(320, 480, 20000); }
    static void goElsewhere(TestWord& view) { scrollBy(view, 1700); }
    static auto place(const TestWord& view) {
        return std::tuple(view.firstTextRow(), view.mScroll.x, view.mScale, view.mScaleLevel);
    }
};

INSTANTIATE_TYPED_TEST_SUITE_P(Word, StateRecordTest, WordRecordTest);
INSTANTIATE_TYPED_TEST_SUITE_P(Word, RestTest, WordRecordTest);

TEST_F(WordRecordTest, PaintSavesThePlace) {
    const auto view = openLong();
    scrollBy(*view, 1700);
    calls();
    paint(*view);
    EXPECT_EQ(view->mDataStore->scrollY, 1700);
    EXPECT_EQ(view->mDataStore->extra[0], 5 * 1040);
    EXPECT_EQ(view->mDataStore->extra[1], 1040);
    EXPECT_THAT(calls(), ElementsAre("wtg_get_top_left_character(0)"));
    paint(*view);
    EXPECT_THAT(calls(), IsEmpty()) << "asked for once";
}

TEST_F(WordRecordTest, PlaceAtTheStartIsZerosWithoutAsking) {
    const auto view = openLong();
    scrollBy(*view, 300);
    calls();
    paint(*view);
    EXPECT_EQ(view->mDataStore->extra[0], 0);
    EXPECT_EQ(view->mDataStore->extra[1], 0);
    EXPECT_THAT(calls(), IsEmpty());
}

TEST_F(WordRecordTest, RestoreJumpsAfterTheFirstSizing) {
    const auto old = openLong();
    scrollBy(*old, 1700);
    paint(*old);
    const auto view = reopen(*old);
    EXPECT_THAT(calls(),
                ElementsAre("wtg_open_file(\"/d/text.doc\", \"\", \"/usr/share/fonts\", \"/tmp\")",
                            "wtg_get_character_count(0)", "wtg_set_offscreen_buffer(0, 320, 1562)",
                            "wtg_set_dpi(72)", "wtg_get_bottom_right_character(0)",
                            "wtg_jump_to_character(0, 5200)", "wtg_get_vertical_last_used_pixel(0)"));
    EXPECT_EQ(view->top(), 1040);
    EXPECT_EQ(view->mScroll.y, 1700);
    EXPECT_EQ(view->firstTextRow(), 1700);
}

TEST_F(WordRecordTest, ZoomAndItsPlaceAreRestored) {
    const auto old = openLong();
    scrollBy(*old, 900);
    old->handleDoubleClick(100, 400);
    paint(*old);
    const int64_t row = old->firstTextRow();
    const auto view = reopen(*old);
    EXPECT_EQ(view->mScale, 3.0);
    EXPECT_EQ(view->mScaleLevel, 2);
    EXPECT_NEAR(static_cast<double>(view->firstTextRow()), static_cast<double>(row), 1.0);
    EXPECT_EQ(view->whiteRows(), 0);
    scrollBy(*view, -20000);
    EXPECT_EQ(view->firstTextRow(), 0) << "the start is in reach";
}

TEST_F(WordRecordTest, AfterAJumpTheCharacterIsTheOneAtTheTop) {
    fakeWord().lineHeight = 20; // of 100 characters
    fakeWord().hits = {{50042, 50047}};
    const auto view = openLong();
    view->doSearch("x");
    calls();
    paint(*view);
    EXPECT_EQ(view->mDataStore->extra[0], 50000) << "not that of the hit, further along the line";
    EXPECT_THAT(calls(), ElementsAre("wtg_get_top_left_character(0)"));
    paint(*view);
    EXPECT_THAT(calls(), IsEmpty()) << "asked for once";
}

TEST_F(WordRecordTest, PlaceAfterASearchAndZoomsIsRestored) {
    fakeWord().lineHeight = 20;
    for (const uint32_t hit : {33333U, 50042U, 77777U}) {
        fakeWord().hits = {{hit, hit + 5}};
        const auto old = openLong();
        old->doSearch("x");
        old->stopFind();
        for (int i = 0; i < 4; ++i) {
            old->handleDoubleClick(100, 240);
            paint(*old);
            const int64_t row = old->firstTextRow();
            const auto view = reopen(*old);
            EXPECT_EQ(view->firstTextRow(), row) << hit << " after " << i + 1 << " zooms";
        }
    }
}

TEST_F(WordRecordTest, PositionFarFromTheStartIsCovered) {
    const auto old = openLong();
    old->mDataStore->scrollY = 5000;
    const auto view = reopen(*old);
    EXPECT_EQ(view->firstTextRow(), 5000);
    EXPECT_EQ(view->whiteRows(), 0);
}

TEST_F(WordRecordTest, PlacesWithoutSenseMeanTheStart) {
    const auto old = openLong();
    const struct {
        int32_t character, row;
    } places[] = {{-1, 50}, {100000, 50}, {500, -1}, {500, INT32_MAX}, {0, 700}};
    for (const auto& [character, row] : places) {
        old->mDataStore->scrollY = 600;
        old->mDataStore->extra[0] = character;
        old->mDataStore->extra[1] = row;
        const auto view = reopen(*old);
        EXPECT_EQ(view->firstTextRow(), 0) << character << " at " << row;
        EXPECT_EQ(view->top(), 0);
    }
}

TEST_F(WordRecordTest, RowsThatDoNotFitTheirCharacterAreSurvived) {
    const auto old = openLong();
    old->mDataStore->scrollY = 0;
    old->mDataStore->extra[0] = 5000;
    old->mDataStore->extra[1] = 1 << 30;
    const auto view = reopen(*old);
    EXPECT_EQ(view->firstTextRow(), 0);
    EXPECT_EQ(view->top(), 0);
    EXPECT_EQ(view->whiteRows(), 0);
}

TEST_F(WordRecordTest, PlaceSavedInWideModeIsFoundByItsCharacter) {
    const auto old = openLong();
    old->setWideMode(true);
    scrollBy(*old, 5000);
    paint(*old);
    const int64_t wideTop = fakeWord().layout.top;
    const auto view = reopen(*old);
    EXPECT_EQ(view->mScroll.x, 0);
    EXPECT_EQ(view->whiteRows(), 0);
    EXPECT_NEAR(static_cast<double>(view->firstTextRow()), 2.0 * static_cast<double>(wideTop), 1200.0);
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/HitMarks.h"

#include <gmock/gmock.h>

namespace {

using namespace lectern::viewer;
using testing::ElementsAre;
using testing::IsEmpty;
using Mark = HitMarks::Mark;

constexpr auto TEXT = LECTERN_DOCUMENT_KIND_TEXT;
constexpr auto SHEET = LECTERN_DOCUMENT_KIND_SPREADSHEET;
constexpr auto SLIDES = LECTERN_DOCUMENT_KIND_PRESENTATION;

TEST(HitMarks, AreWhereTheHitsOfATextWereVisited) {
    HitMarks marks;
    marks.visit(0, 0, 0.25);
    marks.visit(1, 0, 0.5);
    EXPECT_THAT(marks.marks(TEXT, 0, 1), ElementsAre(Mark{0.25, false}, Mark{0.5, true}));
}

TEST(HitMarks, MoveWithTheLastVisitOfAHit) {
    HitMarks marks;
    marks.visit(3, 0, 0.25);
    marks.visit(3, 0, 0.75);
    EXPECT_THAT(marks.marks(TEXT, 0, 1), ElementsAre(Mark{0.75, true}));
}

TEST(HitMarks, AreOnlyThoseOfTheShownSheet) {
    HitMarks marks;
    marks.visit(0, 0, 0.25);
    marks.visit(5, 2, 0.5);
    EXPECT_THAT(marks.marks(SHEET, 0, 3), ElementsAre(Mark{0.25, false}));
    EXPECT_THAT(marks.marks(SHEET, 1, 3), IsEmpty());
    EXPECT_THAT(marks.marks(SHEET, 2, 3), ElementsAre(Mark{0.5, true}));
}

TEST(HitMarks, ArePlacedByTheSlide) {
    HitMarks marks;
    marks.visit(0, 0, 0.9);
    marks.visit(1, 3, 0.1);
    EXPECT_THAT(marks.marks(SLIDES, 3, 4), ElementsAre(Mark{0.125, false}, Mark{0.875, true}));
}

TEST(HitMarks, StayInTheStrip) {
    HitMarks marks;
    marks.visit(0, 0, -0.5);
    marks.visit(1, 0, 1.5);
    EXPECT_THAT(marks.marks(TEXT, 0, 1), ElementsAre(Mark{0.0, false}, Mark{1.0, true}));
}

TEST(HitMarks, AreGoneAfterClear) {
    HitMarks marks;
    marks.visit(0, 0, 0.5);
    marks.clear();
    EXPECT_THAT(marks.marks(TEXT, 0, 1), IsEmpty());
}

} // namespace

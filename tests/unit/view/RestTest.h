// SPDX-License-Identifier: Apache-2.0
// The rest of a view that nobody uses: each kind's program runs these tests.
#pragma once

#include "tests/unit/view/ViewTest.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>

// `Kind` is a kind's fixture with
//   openLong()      a view of a document with room to move
//   goElsewhere()   moves that view to where a paint leaves it
template<typename Kind>
class RestTest : public Kind {
protected:
    // The pages in use among those that lie wholly inside the picture.
    static long pagesInUse(CpPixmap& picture) {
        const auto page = static_cast<uintptr_t>(sysconf(_SC_PAGESIZE));
        const uintptr_t first = (reinterpret_cast<uintptr_t>(picture.Pixels()) + page - 1) / page * page;
        const uintptr_t end = reinterpret_cast<uintptr_t>(picture.Pixels() + picture.Area()) / page * page;
        std::vector<unsigned char> pages((end - first) / page);
        EXPECT_FALSE(pages.empty());
        EXPECT_EQ(mincore(reinterpret_cast<void*>(first), end - first, pages.data()), 0);
        return std::count_if(pages.begin(), pages.end(), [](unsigned char in) { return in % 2 != 0; });
    }
    // Replaces the fake module's picture, in which no two pixels are equal, by a drawing.
    template<typename View>
    static void drawOn(View& view) {
        ViewTest<View>::paint(view);
        CpPixmap& picture = *view.mDocPixmap;
        FillPixels(picture.Pixels(), static_cast<size_t>(picture.Area()), 0xFFF0F0F0);
        for (int i = 0; i < picture.Area(); i += 37) {
            picture.Pixels()[i] = 0xFF000000U + static_cast<uint32_t>(i);
        }
    }
    static std::vector<unsigned int> pixelsOf(const Frame& frame) {
        std::vector<unsigned int> pixels;
        for (size_t i = 0; i < frame.size(); i++) {
            pixels.push_back(frame[static_cast<long>(i)]);
        }
        return pixels;
    }
};
TYPED_TEST_SUITE_P(RestTest);

TYPED_TEST_P(RestTest, ChangesNoPictureThatIsPaintedLater) {
    const auto view = this->openLong();
    this->goElsewhere(*view);
    this->drawOn(*view);
    const auto before = this->pixelsOf(this->paint(*view));
    view->handleGestureStart(1.5, 0.0);
    const auto pinched = this->pixelsOf(this->paint(*view));
    view->mGestureActive = false;
    for (int round = 0; round < 2; round++) {
        view->rest();
        EXPECT_TRUE(view->isResting());
        view->wake();
        EXPECT_FALSE(view->isResting());
        view->handleGestureStart(1.5, 0.0);
        EXPECT_EQ(this->pixelsOf(this->paint(*view)), pinched);
        view->mGestureActive = false;
        EXPECT_EQ(this->pixelsOf(this->paint(*view)), before);
    }
}

TYPED_TEST_P(RestTest, GivesTheMemoryOfPicturesBack) {
    const auto view = this->openLong();
    this->drawOn(*view);
    this->paint(*view);
    EXPECT_GT(this->pagesInUse(*view->mDocPixmap), 0);
    EXPECT_GT(this->pagesInUse(view->mLastFrame), 0);
    view->rest();
    EXPECT_EQ(this->pagesInUse(*view->mDocPixmap), 0);
    EXPECT_EQ(this->pagesInUse(view->mLastFrame), 0);
}

TYPED_TEST_P(RestTest, TellsTheModuleOnce) {
    const auto view = this->openLong();
    this->paint(*view);
    this->calls();
    view->rest();
    view->rest();
    EXPECT_THAT(this->calls(), ElementsAre(testing::HasSubstr("release_memory")));
    view->wake();
    view->wake();
    EXPECT_THAT(this->calls(), IsEmpty());
}

TYPED_TEST_P(RestTest, OfAViewWithoutADocumentAsksNothing) {
    const auto view = this->failedView();
    view->rest();
    EXPECT_THAT(this->calls(), IsEmpty());
    view->wake();
    this->paint(*view);
}

REGISTER_TYPED_TEST_SUITE_P(RestTest, ChangesNoPictureThatIsPaintedLater, GivesTheMemoryOfPicturesBack,
                            TellsTheModuleOnce, OfAViewWithoutADocumentAsksNothing);

// SPDX-License-Identifier: Apache-2.0
// Readers of presentations with touch manners, with the real module.
#include "tests/system/support/Decks.h"
#include "tests/unit/touch/TouchPptSession.h"

namespace {

class TouchSlideSessionTest : public NotifiedTest, public testing::WithParamInterface<std::pair<int, int>> {
protected:
    static uint32_t pixelOf(const TestTouchPpt& view, int column, int row) {
        return view.mSurface->Pixels()[row * view.mSurface->Width() + column];
    }
};

TEST_P(TouchSlideSessionTest, KeepsTheSlideInViewAndInReach) {
    const auto [width, height] = GetParam();
    for (const std::string& deck : {slideSample("tour.pptx"), longSlides(12, 20)}) {
        TouchPptSession session(static_cast<unsigned>(width), width, height, deck, "the", pixelOf);
        session.play(12);
        session.visitEnds();
        EXPECT_THAT(session.failures(), IsEmpty()) << deck;
    }
}

INSTANTIATE_TEST_SUITE_P(Devices, TouchSlideSessionTest,
                         testing::Values(std::pair(360, 640), std::pair(768, 1024), std::pair(1080, 1920)),
                         [](const auto& test) {
                             return std::to_string(test.param.first) + "x" +
                                    std::to_string(test.param.second);
                         });

} // namespace

// SPDX-License-Identifier: Apache-2.0
// Nothing uncovered, the point under the finger kept, and every end reachable, whatever a
// reader does. LECTERN_TOUCH_SESSIONS=n plays n sessions of each size instead of one.
#include "TouchPptSession.h"

#include <cstdlib>
#include <random>

namespace {

class TouchPptSessionTest : public TouchPptTest, public testing::WithParamInterface<std::pair<int, int>> {
protected:
    static void makeDeck(unsigned seed) {
        std::mt19937 random(seed);
        const auto number = [&](int low, int high) {
            return std::uniform_int_distribution<int>(low, high)(random);
        };
        FakeSlideControl& module = fakeSlides();
        module.reset();
        module.recording = false;
        module.width = number(300, 1000);
        module.height = number(300, 1000);
        module.slides.resize(static_cast<size_t>(number(1, 6)));
        for (FakeSlide& slide : module.slides) {
            for (int i = 0, count = number(0, 3); i < count; ++i) {
                slide.hits.push_back({{number(0, 250), 30 + 80 * i, 40, 20}});
            }
            slide.shapes = {{100, 100, 100, 50}};
        }
    }
    static uint32_t pixelOf(const TestTouchPpt& view, int column, int row) {
        return fakeSlidePixel(view.mCurrentSlide, column, row);
    }
};

TEST_P(TouchPptSessionTest, KeepsTheSlideInViewAndInReach) {
    const auto [width, height] = GetParam();
    const char* const asked = std::getenv("LECTERN_TOUCH_SESSIONS");
    const unsigned sessions = asked != nullptr ? static_cast<unsigned>(std::atoi(asked)) : 1;
    for (unsigned i = 0; i < sessions; ++i) {
        const unsigned seed = static_cast<unsigned>(width) + 1000 * i;
        makeDeck(seed);
        TouchPptSession session(seed, width, height, "/d/deck.ppt", "x", pixelOf);
        session.play(30);
        session.visitEnds();
        EXPECT_THAT(session.failures(), IsEmpty()) << "session " << i;
    }
}

INSTANTIATE_TEST_SUITE_P(Devices, TouchPptSessionTest,
                         testing::Values(std::pair(360, 640), std::pair(480, 800), std::pair(768, 1024),
                                         std::pair(1080, 1920), std::pair(2160, 3840), std::pair(641, 361)),
                         [](const auto& test) {
                             return std::to_string(test.param.first) + "x" +
                                    std::to_string(test.param.second);
                         });

} // namespace

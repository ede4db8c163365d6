// SPDX-License-Identifier: Apache-2.0
// Nothing uncovered, the point under the finger kept, and every end reachable, whatever a
// reader does. LECTERN_TOUCH_SESSIONS=n plays n sessions of each size instead of two.
#include "TouchPptSession.h"

#include <cstdlib>

namespace {

class TouchPptSessionTest : public TouchPptTest, public testing::WithParamInterface<std::pair<int, int>> {};

TEST_P(TouchPptSessionTest, KeepsTheSlideInViewAndInReach) {
    const auto [width, height] = GetParam();
    const char* const asked = std::getenv("LECTERN_TOUCH_SESSIONS");
    const unsigned sessions = asked != nullptr ? static_cast<unsigned>(std::atoi(asked)) : 2;
    for (unsigned i = 0; i < sessions; ++i) {
        TouchPptSession session(static_cast<unsigned>(width) + 1000 * i, width, height);
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

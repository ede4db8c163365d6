// SPDX-License-Identifier: Apache-2.0
// No white where there is text, the text under the finger, and every row in reach,
// whatever a reader does, from phones to large tablets, with and without the module's
// optional functions. LECTERN_WORD_SESSIONS=n runs n sessions of each instead of one.
#include "tests/unit/touch/TouchWordSession.h"

#include <cstdlib>

namespace {

using testing::IsEmpty;

unsigned sessionsOfEach() {
    const char* asked = std::getenv("LECTERN_WORD_SESSIONS");
    const int count = asked != nullptr ? std::atoi(asked) : 0;
    return count > 0 ? static_cast<unsigned>(count) : 1;
}

struct Reader {
    int width, height;
};

class TouchWordSessionTest : public NotifiedTest, public testing::WithParamInterface<Reader> {
protected:
    // Discards standard output, which has a line for every preview.
    static std::map<std::string, int> play(unsigned seed, const Reader& reader, int64_t rows, bool optional) {
        testing::internal::CaptureStdout();
        const TouchClock clock;
        TouchWordSession session(seed, reader.width, reader.height, rows, optional);
        session.play(20);
        session.visitEnds();
        testing::internal::GetCapturedStdout();
        return session.failures();
    }
};

TEST_P(TouchWordSessionTest, KeepsTheTextInViewAndInReach) {
    const Reader& reader = GetParam();
    const auto first = static_cast<unsigned>(reader.width + reader.height);
    for (unsigned i = 0; i < sessionsOfEach(); ++i) {
        for (const auto& [rows, optional] :
             {std::pair(100, true), {3000, true}, {3000, false}, {20000, true}}) {
            const unsigned seed = first + 1000 * i + static_cast<unsigned>(rows);
            EXPECT_THAT(play(seed, reader, rows, optional), IsEmpty())
                << "seed " << seed << ", " << rows << " rows, optional functions: " << optional;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Devices, TouchWordSessionTest,
                         testing::Values(Reader{360, 640}, Reader{768, 1024}, Reader{1080, 1920},
                                         Reader{2160, 3840}, Reader{64, 64}),
                         [](const auto& test) {
                             return std::to_string(test.param.width) + "x" +
                                    std::to_string(test.param.height);
                         });

} // namespace

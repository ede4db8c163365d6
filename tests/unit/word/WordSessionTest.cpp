// SPDX-License-Identifier: Apache-2.0
// Nothing white where there is text, no move that the input does not explain,
// and every row within reach, whatever a reader does. More sessions than the
// default: LECTERN_WORD_SESSIONS=n.
#include "tests/unit/word/WordSession.h"
#include "tests/unit/word/WordTest.h"

namespace {

int sessionCount() {
    const char* asked = std::getenv("LECTERN_WORD_SESSIONS");
    const int count = asked != nullptr ? std::atoi(asked) : 0;
    return count > 0 ? count : 3;
}

struct Size {
    int width, height;
};

using Failures = std::map<std::string, int>;

class WordSessionTest : public WordTest, public testing::WithParamInterface<Size> {
protected:
    // Every paint leaves a line on standard output, which nobody wants to read.
    static Failures play(unsigned seed, Size size, int64_t rows) {
        testing::internal::CaptureStdout();
        WordSession session(seed, size.width, size.height, rows, seed % 3 == 0);
        session.play(25);
        if (fakeWord().layout.rows < 30000) {
            session.visitEnds();
        }
        testing::internal::GetCapturedStdout();
        return session.failures();
    }
};

TEST_P(WordSessionTest, KeepsTheTextInViewAndInReach) {
    constexpr int64_t lengths[] = {100, 500, 1500, 3000, 8000, 20000, 60000};
    for (int i = 1; i <= sessionCount(); ++i) {
        const auto seed = static_cast<unsigned>(GetParam().width + GetParam().height + i);
        const int64_t rows = lengths[seed % std::size(lengths)];
        EXPECT_THAT(play(seed, GetParam(), rows), IsEmpty()) << "seed " << seed << ", " << rows << " rows";
    }
}

INSTANTIATE_TEST_SUITE_P(Sizes, WordSessionTest,
                         testing::Values(Size{320, 480}, Size{480, 800}, Size{480, 320}, Size{1080, 1920},
                                         Size{360, 720}, Size{320, 521}, Size{64, 64}, Size{30, 700}),
                         [](const auto& test) {
                             return std::to_string(test.param.width) + "x" +
                                    std::to_string(test.param.height);
                         });

} // namespace

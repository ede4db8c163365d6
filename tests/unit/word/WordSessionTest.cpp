// SPDX-License-Identifier: Apache-2.0
// No white where there is text, no move without input, and every row reachable,
// whatever a reader does: at each size, in both modes, for short and long
// texts. LECTERN_WORD_SESSIONS=n runs n sessions of each instead of one.
#include "tests/unit/word/WordSession.h"

#include "tests/unit/word/WordTest.h"

namespace {

unsigned sessionsOfEach() {
    const char* asked = std::getenv("LECTERN_WORD_SESSIONS");
    const int count = asked != nullptr ? std::atoi(asked) : 0;
    return count > 0 ? static_cast<unsigned>(count) : 1;
}

struct Reader {
    int width, height;
    bool wide; // at the start; sessions turn it on and off
};

using Failures = std::map<std::string, int>;

class WordSessionTest : public WordTest, public testing::WithParamInterface<Reader> {
protected:
    // Discards standard output, which has a line for every paint.
    static Failures play(unsigned seed, const Reader& reader, int64_t rows) {
        testing::internal::CaptureStdout();
        WordSession session(seed, reader.width, reader.height, rows, reader.wide);
        session.play(25);
        session.visitEnds();
        testing::internal::GetCapturedStdout();
        return session.failures();
    }
};

TEST_P(WordSessionTest, KeepsTheTextInViewAndInReach) {
    const Reader& reader = GetParam();
    const auto first = static_cast<unsigned>(reader.width + reader.height);
    for (unsigned i = 0; i < sessionsOfEach(); ++i) {
        for (const int rows : {100, 500, 1500, 3000, 8000, 20000, 60000}) {
            const unsigned seed = first + 1000 * i + static_cast<unsigned>(rows);
            EXPECT_THAT(play(seed, reader, rows), IsEmpty()) << "seed " << seed << ", " << rows << " rows";
        }
    }
}

std::string readerName(const testing::TestParamInfo<Reader>& test) {
    return std::to_string(test.param.width) + "x" + std::to_string(test.param.height) +
           (test.param.wide ? "Wide" : "");
}

INSTANTIATE_TEST_SUITE_P(Devices, WordSessionTest,
                         testing::Values(Reader{320, 480, false}, Reader{320, 480, true},
                                         Reader{480, 800, false}, Reader{480, 800, true},
                                         Reader{480, 320, false}, Reader{480, 320, true},
                                         Reader{1080, 1920, false}, Reader{1080, 1920, true}),
                         readerName);
INSTANTIATE_TEST_SUITE_P(OtherSizes, WordSessionTest,
                         testing::Values(Reader{360, 720, false}, Reader{320, 521, true},
                                         Reader{64, 64, false}, Reader{30, 700, true}),
                         readerName);

} // namespace

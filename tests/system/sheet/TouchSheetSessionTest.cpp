// SPDX-License-Identifier: Apache-2.0
// Short random sessions of touch views with the real module.
#include "tests/unit/touch/TouchExcelSession.h"
#include "tests/unit/view/Notifications.h"

#include <gtest/gtest.h>

namespace {

struct SessionCase {
    unsigned seed;
    const char* sample;
    int width;
    int height;
    double dotsPerInch;
};

class TouchSheetSessionTest : public NotifiedTest, public testing::WithParamInterface<SessionCase> {};

// Rows and columns of documents differ in size, hidden ones and merged areas included.
TEST_P(TouchSheetSessionTest, KeepsItsPromises) {
    const SessionCase& c = GetParam();
    const std::string path = std::string(SAMPLES_FOLDER) + "/" + c.sample;
    TouchExcelSession session(c.seed, path.c_str(), c.width, c.height, c.dotsPerInch, {});
    session.play(25);
    session.visitEnds();
    for (const auto& [what, count] : session.failures()) {
        ADD_FAILURE() << what << ": " << count << " times";
    }
}

INSTANTIATE_TEST_SUITE_P(Samples, TouchSheetSessionTest,
                         testing::Values(SessionCase{1, "tour.xlsx", 360, 640, 160},
                                         SessionCase{2, "tour.xls", 768, 1024, 132},
                                         SessionCase{3, "tour.xlsx", 768, 1024, 264}),
                         [](const auto& c) { return "Seed" + std::to_string(c.param.seed); });

} // namespace

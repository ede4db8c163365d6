// SPDX-License-Identifier: Apache-2.0
// What a client is told about a document whose engine has ended.
#include "modules/ModuleResults.h"
#include "tests/system/support/ClientFixture.h"
#include <lectern/Navigation.h>

#include <signal.h>

namespace {

using namespace lectern;

class LostEngineTest : public ClientTest {
protected:
    // Opens a document, ends its engine and zooms, which needs the engine.
    Failure zoomWithoutEngine(const std::string& file) {
        const auto document = open(connect(), sample(file));
        EXPECT_TRUE(document);
        EXPECT_FALSE(document->paint());
        kill(descendants("lectern-engine").front(), SIGKILL);
        return pinch(*document, 1.5);
    }
};

TEST_F(LostEngineTest, PaintsThatNeedItFailWithTheModulesCode) {
    const Failure failure = zoomWithoutEngine("tour.docx");
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->kind, Error::Kind::Document);
    EXPECT_EQ(failure->code, MODULE_ENGINE_LOST);
}

TEST_F(LostEngineTest, PaintsOfASheetFailToo) {
    const Failure failure = zoomWithoutEngine("tour.xlsx");
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->code, MODULE_ENGINE_LOST);
}

TEST_F(LostEngineTest, PaintsOfASlideFailToo) {
    const Failure failure = zoomWithoutEngine("tour.pptx");
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->code, MODULE_ENGINE_LOST);
}

} // namespace

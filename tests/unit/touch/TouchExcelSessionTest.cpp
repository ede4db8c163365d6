// SPDX-License-Identifier: Apache-2.0
// Random sessions with the fake module, whose pixels tell where they belong.
#include "tests/unit/touch/TouchExcelSession.h"

#include "tests/fakes/sheet/FakeSheetModule.h"
#include "tests/unit/view/Notifications.h"

#include <gtest/gtest.h>

namespace {

// Marks leave the highest 8 bits, which tell the surface and the sheet.
bool isRight(const SessionExcel& view, int x, int y, uint32_t pixel) {
    const CpPoint header = view.corner();
    const CpPoint place = view.documentPoint({x, y});
    const bool besideX = place.x >= view.mSheetWidth;
    const bool besideY = place.y >= view.mSheetHeight;
    if (x < header.x && y < header.y) {
        return pixel == 0xFFCCCCCC;
    }
    if (pixel >> 24 == 0xFF) {
        return pixel == 0xFF404040; // the guide of a resize
    }
    const uint32_t surface = y < header.y ? 2 : x < header.x ? 3 : 1;
    const bool isBeside = surface == 2 ? besideX : surface == 3 ? besideY : besideX || besideY;
    const auto sheet = static_cast<uint32_t>(view.mCurrentSheet);
    return isBeside ? pixel >> 24 == FAKE_BESIDE_SHEET >> 24 : pixel >> 24 == (surface << 4 | sheet);
}

struct SessionCase {
    unsigned seed;
    int width;
    int height;
    double dotsPerInch;
    int operations;
};

class TouchExcelSessionTest : public NotifiedTest, public testing::WithParamInterface<SessionCase> {
protected:
    void SetUp() override {
        NotifiedTest::SetUp();
        FakeSheetControl& fake = fakeSheet();
        fake.reset();
        fake.recording = false;
        std::mt19937 random(GetParam().seed);
        fake.sheets = {{u"One", 60, 900}, {u"Two", 3, 4}, {u"Three", 300, 60}};
        fake.cellWidth = 20 + static_cast<int>(random() % 60);
        fake.merged = {{1, 4, 3, 2}, {10, 30, 1, 5}};
        for (int i = 0; i < 12; ++i) {
            const auto column = static_cast<int>(random() % 50);
            const auto row = static_cast<int>(random() % 60);
            fake.hitsOfSheets[i % 3 == 1 ? 2 : 0].push_back({0, column * 40, row * 20, 40, 20});
            fake.comments[{column, row}] = u"told";
            fake.texts[{column, row}] = u"text";
        }
    }
};

TEST_P(TouchExcelSessionTest, KeepsItsPromises) {
    const SessionCase& c = GetParam();
    TouchExcelSession session(c.seed, "/d/book.xls", c.width, c.height, c.dotsPerInch, isRight);
    session.play(c.operations);
    session.visitEnds();
    for (const auto& [what, count] : session.failures()) {
        ADD_FAILURE() << what << ": " << count << " times";
    }
}

INSTANTIATE_TEST_SUITE_P(Sizes, TouchExcelSessionTest,
                         testing::Values(SessionCase{1, 360, 640, 160, 60}, SessionCase{2, 360, 640, 72, 60},
                                         SessionCase{3, 768, 1024, 132, 30},
                                         SessionCase{4, 480, 800, 233.5, 30},
                                         SessionCase{5, 2160, 3840, 400, 3}),
                         [](const auto& c) { return "Seed" + std::to_string(c.param.seed); });

} // namespace

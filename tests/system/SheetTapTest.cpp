// SPDX-License-Identifier: Apache-2.0
// A tap selects the cell that the client sees there.
#include "tests/system/support/Python.h"
#include "tests/system/support/ServiceFixture.h"
#include "tests/system/support/SheetScreen.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <random>

namespace {

constexpr int POINTS = 200;
constexpr int FARTHER = 1 << 30; // beyond the end of any sheet
constexpr uint32_t OPAQUE = 0xFF000000;

// Half red over a colour, as in the corner of a cell with a comment.
uint32_t marked(uint32_t colour) {
    const auto mixed = [&](int shift, uint32_t over) {
        return (((colour >> shift & 0xFF) * 127 >> 8) + (over * 128 >> 8)) << shift;
    };
    return OPAQUE | mixed(16, 0xFF) | mixed(8, 0) | mixed(0, 0);
}

class SheetTapTest : public ServiceTest {
protected:
    void SetUp() override {
        ServiceTest::SetUp();
        RecordProperty("seed", std::to_string(SEED));
        path = generated("labelled.xlsx", "make_xlsx.py", {"labelled", "OUT"});
        screen = std::make_unique<SheetScreen>(*client, *queue, path, 320, 480);
        ASSERT_EQ(screen->document().openResult(), 0);
    }
    void TearDown() override {
        screen.reset();
        ServiceTest::TearDown();
    }
    void checkPoints() {
        std::uniform_int_distribution<int> across(screen->cells().left, screen->width() - 1);
        std::uniform_int_distribution<int> down(screen->cells().top, screen->height() - 2);
        std::map<std::string, int> cells;
        for (int i = 0; i < POINTS; ++i) {
            const int x = across(chance);
            const int y = down(chance);
            const uint32_t pixel = screen->at(x, y);
            screen->document().tap(x, y);
            const std::set<int> notices = screen->notices();
            const std::string reply = screen->lastComment();
            const std::string comment = jsonMember(reply, "comment");
            const auto colour = static_cast<uint32_t>(std::strtoul(comment.c_str(), nullptr, 16)) | OPAQUE;
            ASSERT_TRUE(pixel == colour || pixel == marked(colour))
                << "seed " << SEED << ", point " << i << ": the pixel at " << x << "," << y << " is "
                << std::hex << pixel << ", the tap tells " << reply;
            ASSERT_EQ(notices.count(2), 1U) << reply;
            ASSERT_EQ(notices.count(3), 0U) << reply;
            ASSERT_EQ(jsonMember(reply, "xcoord"), std::to_string(x));
            ASSERT_EQ(jsonMember(reply, "ycoord"), std::to_string(y));
            ++cells[comment];
        }
        EXPECT_GT(cells.size(), 3U);
    }

    static constexpr unsigned int SEED = 20260214;
    std::mt19937 chance{SEED};
    std::string path;
    std::unique_ptr<SheetScreen> screen;
};

TEST_F(SheetTapTest, EveryPointIsInTheCellDrawnThere) {
    for (const double zoom : {2.0, 1.0, 3.25}) {
        SCOPED_TRACE(zoom);
        screen->zoom(zoom);
        EXPECT_DOUBLE_EQ(screen->document().scale(), zoom);
        screen->scrollTo(11, 7);
        checkPoints();
    }
}

TEST_F(SheetTapTest, EveryPointFarAwayIsInTheCellDrawnThere) {
    for (const double zoom : {2.0, 1.0, 3.25}) {
        SCOPED_TRACE(zoom);
        screen->zoom(zoom);
        screen->scrollTo(FARTHER, FARTHER); // to the last cell
        screen->scrollTo(screen->document().scrollX() - 13, screen->document().scrollY() - 9);
        checkPoints();
    }
}

TEST_F(SheetTapTest, CommentsAreWhatTheReaderSays) {
    std::map<std::string, std::string> colours; // of the comments, by cell
    for (const std::string& line : readWorkbook({"comments", path, "Sheet"})) {
        colours[line.substr(0, line.find('\t'))] = line.substr(line.find('\t') + 1);
    }
    ASSERT_EQ(colours.size(), 2U * 10 * 36);
    EXPECT_EQ(colours.at("A1"), "202020");
    // The first row of the visible columns, from the left.
    screen->zoom(1.0);
    screen->scrollTo(0, 0);
    const std::vector<std::string> hidden = readWorkbook({"columns", path, "Sheet"});
    std::vector<std::string> expected;
    for (char column = 'A'; column <= 'J'; ++column) {
        if (std::count(hidden.begin(), hidden.end(), std::string(1, column)) == 0) {
            expected.push_back(colours.at(column + std::string("1")));
        }
    }
    std::vector<std::string> told;
    for (const SheetScreen::Header& column : screen->columns()) {
        screen->document().tap(column.middle(), screen->cells().top + 2);
        told.push_back(jsonMember(screen->lastComment(), "comment"));
    }
    ASSERT_GE(told.size(), 4U);
    expected.resize(std::min(expected.size(), told.size()));
    EXPECT_EQ(told, expected);
}

TEST_F(SheetTapTest, ACellWithoutACommentTellsNothingAndLeavesTheTapToTheClient) {
    screen->zoom(1.0);
    screen->scrollTo(3000, 3000); // between the blocks
    screen->document().tap(200, 300);
    EXPECT_EQ(screen->notices(), (std::set<int>{0, 3}));
    EXPECT_EQ(screen->lastComment(), R"({ "comment": "", "xcoord": 200, "ycoord": 300 })");
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
// Pictures of sheets and slides, compared with what another client sees after a jump.
#include "tests/system/command/ServedCommandFixture.h"

#include <functional>
#include <set>

namespace {

class PictureTest : public CommandTest {
protected:
    // Compares the pictures of all parts of a document with what a client sees
    // after jumping there.
    void expectJumps(const std::string& file, const std::string& option, size_t parts,
                     const std::function<void(TestDocument&, size_t index)>& jump) {
        TestDocument document(*client, *queue, file, 480, 800);
        ASSERT_EQ(document.paint(), 0);
        std::set<std::vector<uint32_t>> different;
        for (size_t i = 0; i < parts; ++i) {
            jump(document, i);
            const Picture picture = opened(file, {option, std::to_string(i + 1)});
            EXPECT_EQ(picture, seenBy(document)) << option << " " << i + 1;
            different.insert(picture.pixels);
        }
        EXPECT_EQ(different.size(), parts);
    }
};

TEST_F(PictureTest, EachSheetIsWhatAJumpToItShows) {
    const std::string file = sample("tour.xlsx");
    expectJumps(file, "--sheet", facts("sheets", file).size(), [](TestDocument& document, size_t index) {
        document.call("/excel", "jumpToSheet", ", \"sheet\": " + std::to_string(index));
        // A sheet is measured when a glide has ended, which takes a moment.
        document.call("/events", "handleFlick", ", \"xCoord\": 0, \"yCoord\": -1");
        document.paint();
    });
}

TEST_F(PictureTest, EachSlideIsWhatAJumpToItShows) {
    const std::string file = sample("tour.pptx");
    expectJumps(file, "--slide", facts("titles", file).size(), [](TestDocument& document, size_t index) {
        document.call("/ppt", "jumpToSlide", ", \"slide\": " + std::to_string(index));
    });
}

// Row and column headers stay in place; the cells move by the requested pixels.
TEST_F(PictureTest, ASheetScrollsAlongOneAxisAndAlongBoth) {
    constexpr int DX = 100;
    constexpr int DY = 50;
    constexpr int LEFT = 60; // right of the row headers and below the column headers
    constexpr int TOP = 60;
    const std::string file = sample("tour.xlsx");
    const Picture start = opened(file, {});
    const auto isMoved = [&start](const Picture& moved, int byX, int byY) {
        for (int y = TOP; y < moved.height - byY; ++y) {
            const auto* row = moved.pixels.data() + y * moved.width;
            const auto* from = start.pixels.data() + (y + byY) * start.width + byX;
            if (!std::equal(row + LEFT, row + moved.width - byX, from + LEFT)) {
                return false;
            }
        }
        return true;
    };
    EXPECT_TRUE(isMoved(opened(file, {"--scroll", "100,0"}), DX, 0));
    EXPECT_TRUE(isMoved(opened(file, {"--scroll", "0,50"}), 0, DY));
    EXPECT_TRUE(isMoved(opened(file, {"--scroll", "100,50"}), DX, DY));
}

TEST_F(PictureTest, AZoomedSlideIsAtItsStart) {
    const Picture plain = opened(sample("tour.pptx"), {});
    const Picture zoomed = opened(sample("tour.pptx"), {"--zoom", "2"}); // without messages
    EXPECT_NE(zoomed, plain);
}

TEST_F(PictureTest, AHitOfAnotherSheetIsMarked) {
    const Picture plain = opened(sample("tour.xlsx"), {"--sheet", "2"});
    EXPECT_NE(opened(sample("tour.xlsx"), {"--sheet", "2", "--search", "B02"}), plain);
}

} // namespace

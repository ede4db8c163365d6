// SPDX-License-Identifier: Apache-2.0
// Taps through the service: links and notes as a client sees them.
#include "tests/system/support/Marks.h"
#include "tests/system/support/ServiceFixture.h"

namespace {

class ServiceClickTest : public ServiceTest {
protected:
    void SetUp() override {
        ServiceTest::SetUp();
        document = std::make_unique<TestDocument>(*client, *queue, linkedDocument(), WIDTH, HEIGHT);
        ASSERT_EQ(document->openResult(), 0);
        ASSERT_EQ(document->paint(), 0);
    }
    void TearDown() override {
        document.reset();
        ServiceTest::TearDown();
    }
    std::vector<uint32_t> screen() const {
        return {document->frame(), document->frame() + WIDTH * (HEIGHT - 1)};
    }
    // Taps the middle of a search's first mark, moved `right` pixels.
    void tapOn(const std::string& text, int right = 0) {
        document->call("/common", "Search", ",\"search\":\"" + text + "\"");
        int x = -1;
        int y = -1;
        for (int i = 0; i < WIDTH * (HEIGHT - 1) && x < 0; ++i) {
            if (isCurrentHit(document->frame()[i])) {
                x = i % WIDTH + 3;
                y = i / WIDTH + 6;
            }
        }
        ASSERT_GE(x, 0) << text << " is not shown";
        document->call("/common", "closeSearch");
        document->tap(x + right, y);
    }
    // Rows of the pop-up's part of the screen that contain dark pixels.
    std::vector<int> popupRows() const {
        std::vector<int> rows;
        for (int y = 40; y < HEIGHT - 40; ++y) {
            for (int x = 20; x < WIDTH - 20; ++x) {
                if ((document->frame()[y * WIDTH + x] & 0xFF) < 0x60) {
                    rows.push_back(y);
                    break;
                }
            }
        }
        return rows;
    }
    bool isPopupShown() const {
        // The page around it is darkened.
        return (document->frame()[10 * WIDTH + 2] & 0xFF) < 0xE0;
    }

    static constexpr int WIDTH = 320;
    static constexpr int HEIGHT = 480;
    std::unique_ptr<TestDocument> document;
};

TEST_F(ServiceClickTest, ATapOnAHyperlinkTellsTheClient) {
    tapOn("page elsewhere");
    bool told = false;
    for (Answer answer = queue->poll(document->store()); answer.id >= 0;
         answer = queue->poll(document->store())) {
        told = told || answer.id == 1;
    }
    EXPECT_TRUE(told);
    EXPECT_EQ(document->scrollY(), 0);
}

TEST_F(ServiceClickTest, ATapOnAnInternalLinkLandsOnItsTarget) {
    tapOn("down to the birds");
    const std::vector<uint32_t> landed = screen();
    EXPECT_EQ(document->scrollY(), 0) << "rows count from there";
    document->call("/common", "Search", ",\"search\":\"Straße\"");
    document->call("/common", "closeSearch");
    document->touch();
    document->paint();
    EXPECT_TRUE(screen() == landed) << "what follows the heading is on the screen already";
    EXPECT_GT(popupRows().size(), 50U) << "the text below the heading";
    document->drag(-300);
    EXPECT_FALSE(screen() == landed) << "text lies above";
}

TEST_F(ServiceClickTest, ATapOnAContentsEntryLandsOnTheHeading) {
    tapOn("Chapter of tides");
    const std::vector<uint32_t> landed = screen();
    document->drag(-400);
    tapOn("apter of tides\\t");
    EXPECT_TRUE(screen() == landed);
}

TEST_F(ServiceClickTest, ATapOnANoteMarkShowsTheNoteFromItsFirstLineToItsLast) {
    const std::vector<uint32_t> page = screen();
    // The mark of the first note is left of this text.
    tapOn("A note1", 29);
    ASSERT_TRUE(isPopupShown());
    const std::vector<int> rows = popupRows();
    ASSERT_FALSE(rows.empty());
    EXPECT_LT(rows.front(), 55);
    document->tap(100, 300);
    EXPECT_FALSE(isPopupShown());
    EXPECT_TRUE(screen() == page);
}

TEST_F(ServiceClickTest, ALongNoteIsScrolledToItsLastLine) {
    for (int i = 0; i < 3; ++i) {
        document->drag(150);
    }
    document->doubleTap(5, 5); // a long note
    document->call("/common", "Search", ",\"search\":\"Note 1212\"");
    int x = -1;
    int y = -1;
    for (int i = 0; i < WIDTH * (HEIGHT - 1); ++i) {
        if (isCurrentHit(document->frame()[i])) {
            x = std::max(x, i % WIDTH);
            y = y < 0 ? i / WIDTH : y;
        }
    }
    ASSERT_GE(x, 0);
    document->call("/common", "closeSearch");
    document->tap(x - 2, y + 12);
    ASSERT_TRUE(isPopupShown());
    ASSERT_LT(popupRows().front(), 90);
    ASSERT_GT(popupRows().back(), HEIGHT - 80) << "more than a screen of it";
    std::vector<uint32_t> last;
    for (int i = 0; i < 10 && screen() != last; ++i) {
        last = screen();
        document->drag(200);
    }
    EXPECT_TRUE(isPopupShown());
    document->tap(100, 300);
    EXPECT_FALSE(isPopupShown());
}

TEST_F(ServiceClickTest, TapsBesideEverythingAreTheClients) {
    const std::vector<uint32_t> page = screen();
    for (const auto& [x, y] : {std::pair{-50, 10}, {10, -50}, {5000, 10}, {10, 100000}, {5, 100}}) {
        document->tap(x, y);
        EXPECT_TRUE(screen() == page) << x << "," << y;
    }
}

} // namespace

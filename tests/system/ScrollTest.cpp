// SPDX-License-Identifier: Apache-2.0
// The screen while a long document is dragged and zoomed, compared row by row
// with what the engine paints at that place.
#include "tests/system/support/EngineRows.h"
#include "tests/system/support/ServiceFixture.h"

#include <unistd.h>

namespace {

class ScrollTest : public ServiceTest {
protected:
    // The first screen row that differs from the document's row at that place; -1
    // when none does. The last pixel contains the status byte and is not compared.
    static int firstWrongRow(const TestDocument& document, const EngineRows& rows) {
        for (int row = 0; row < document.height() - 1; ++row) {
            if (!rows.matches(document.scrollY() + row, document.frame() + row * document.width())) {
                return row;
            }
        }
        return -1;
    }
    // Drags in one direction until the view stops, and compares every screen.
    static void dragToTheEnd(TestDocument& document, const EngineRows& rows, int way) {
        int last = -1;
        while (document.scrollY() != last) {
            last = document.scrollY();
            document.drag(way * (document.height() - 40));
            const int moved = way * (document.scrollY() - last);
            ASSERT_GE(moved, 0) << "at row " << last;
            ASSERT_LE(moved, document.height() - 40) << "at row " << last;
            ASSERT_EQ(firstWrongRow(document, rows), -1) << "at scroll position " << document.scrollY();
        }
    }
    // Whether the screen is the earlier one, moved by less than the height of a line.
    static bool isSameButForALine(const std::vector<uint32_t>& before, const TestDocument& document) {
        constexpr int LINE = 40;
        const int width = document.width();
        const int rows = document.height() - 1 - LINE;
        const auto same = [&](int from, int to) {
            return std::equal(document.frame() + to * width, document.frame() + (to + rows) * width,
                              before.begin() + from * width);
        };
        for (int shift = 0; shift < LINE; ++shift) {
            if (same(shift, 0) || same(0, shift)) {
                return true;
            }
        }
        return false;
    }
    void dragThroughAndBackTwice(const std::string& path, int width, int height) {
        TestDocument document(*client, *queue, path, width, height);
        ASSERT_EQ(document.openResult(), 0);
        const EngineRows rows(path, width, 72);
        ASSERT_GT(rows.count(), height);
        ASSERT_EQ(document.paint(), 0);
        ASSERT_EQ(firstWrongRow(document, rows), -1);
        for (int round = 0; round < 2; ++round) {
            dragToTheEnd(document, rows, 1);
            ASSERT_EQ(document.scrollY() + height, rows.count()) << "the end must be reached exactly";
            dragToTheEnd(document, rows, -1);
            ASSERT_EQ(document.scrollY(), 0);
        }
    }
};

TEST_F(ScrollTest, EveryRowOfALongDocumentIsSeenInItsPlaceAt320x480) {
    dragThroughAndBackTwice(longDocument(40), 320, 480);
}

TEST_F(ScrollTest, EveryRowOfALongDocumentIsSeenInItsPlaceAt480x800) {
    dragThroughAndBackTwice(longDocument(200), 480, 800);
}

TEST_F(ScrollTest, EveryRowOfADocumentWithPicturesAndTablesIsSeenInItsPlaceAt480x320) {
    dragThroughAndBackTwice(sample("tour.docx"), 480, 320);
}

TEST_F(ScrollTest, DoubleTapsGoThroughThreeZooms) {
    const std::string path = longDocument(20);
    TestDocument document(*client, *queue, path, 480, 800);
    ASSERT_EQ(document.paint(), 0);
    for (const double zoom : {3.0, 1.0, 2.0, 3.0}) {
        document.doubleTap(100, 200);
        EXPECT_EQ(document.scale(), zoom);
        const EngineRows rows(path, 480, static_cast<int>(zoom * 72));
        // Row numbers start at the text's first row again after that row was shown.
        for (int last = -1; document.scrollY() != last;) {
            last = document.scrollY();
            document.drag(-700);
        }
        EXPECT_EQ(document.scrollY(), 0);
        EXPECT_EQ(firstWrongRow(document, rows), -1) << "at zoom " << zoom;
    }
}

TEST_F(ScrollTest, APinchZoomsToTheFactorAskedFor) {
    const std::string path = longDocument(20);
    TestDocument document(*client, *queue, path, 320, 480);
    ASSERT_EQ(document.paint(), 0);
    document.pinch(1.5);
    EXPECT_DOUBLE_EQ(document.scale(), 1.5);
    document.pinch(10);
    EXPECT_DOUBLE_EQ(document.scale(), 4.0);
    document.pinch(0.1);
    EXPECT_DOUBLE_EQ(document.scale(), 1.0);
    for (int last = -1; document.scrollY() != last;) {
        last = document.scrollY();
        document.drag(-440);
    }
    EXPECT_EQ(firstWrongRow(document, EngineRows(path, 320, 72)), -1);
}

TEST_F(ScrollTest, AClosedDocumentOpensAgainWhereItWas) {
    const std::string path = longDocument(50);
    auto first = std::make_unique<TestDocument>(*client, *queue, path, 480, 800);
    ASSERT_EQ(first->paint(), 0);
    for (int i = 0; i < 12; ++i) {
        first->drag(700);
    }
    std::vector<uint32_t> shown(first->frame(), first->frame() + 480 * 799);
    TestDocument::Options options;
    options.dataStore = static_cast<unsigned int>(first->store());
    first->destroy(); // the state segment stays while the client has it attached
    TestDocument again(*client, *queue, path, 480, 800, options);
    ASSERT_EQ(again.openResult(), 0);
    ASSERT_EQ(again.paint(), 0);
    // The character at the stretch's top keeps the place, so the line is right,
    // but not the row.
    EXPECT_TRUE(isSameButForALine(shown, again));
}

} // namespace

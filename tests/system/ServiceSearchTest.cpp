// SPDX-License-Identifier: Apache-2.0
// Search through the service: what a client is told and sees.
#include "tests/system/support/Marks.h"
#include "tests/system/support/ServiceFixture.h"

#include <algorithm>
#include <cstdlib>
#include <set>

namespace {

class ServiceSearchTest : public ServiceTest {
protected:
    int search(TestDocument& document, const std::string& text) {
        const std::string reply = document.call("/common", "Search", ",\"search\":\"" + text + "\"");
        const size_t colon = reply.rfind(':');
        return colon == std::string::npos ? -1 : std::atoi(reply.c_str() + colon + 1);
    }
    static void next(TestDocument& document) { document.call("/common", "nextResult"); }
    static void previous(TestDocument& document) { document.call("/common", "previousResult"); }
    // The screen's rows with the current hit, as a text to compare: in the
    // generated documents the words around every hit differ. Empty when no
    // current hit is shown.
    static std::string currentHit(const TestDocument& document) {
        std::string rows;
        const int width = document.width();
        for (int y = 0; y < document.height() - 1; ++y) {
            const uint32_t* const row = document.frame() + y * width;
            if (std::count_if(row, row + width, isCurrentHit) > 3) {
                rows.append(reinterpret_cast<const char*>(row), static_cast<size_t>(width) * 4);
            }
        }
        return rows;
    }
    // Steps to the last hit and back; every step must show a new hit.
    void stepThroughAndBack(int pages, int hits, int width, int height) {
        TestDocument document(*client, *queue, longDocument(pages, "zebra", hits), width, height);
        ASSERT_EQ(document.openResult(), 0);
        ASSERT_EQ(search(document, "Zebra"), hits);
        std::vector<std::string> shown{currentHit(document)};
        ASSERT_FALSE(shown.back().empty());
        std::set<std::string> seen(shown.begin(), shown.end());
        for (int step = 1; step < hits; ++step) {
            next(document);
            shown.push_back(currentHit(document));
            ASSERT_FALSE(shown.back().empty()) << "step " << step;
            ASSERT_TRUE(seen.insert(shown.back()).second) << "step " << step << " shows a hit again";
        }
        next(document);
        ASSERT_EQ(currentHit(document), shown.back()) << "the last stays";
        // Back to the first or second hit: from another stretch earlier hits
        // are not reached.
        seen = {shown.back()};
        int steps = 0;
        for (; steps < hits; ++steps) {
            previous(document);
            const std::string hit = currentHit(document);
            ASSERT_FALSE(hit.empty()) << "step back " << steps;
            if (!seen.insert(hit).second) {
                break;
            }
        }
        EXPECT_GE(steps, hits - 2);
        EXPECT_LE(steps, hits - 1);
    }
};

TEST_F(ServiceSearchTest, TwoHitsAreSteppedThrough) {
    stepThroughAndBack(200, 2, 320, 480);
}
TEST_F(ServiceSearchTest, TwoHitsAreSteppedThroughOnALargeScreen) {
    stepThroughAndBack(200, 2, 480, 800);
}
TEST_F(ServiceSearchTest, ThreeHitsAreSteppedThrough) {
    stepThroughAndBack(200, 3, 320, 480);
}
TEST_F(ServiceSearchTest, ThreeHitsAreSteppedThroughOnALargeScreen) {
    stepThroughAndBack(200, 3, 480, 800);
}
TEST_F(ServiceSearchTest, TwentyHitsAreSteppedThrough) {
    stepThroughAndBack(200, 20, 320, 480);
}
TEST_F(ServiceSearchTest, TwentyHitsAreSteppedThroughOnALargeScreen) {
    stepThroughAndBack(200, 20, 480, 800);
}
TEST_F(ServiceSearchTest, LongWayThroughAThousandHits) {
    stepThroughAndBack(200, 1000, 320, 480);
}
TEST_F(ServiceSearchTest, LongWayThroughAThousandHitsOnALargeScreen) {
    stepThroughAndBack(200, 1000, 480, 800);
}

TEST_F(ServiceSearchTest, FindsAgainAfterScrollingZoomingAndWideMode) {
    TestDocument document(*client, *queue, longDocument(20, "zebra", 100), 480, 800);
    for (int i = 0; i < 5; ++i) {
        document.drag(700);
    }
    EXPECT_EQ(search(document, "zebra"), 100);
    EXPECT_FALSE(currentHit(document).empty());
    document.doubleTap(100, 100);
    EXPECT_EQ(search(document, "zebra"), 100);
    EXPECT_FALSE(currentHit(document).empty());
    next(document);
    EXPECT_FALSE(currentHit(document).empty());
    document.doubleTap(100, 100);
    document.call("/word", "wideMode", ",\"wideMode\":true");
    EXPECT_EQ(search(document, "zebra"), 100);
    EXPECT_FALSE(currentHit(document).empty());
    document.pinch(1.5);
    next(document);
    EXPECT_FALSE(currentHit(document).empty());
}

TEST_F(ServiceSearchTest, CloseSearchLeavesNoMark) {
    TestDocument document(*client, *queue, longDocument(3, "zebra", 30), 320, 480);
    ASSERT_EQ(document.paint(), 0);
    const std::vector<uint32_t> clean(document.frame(), document.frame() + 320 * 479);
    ASSERT_EQ(search(document, "zebra"), 30);
    EXPECT_FALSE(std::equal(clean.begin(), clean.end(), document.frame()));
    document.call("/common", "closeSearch");
    document.drag(-479);
    EXPECT_TRUE(std::equal(clean.begin(), clean.end(), document.frame()));
    next(document);
    previous(document);
    EXPECT_TRUE(currentHit(document).empty());
}

TEST_F(ServiceSearchTest, OddTextsAndStepsWithoutASearchMoveNothing) {
    TestDocument document(*client, *queue, longDocument(3, "zebra", 30), 320, 480);
    ASSERT_EQ(document.paint(), 0);
    const std::vector<uint32_t> clean(document.frame(), document.frame() + 320 * 479);
    next(document);
    previous(document);
    for (const std::string& text : {std::string(), std::string(100'000, 'x'), std::string("\\uD800"),
                                    std::string("zeb\\uDC00ra"), std::string("no such words")}) {
        EXPECT_EQ(search(document, text), 0) << text.substr(0, 20);
        next(document);
        previous(document);
        EXPECT_TRUE(std::equal(clean.begin(), clean.end(), document.frame())) << text.substr(0, 20);
    }
    TestDocument missing(*client, *queue, folder.path() + "/missing.docx", 320, 480);
    EXPECT_NE(missing.openResult(), 0);
    EXPECT_EQ(search(missing, "zebra"), 0);
    next(missing);
    missing.tap(10, 10);
    EXPECT_EQ(search(document, "zebra"), 30);
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
// Two clients, each with three documents of all kinds, at the same time.
#include "tests/system/support/ClientFixture.h"
#include <lectern/CommonCalls.h>
#include <lectern/Navigation.h>
#include <lectern/PptCalls.h>

#include <atomic>
#include <thread>

namespace {

using namespace lectern;

class TwoClientsTest : public ClientTest {
protected:
    // settle() gives up after two seconds, and six documents on a busy machine
    // may take longer. The drag is then visible only after a later paint.
    static bool isShownFrom(Document& document, int row) {
        return eventually([&] {
            EXPECT_FALSE(document.paint());
            return document.state().scrollY == row;
        });
    }
    // The work of one client: it uses all its documents and must be told only
    // about them.
    void useThreeDocuments(int slide, int rows) {
        const Bus own = connect();
        std::atomic<int> slideTold = -1;
        Event slideChanged;
        OpenOptions options;
        options.events.onSlideChanged = [](int) { ADD_FAILURE() << "another document's slide was told"; };
        const auto text = open(own, sample("tour.docx"), options);
        const auto sheet = open(own, sample("tour.xlsx"), options);
        options.events.onSlideChanged = [&](int shown) {
            slideTold = shown;
            slideChanged.happen();
        };
        const auto slides = open(own, sample("tour.pptx"), options);
        ASSERT_TRUE(text && sheet && slides);
        EXPECT_EQ(text->kind(), DocumentKind::WordProcessing);
        EXPECT_EQ(sheet->kind(), DocumentKind::Spreadsheet);
        EXPECT_EQ(slides->kind(), DocumentKind::Presentation);
        for (int round = 0; round < 5; ++round) {
            drag(*text, rows);
            EXPECT_TRUE(isShownFrom(*text, rows));
            drag(*text, -rows);
            EXPECT_TRUE(isShownFrom(*text, 0));
            drag(*sheet, 40);
        }
        const auto hits = text->ask(common::search("harbour"));
        ASSERT_TRUE(hits);
        EXPECT_GT(*hits, 0);
        ASSERT_FALSE(showSlide(*slides, slide));
        ASSERT_TRUE(slideChanged.wait());
        EXPECT_EQ(slideTold, slide);
        for (const auto* document : {&text, &sheet, &slides}) {
            ASSERT_FALSE((*document)->paint());
            EXPECT_TRUE(hasInk(**document));
        }
    }
};

TEST_F(TwoClientsTest, WorkOnThreeDocumentsEachAndDisturbNobody) {
    std::thread other([this] { useThreeDocuments(1, 100); });
    useThreeDocuments(2, 200);
    other.join();
    const TestDocument next(*client, *queue, sample("tour.txt"), 320, 480);
    EXPECT_EQ(next.docid(), 0) << "all six were destroyed";
}

} // namespace

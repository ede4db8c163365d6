// SPDX-License-Identifier: Apache-2.0
// Scrolling through whole documents: generated ones and a collection.
#include "modules/ModuleResults.h"
#include "tests/system/office/Documents.h"
#include "tests/system/office/OfficeFixture.h"

#include <algorithm>
#include <set>

namespace lectern::engine::test {

namespace {

struct Geometry {
    int32_t width, height, dpi;
};

// A stretch after a move must equal the same stretch painted at once, and its
// characters must follow the text.
void checkStretch(View& view, int32_t top) {
    const std::vector<uint32_t> moved = view.pixels();
    ASSERT_EQ(moved, view.repainted()) << "at row " << top;
    const uint32_t first = view.topLeft();
    const uint32_t last = view.bottomRight();
    EXPECT_LE(first, last) << "at row " << top;
    EXPECT_EQ(first == 0, top == 0 || view.count() == 0) << "at row " << top;
    EXPECT_EQ(last == view.count(), top + view.height() >= view.rows() || view.count() == 0)
        << "at row " << top;
}

void scrollThrough(View& view) {
    const int32_t rows = view.rows();
    int32_t top = 0;
    for (const int32_t step : {37, 211, 500, 1201, 77}) {
        if (top + view.height() >= rows) {
            break;
        }
        ASSERT_EQ(view.scrollDown(step), step);
        top += step;
        checkStretch(view, top);
    }
    while (top > 0) {
        const int32_t step = std::min(top, 333);
        ASSERT_EQ(view.scrollUp(333), step);
        top -= step;
        checkStretch(view, top);
    }
}

// Scrolls in several sizes and resolutions.
void scrollThrough(std::unique_ptr<WordDocument> document) {
    View shown(std::move(document), 480, 800, 72);
    for (const Geometry& to : {Geometry{480, 800, 72}, {320, 700, 97}, {480, 800, 144}}) {
        shown.resize(to.width, to.height, to.dpi);
        scrollThrough(shown);
    }
}

class Scrolling : public OfficeTest {};
class Corpus : public OfficeTest {};

} // namespace

TEST_F(Scrolling, ShowsTheRowsOfMadeDocumentsAsIfPaintedAtOnce) {
    for (const auto& path : madeDocuments()) {
        SCOPED_TRACE(path);
        std::unique_ptr<WordDocument> document;
        ASSERT_EQ(WordDocument::open(office(), path, "", testFolder(), document), MODULE_OK);
        scrollThrough(std::move(document));
    }
}

TEST_F(Corpus, ScrolledRowsEqualRowsPaintedAtOnce) {
    for (const auto& path : collectedDocuments()) {
        SCOPED_TRACE(path);
        std::unique_ptr<WordDocument> document;
        if (WordDocument::open(office(), path, "", testFolder(), document) == MODULE_OK) {
            scrollThrough(std::move(document));
        }
    }
}

} // namespace lectern::engine::test

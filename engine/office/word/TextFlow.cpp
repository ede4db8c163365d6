// SPDX-License-Identifier: Apache-2.0
#include "engine/office/word/TextFlow.h"

#include "engine/layout/Twips.h"
#include "engine/layout/ViewBoxes.h"
#include "engine/office/word/PageStyles.h"

#include <com/sun/star/text/XPageCursor.hpp>
#include <com/sun/star/text/XTextViewCursorSupplier.hpp>
#include <com/sun/star/view/XViewCursor.hpp>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <utility>

namespace lectern::engine {

using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

namespace {

// 1/100 mm. One kilometre holds about two thousand pages of text on a narrow
// screen; pages much higher are slow to paint.
constexpr int32_t GIANT_PAGE = 100'000'000;
constexpr int32_t PAGE_SLACK = 5'000;

// In twips.
constexpr int64_t LEAST_LINE = 240;
constexpr int64_t LOWER_BORDER = 30; // of a table at the end of the text

// The first layout of a page takes time quadratic in the number of its
// paragraphs. A long plain text is therefore laid out on several pages.
constexpr size_t MANY_PARAGRAPHS = 8'000;
constexpr int32_t PLAIN_PAGE = 300'000;

// Changes made during this object's lifetime are laid out together when it is destroyed.
class LayoutPause {
public:
    explicit LayoutPause(const Reference<css::text::XTextDocument>& model) : mModel(model) {
        if (!mModel->hasControllersLocked()) {
            mModel->lockControllers();
        }
    }
    ~LayoutPause() {
        try {
            mModel->unlockControllers();
        } catch (const css::uno::Exception&) {
            std::fprintf(stderr, "office: the layout failed\n");
        }
    }
    LayoutPause(const LayoutPause&) = delete;
    LayoutPause& operator=(const LayoutPause&) = delete;

private:
    const Reference<css::text::XTextDocument>& mModel;
};

struct FreeDeleter {
    void operator()(char* text) const { std::free(text); }
};

// The corner of each page; what its text takes is measured later.
std::vector<FlowPage> pageCorners(lok::Document& painter) {
    const std::unique_ptr<char, FreeDeleter> text(painter.getPartPageRectangles());
    std::vector<FlowPage> pages;
    for (const ViewBox& page : readViewBoxes(text ? text.get() : "")) {
        pages.push_back({page.left, page.top, 0});
    }
    return pages;
}

// Least and largest page width, in twips, that the suite lays out as set.
constexpr int64_t LEAST_WIDTH = 600;
constexpr int64_t MOST_WIDTH = 400'000;

} // namespace

int32_t layoutWidth(int32_t pixels, int32_t dpi) {
    const int64_t width = (pixels * TWIPS_PER_INCH + dpi - 1) / dpi;
    return static_cast<int32_t>(std::clamp(width, LEAST_WIDTH, MOST_WIDTH));
}

TextFlow::TextFlow(const OpenedDocument& document, PreparedDocument& prepared)
    : mDocument(document), mPrepared(prepared), mShown(document.model, prepared.body, prepared.end) {
    const Reference<css::text::XTextViewCursorSupplier> supplier(document.model->getCurrentController(),
                                                                 UNO_QUERY_THROW);
    mCursor = supplier->getViewCursor();
}

void TextFlow::layOut(int32_t width, uint32_t end) {
    if (width == mWidth) {
        layOutTo(end);
        return;
    }
    const auto pageWidth = static_cast<int32_t>(hundredthMmFromTwips(width));
    if (isLongPlainText()) {
        layOutOn(pageWidth, PLAIN_PAGE, end);
    } else {
        layOutOn(pageWidth, GIANT_PAGE, end);
        finishPage(pageWidth);
    }
    mWidth = width;
    mPages.clear();
    measure();
}

void TextFlow::layOutTo(uint32_t end) {
    if (isWhole() || end <= mShown.end()) {
        return;
    }
    layOutOn(mPageSize.Width, mPageSize.Height, end);
    if (!isLongPlainText()) {
        finishPage(mPageSize.Width);
    }
    measure();
}

void TextFlow::withWholeText(const std::function<void()>& work) {
    if (isWhole()) {
        work();
        return;
    }
    const LayoutPause pause(mDocument.model);
    const uint32_t end = mShown.end();
    mShown.showTo(WHOLE);
    work();
    mShown.showTo(end);
}

// What a layout on one page leaves to do.
void TextFlow::finishPage(int32_t pageWidth) {
    // Text that was on several pages may stay there; a change of the height joins it.
    if (isWhole() && endPlace().page > 0) {
        layOutOn(pageWidth, GIANT_PAGE + 1000, WHOLE);
    }
    if (undoEnlargement(mPrepared.shapes)) {
        layOutOn(pageWidth, GIANT_PAGE, end());
    }
    if (!isWhole()) {
        return;
    }
    // Painting a tile is slower on a higher page, so the page is cut to the text.
    if (const FlowPlace last = endPlace(); last.page == 0) {
        layOutOn(pageWidth, static_cast<int32_t>(hundredthMmFromTwips(last.y)) + PAGE_SLACK, WHOLE);
    }
    if (endPlace().page > 0) {
        layOutOn(pageWidth, GIANT_PAGE, WHOLE);
    }
}

void TextFlow::layOutOn(int32_t pageWidth, int32_t pageHeight, uint32_t end) {
    const LayoutPause pause(mDocument.model);
    if (pageWidth != mPageSize.Width) {
        fitShapes(mPrepared.shapes, pageWidth - 2 * PAGE_MARGIN);
        fitIndents(mPrepared.indents, pageWidth - 2 * PAGE_MARGIN);
    }
    mShown.showTo(end);
    if (pageWidth != mPageSize.Width || pageHeight != mPageSize.Height) {
        setPageSize(mDocument.model, pageWidth, pageHeight);
        mPageSize = {pageWidth, pageHeight};
    }
}

bool TextFlow::isLongPlainText() const {
    return mPrepared.body.paragraphs().size() > MANY_PARAGRAPHS && !mPrepared.body.hasTables();
}

FlowPlace TextFlow::placeOf(const Reference<css::text::XTextRange>& range) const {
    mCursor->gotoRange(range, false);
    return cursorPlace();
}

// Where the text ends, as far as it is laid out.
FlowPlace TextFlow::endPlace() const {
    return placeOf(mPrepared.end);
}

FlowPlace TextFlow::cursorPlace() const {
    const Reference<css::text::XPageCursor> page(mCursor, UNO_QUERY_THROW);
    const auto index = static_cast<size_t>(std::max<sal_Int16>(page->getPage(), 1)) - 1;
    // On every page the cursor's position is relative to the first page's corner.
    const int64_t y = twipsFromHundredthMm(mCursor->getPosition().Y);
    const int64_t above = index < mPages.size() ? mPages[index].top - mPages.front().top : 0;
    return {index, y - above};
}

// Pages above the settled place are measured once.
void TextFlow::measure() {
    const size_t known = mPages.empty() ? 0 : mSettled.page;
    std::vector<FlowPage> pages = pageCorners(*mDocument.painter);
    pages.resize(std::max({std::min(endPlace().page + 1, pages.size()), known, size_t{1}}));
    std::copy_n(mPages.begin(), known, pages.begin());
    mPages = std::move(pages);
    const Reference<css::text::XPageCursor> page(mCursor, UNO_QUERY_THROW);
    for (size_t i = std::max(known, size_t{1}); i < mPages.size(); ++i) {
        page->jumpToPage(static_cast<sal_Int16>(i + 1));
        page->jumpToStartOfPage();
        mPages[i].top += cursorPlace().y;
    }
    // A page's text ends below its last line, whose height is taken from its
    // distance to the line above.
    const Reference<css::view::XViewCursor> above(mCursor, UNO_QUERY_THROW);
    for (size_t i = known; i + 1 < mPages.size(); ++i) {
        page->jumpToPage(static_cast<sal_Int16>(i + 1));
        page->jumpToEndOfPage();
        const int64_t lastLine = cursorPlace().y;
        above->goUp(1, false);
        mPages[i].height = lastLine + std::max(lastLine - cursorPlace().y, LEAST_LINE);
    }
    mPages.back().height = endPlace().y + LOWER_BORDER;
    if (!isWhole()) {
        mSettled = placeOf(mShown.last().range->getStart());
    }
}

} // namespace lectern::engine

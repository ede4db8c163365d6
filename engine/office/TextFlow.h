// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/Opening.h"
#include "engine/office/Preparation.h"

#include <com/sun/star/text/XTextViewCursor.hpp>

#include <vector>

namespace lectern::engine {

// Where the suite has laid out a piece of the text, in twips of its view: the
// page's left edge, the top of the text on it and the text's height. Pages but
// the first may be blank above their text, and all may be below it.
struct FlowPage {
    int64_t left;
    int64_t top;
    int64_t height;
};

// A place in the laid-out text: twips below the top of the text on a page.
struct FlowPlace {
    size_t page;
    int64_t y;
};

// The width, in twips, to lay out to for so many pixels at a resolution.
int32_t layoutWidth(int32_t pixels, int32_t dpi);

// The layout of a prepared document as one continuous text: one giant page, or
// a few for a text too long for one.
class TextFlow {
public:
    // Both outlive this.
    TextFlow(const OpenedDocument& document, const PreparedDocument& prepared);

    // Lays out to a width in twips; nothing is done when it is that already.
    void layOut(int32_t width);

    // At least one after the first layout.
    const std::vector<FlowPage>& pages() const { return mPages; }

    // The cursor that knows where text lies. Its place is valid after layOut.
    const css::uno::Reference<css::text::XTextViewCursor>& cursor() const { return mCursor; }
    FlowPlace cursorPlace() const;

private:
    void layOutOn(int32_t pageWidth, int32_t pageHeight);
    void layOutOnOnePage(int32_t pageWidth);
    bool isLongPlainText() const;
    FlowPlace end() const;
    void measure();

    const OpenedDocument& mDocument;
    const PreparedDocument& mPrepared;
    css::uno::Reference<css::text::XTextViewCursor> mCursor;
    std::vector<FlowPage> mPages;
    int32_t mWidth = 0;      // of the last layout in twips, 0 before the first
    int32_t mPageHeight = 0; // 1/100 mm
};

} // namespace lectern::engine

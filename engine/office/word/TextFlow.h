// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/FlowPages.h"
#include "engine/office/DocumentLoading.h"
#include "engine/office/word/Preparation.h"

#include <com/sun/star/text/XTextViewCursor.hpp>

#include <vector>

namespace lectern::engine {

// The width, in twips, to lay out to for so many pixels at a resolution.
int32_t layoutWidth(int32_t pixels, int32_t dpi);

// The layout of a prepared document as one continuous text: one giant page, or
// a few for a text too long for one.
class TextFlow {
public:
    // Both outlive this. What has to fit a width is fitted by each layout.
    TextFlow(const OpenedDocument& document, PreparedDocument& prepared);

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
    PreparedDocument& mPrepared;
    css::uno::Reference<css::text::XTextViewCursor> mCursor;
    std::vector<FlowPage> mPages;
    int32_t mWidth = 0;       // of the last layout in twips, 0 before the first
    int32_t mFittedWidth = 0; // shapes and indents are for, 1/100 mm
};

} // namespace lectern::engine

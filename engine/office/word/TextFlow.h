// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/FlowPages.h"
#include "engine/office/DocumentLoading.h"
#include "engine/office/word/Preparation.h"

#include <com/sun/star/text/XTextViewCursor.hpp>

#include <vector>

namespace lectern::engine {

// The width in twips of a layout for `pixels` at `dpi`.
int32_t layoutWidth(int32_t pixels, int32_t dpi);

// The layout of a prepared document as one continuous text: on one giant page,
// or on a few when the text is too long for one.
class TextFlow {
public:
    // Both must outlive this. Every layout fits the prepared shapes and indents
    // to its width.
    TextFlow(const OpenedDocument& document, PreparedDocument& prepared);

    // Lays out to a width in twips; does nothing when the layout has that width.
    void layOut(int32_t width);

    // Contains at least one page after the first layout.
    const std::vector<FlowPage>& pages() const { return mPages; }

    // The view's cursor, which finds the positions of text. Its position is
    // valid after layOut.
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
    int32_t mFittedWidth = 0; // width that shapes and indents were fitted to, 1/100 mm
};

} // namespace lectern::engine

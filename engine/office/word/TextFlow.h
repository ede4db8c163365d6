// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/FlowPages.h"
#include "engine/office/DocumentLoading.h"
#include "engine/office/word/Preparation.h"
#include "engine/office/word/ShownPart.h"

#include <com/sun/star/text/XTextViewCursor.hpp>

#include <functional>
#include <limits>
#include <vector>

namespace lectern::engine {

// The width in twips of a layout for `pixels` at `dpi`.
int32_t layoutWidth(int32_t pixels, int32_t dpi);

// The layout of a prepared document as one continuous text: on one giant page,
// or on a few when the text is too long for one. A long text may be laid out from
// its start in portions; rows above settled() stay as they are.
class TextFlow {
public:
    static constexpr uint32_t WHOLE = std::numeric_limits<uint32_t>::max();

    // Both must outlive this. Every layout fits the prepared shapes and indents
    // to its width.
    TextFlow(const OpenedDocument& document, PreparedDocument& prepared);

    // Lays out to a width in twips, at least what is before the character `end`.
    // Does nothing when the layout has that width, and that much of the text.
    void layOut(int32_t width, uint32_t end = WHOLE);
    // Lays out more of the text, in the same width: at least what is before `end`,
    // or a portion that takes about as long as `characters` of long paragraphs.
    void layOutTo(uint32_t end);
    void layOutPortion(uint32_t characters) { layOutTo(mShown.endOfPortion(characters)); }

    // Runs work that needs the whole text, but no layout of it.
    void withWholeText(const std::function<void()>& work);

    bool isWhole() const { return mShown.isWhole(); }
    // The first character that is not laid out; the text's length when all is.
    uint32_t end() const { return mShown.end(); }
    // The place above which nothing changes when more is laid out. REQUIRES: !isWhole().
    const FlowPlace& settled() const { return mSettled; }

    // Contains at least one page after the first layout.
    const std::vector<FlowPage>& pages() const { return mPages; }

    // The view's cursor, which finds the positions of text. Its position is
    // valid after layOut.
    const css::uno::Reference<css::text::XTextViewCursor>& cursor() const { return mCursor; }
    FlowPlace cursorPlace() const;

private:
    void layOutOn(int32_t pageWidth, int32_t pageHeight, uint32_t end);
    void finishPage(int32_t pageWidth);
    bool isLongPlainText() const;
    FlowPlace endPlace() const;
    FlowPlace placeOf(const css::uno::Reference<css::text::XTextRange>& range) const;
    void measure();

    const OpenedDocument& mDocument;
    PreparedDocument& mPrepared;
    ShownPart mShown;
    css::uno::Reference<css::text::XTextViewCursor> mCursor;
    std::vector<FlowPage> mPages;
    FlowPlace mSettled{};
    int32_t mWidth = 0;       // of the last layout in twips, 0 before the first
    css::awt::Size mPageSize; // 1/100 mm; shapes and indents are fitted to the width
};

} // namespace lectern::engine

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/word/Body.h"

#include <com/sun/star/lang/XComponent.hpp>

#include <cstdint>
#include <vector>

namespace lectern::engine {

// The part of a text that the suite lays out: from its start up to a paragraph
// of the body. What follows lies in a hidden section, which a layout leaves out;
// only the empty paragraph at the end stays behind the part.
class ShownPart {
public:
    // `body` must outlive this; `end` is the empty paragraph behind the text.
    ShownPart(const css::uno::Reference<css::text::XTextDocument>& model, const Body& body,
              const css::uno::Reference<css::text::XTextRange>& end);

    // Shows at least the characters before `end`, and hides the rest if it can be
    // hidden: a section cannot begin in a table or in another section. Call with
    // the controllers locked.
    void showTo(uint32_t end);

    bool isWhole() const { return !mHidden.is(); }
    // The first character that is hidden; the text's length when none is.
    uint32_t end() const { return isWhole() ? mBody.length() : first().start; }
    // Where a further portion of the text ends, which takes about as long to lay
    // out as `characters` of long paragraphs. REQUIRES: !isWhole().
    uint32_t endOfPortion(uint32_t characters) const;
    // The last paragraph of the body that is shown: what lies above it does not
    // change when more is shown. REQUIRES: !isWhole().
    const BodyParagraph& last() const { return paragraph(mFirstHidden - 1); }

private:
    const std::vector<size_t>& own() const { return mBody.texts().front().paragraphs; }
    const BodyParagraph& paragraph(size_t index) const { return mBody.paragraphs()[own()[index]]; }
    const BodyParagraph& first() const { return paragraph(mFirstHidden); }
    size_t cutBehind(uint32_t end) const;
    css::uno::Reference<css::lang::XComponent> hideFrom(size_t index) const;

    css::uno::Reference<css::text::XTextDocument> mModel;
    const Body& mBody;
    css::uno::Reference<css::text::XTextRange>
        mLast; // the end of the last paragraph; null when it cannot be hidden
    bool mHasSections = false;
    css::uno::Reference<css::lang::XComponent> mHidden; // the section; null when all is shown
    size_t mFirstHidden = 0;                            // index of its first paragraph in own()
};

} // namespace lectern::engine

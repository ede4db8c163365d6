// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/TextTypes.h"
#include "engine/office/word/FloatingShapes.h"

#include <com/sun/star/text/XText.hpp>
#include <com/sun/star/text/XTextCursor.hpp>
#include <com/sun/star/text/XTextDocument.hpp>

#include <functional>
#include <map>
#include <string>
#include <tuple>
#include <vector>

namespace lectern::engine {

// A paragraph: characters [start, start + length) of the whole text.
struct BodyParagraph {
    css::uno::Reference<css::text::XTextRange> range;
    std::u16string string; // moved into the whole text in the end
    uint32_t start = 0;
    uint32_t length = 0;
    size_t text = 0; // it stands in, an index
    // Paragraphs of one row of an outermost table, or of a paragraph and the
    // frames in it, lie side by side and share a unit; others have their own.
    size_t unit = 0;
};

// A text of its own: the body itself, without names, a cell, or a text frame.
struct BodyText {
    // The names of a cell's table and of the cell, or of a frame.
    using Key = std::tuple<OUString, OUString, OUString>;

    Key key;
    css::uno::Reference<css::text::XText> text;
    std::vector<size_t> paragraphs; // in this text, not in others inside of it
};

// All text that flows: the body with its tables, and behind each paragraph the
// frames anchored in it. Notes are not part of it.
class Body {
public:
    // Walks the body in the order of the document. Reading a paragraph is what
    // costs, so whatever else each paragraph or table outside of tables needs
    // done to it is done on the way, by onBlock.
    Body(const css::uno::Reference<css::text::XTextDocument>& model, const std::vector<FloatingShape>& shapes,
         const std::function<void(const css::uno::Reference<css::beans::XPropertySet>&)>& onBlock);

    const std::vector<BodyParagraph>& paragraphs() const { return mParagraphs; }
    const std::vector<BodyText>& texts() const { return mTexts; }
    // Every character, paragraphSeparator between two paragraphs.
    const std::u16string& string() const { return mString; }
    uint32_t length() const { return static_cast<uint32_t>(mString.size()); }
    bool hasTables() const { return mHasTables; }

    // The paragraph with this character, or the separator behind it.
    const BodyParagraph& paragraphAt(uint32_t position) const;
    // The characters of all paragraphs that lie beside this one.
    CharacterRange unitOf(const BodyParagraph& paragraph) const;
    bool isAlone(const BodyParagraph& paragraph) const;

    // The paragraph that a cursor, whose properties these are, stands in at the
    // start of the range. Null outside of the body.
    const BodyParagraph* paragraphAt(const css::uno::Reference<css::beans::XPropertySet>& cursor,
                                     const css::uno::Reference<css::text::XTextRange>& range) const;

    // Where the body's own last paragraph is to be found from now on.
    void moveLastParagraph(const css::uno::Reference<css::text::XTextRange>& range);

private:
    class Walk;
    // Paragraphs [first, last) of a frame, in the order they were read.
    struct FrameBlock {
        size_t first;
        size_t last;
        css::uno::Reference<css::text::XTextRange> anchor;
    };
    void placeFrames(const std::vector<FrameBlock>& frames);
    void joinText();

    std::vector<BodyParagraph> mParagraphs;
    std::vector<BodyText> mTexts;
    std::map<BodyText::Key, size_t> mTextOf;
    std::u16string mString;
    bool mHasTables = false;
};

} // namespace lectern::engine

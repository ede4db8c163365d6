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
    enum class Kind {
        Plain,    // each character is a UTF-16 unit of the range
        Mixed,    // has characters of other kinds too; shownParagraph tells where each is
        Attached, // text of a drawing, or small letters above others: the range stands for it all
    };

    css::uno::Reference<css::text::XTextRange> range;
    std::u16string string; // moved into the whole text when all are read
    Kind kind = Kind::Plain;
    uint32_t start = 0;
    uint32_t length = 0;
    size_t text = 0; // index of the BodyText that contains it
    // Paragraphs that lie side by side share a unit: those of one row of an
    // outermost table, and a paragraph with the frames anchored in it. Every
    // other paragraph has a unit of its own.
    size_t unit = 0;
    bool isInFrame = false; // or of a drawing: its rows may be far from those of the text around it
};

// One text of the document: the body (with an empty key), a cell or a text frame.
struct BodyText {
    // Names of a cell's table and of the cell, and the name of a frame; unused
    // ones are empty.
    using Key = std::tuple<OUString, OUString, OUString>;

    Key key;
    css::uno::Reference<css::text::XText> text;
    // In this text, without attached ones and those of texts inside of it.
    std::vector<size_t> paragraphs;
};

// All text that flows: the body with its tables, and after each paragraph the
// frames and the texts of drawings anchored in it. Notes are not included.
class Body {
public:
    // Reads the body in document order. Calls onBlock for every paragraph and
    // table that is not inside a table or frame, because accessing each of them
    // a second time would be expensive.
    Body(const css::uno::Reference<css::text::XTextDocument>& model, const std::vector<FloatingShape>& shapes,
         const std::function<void(const css::uno::Reference<css::beans::XPropertySet>&)>& onBlock);

    const std::vector<BodyParagraph>& paragraphs() const { return mParagraphs; }
    const std::vector<BodyText>& texts() const { return mTexts; }
    // The characters of all paragraphs, with PARAGRAPH_SEPARATOR between two paragraphs.
    const std::u16string& string() const { return mString; }
    uint32_t length() const { return static_cast<uint32_t>(mString.size()); }
    bool hasTables() const { return mHasTables; }

    // The paragraph that contains this character or ends before this separator.
    const BodyParagraph& paragraphAt(uint32_t position) const;
    // The characters of all paragraphs that lie beside this one.
    CharacterRange unitOf(const BodyParagraph& paragraph) const;
    bool isAlone(const BodyParagraph& paragraph) const;

    // The paragraph that contains the start of `range`. `cursor` has the
    // properties of a cursor there. Null outside of the body, and where the suite
    // cannot tell.
    const BodyParagraph* paragraphAt(const css::uno::Reference<css::beans::XPropertySet>& cursor,
                                     const css::uno::Reference<css::text::XTextRange>& range) const;

    // Sets the range of the body's last paragraph; use after a paragraph was appended.
    void moveLastParagraph(const css::uno::Reference<css::text::XTextRange>& range);

private:
    class Walk;
    // Paragraphs [first, last) of a frame or drawing, in the order in which they were read.
    struct FrameBlock {
        size_t first;
        size_t last;
        css::uno::Reference<css::text::XTextRange> anchor;
    };
    const BodyParagraph* hostOf(const FrameBlock& frame) const;
    const BodyParagraph* lastComparable(const BodyText& text,
                                        const std::function<bool(size_t)>& startsUpTo) const;
    void placeFrames(const std::vector<FrameBlock>& frames);
    void listParagraphs();
    void joinText();

    std::vector<BodyParagraph> mParagraphs;
    std::vector<BodyText> mTexts;
    std::map<BodyText::Key, size_t> mTextOf;
    std::u16string mString;
    bool mHasTables = false;
};

} // namespace lectern::engine

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/Uno.h"

#include <com/sun/star/text/XTextRange.hpp>

#include <string>
#include <vector>

namespace lectern::engine {

// A part of a paragraph with the text that it shows.
struct ShownPiece {
    enum class Kind {
        Letters, // one UTF-16 unit is shown for each unit of the document
        Control, // letters after one character of the document that shows nothing
        Unit,    // a field or a note's mark, which can only be selected whole
    };

    Kind kind;
    css::uno::Reference<css::text::XTextRange> range;
    std::u16string string;
    std::u16string reading; // small letters above the piece, which tell how to read it
};

struct ShownParagraph {
    std::vector<ShownPiece> pieces;
    // Whether the paragraph has nothing but letters, all of which are shown.
    bool isPlain = true;
};

// Reads what a paragraph shows, in order; hidden letters are left out.
ShownParagraph shownParagraph(const css::uno::Reference<css::text::XTextRange>& paragraph);

} // namespace lectern::engine

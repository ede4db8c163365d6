// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/TextTypes.h"

#include <functional>
#include <string_view>

namespace lectern::engine {

// A text prepared for searching without regard to case, by Unicode case
// folding: "ss" finds "ß". A hit does not cross a paragraph's end, does not
// begin or end inside a character, and does not overlap another hit.
class SearchText {
public:
    explicit SearchText(std::u16string_view text);

    // The hits inside the bounds, in order. An empty text and one that is not
    // valid UTF-16 have no hits. Where the text is found but `counts` is false, the
    // search goes on at the next character.
    std::vector<CharacterRange> find(
        std::u16string_view wanted, CharacterRange bounds,
        const std::function<bool(CharacterRange)>& counts = [](CharacterRange) { return true; }) const;

private:
    struct Paragraph {
        uint32_t start;
        uint32_t length;
        std::u16string folded;
        // For each folded unit the index of the unit that it comes from; empty
        // when the two are equal for all.
        std::vector<uint32_t> origins;

        bool isBoundary(size_t unit) const;
        uint32_t origin(size_t unit) const;
    };
    static Paragraph fold(std::u16string_view text, uint32_t start);

    std::vector<Paragraph> mParagraphs;
};

} // namespace lectern::engine

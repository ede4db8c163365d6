// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/TextTypes.h"

#include <string_view>

namespace lectern::engine {

// A text made ready for searching without regard to case, as Unicode folds it:
// ß is found by ss. No hit reaches from one paragraph into the next, begins or
// ends inside a character, or overlaps another.
class SearchText {
public:
    explicit SearchText(std::u16string_view text);

    // The hits inside the bounds, in order. Nothing is found by the empty text,
    // nor by one that is no UTF-16.
    std::vector<CharacterRange> find(std::u16string_view wanted, CharacterRange bounds) const;

private:
    struct Paragraph {
        uint32_t start;
        uint32_t length;
        std::u16string folded;
        // For each folded unit the unit it comes from; empty when those are the same.
        std::vector<uint32_t> origins;

        bool isBoundary(size_t unit) const;
        uint32_t origin(size_t unit) const;
    };
    static Paragraph fold(std::u16string_view text, uint32_t start);

    std::vector<Paragraph> mParagraphs;
};

} // namespace lectern::engine

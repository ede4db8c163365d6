// SPDX-License-Identifier: Apache-2.0
#include "engine/layout/WholeWords.h"

#include "engine/layout/SearchText.h"

#include <unicode/uchar.h>
#include <unicode/utf16.h>

#include <algorithm>

namespace lectern::engine {

namespace {

// Letters, digits, and the marks that belong to them.
bool isOfWord(UChar32 character) {
    return u_isalnum(character) || (U_GET_GC_MASK(character) & (U_GC_M_MASK | U_GC_PC_MASK)) != 0;
}

bool isInsideWord(std::u16string_view text, size_t place) {
    if (place == 0 || place >= text.size()) {
        return false;
    }
    UChar32 before = 0;
    UChar32 behind = 0;
    size_t start = place;
    U16_PREV(text.data(), 0, start, before);
    U16_GET(text.data(), 0, place, text.size(), behind);
    return isOfWord(before) && isOfWord(behind);
}

} // namespace

bool hasWholeWords(std::u16string_view text, std::u16string_view wanted, bool matchCase) {
    const SearchText searched(text);
    const auto isWhole = [&](const CharacterRange& hit) {
        const bool sameCase = !matchCase || text.substr(hit.start, hit.end - hit.start) == wanted;
        return sameCase && !isInsideWord(text, hit.start) && !isInsideWord(text, hit.end);
    };
    // From each character, because a hit that is no whole word may overlap one that is.
    for (uint32_t start = 0; start < text.size();) {
        const auto hits = searched.find(wanted, {start, static_cast<uint32_t>(text.size())});
        if (hits.empty()) {
            return false;
        }
        if (std::any_of(hits.begin(), hits.end(), isWhole)) {
            return true;
        }
        start = hits.front().start + 1;
    }
    return false;
}

} // namespace lectern::engine

// SPDX-License-Identifier: Apache-2.0
#include "engine/layout/HitOptions.h"

#include <unicode/uchar.h>
#include <unicode/utf16.h>

namespace lectern::engine {

namespace {

// Letters, digits, and the marks that belong to a letter.
bool isOfWord(UChar32 character) {
    return u_isalnum(character) || u_hasBinaryProperty(character, UCHAR_ALPHABETIC) ||
           (U_GET_GC_MASK(character) & (U_GC_M_MASK | U_GC_PC_MASK)) != 0;
}

// Whether the characters before and behind a boundary belong to one word.
bool isInWord(std::u16string_view text, size_t boundary) {
    if (boundary == 0 || boundary >= text.size()) {
        return false;
    }
    UChar32 before = 0;
    UChar32 behind = 0;
    size_t start = boundary;
    U16_PREV(text.data(), 0, start, before);
    U16_GET(text.data(), 0, boundary, text.size(), behind);
    return isOfWord(before) && isOfWord(behind);
}

} // namespace

bool isWantedHit(std::u16string_view text, std::u16string_view wanted, CharacterRange hit, int32_t flags) {
    if ((flags & MATCH_CASE) != 0 && text.substr(hit.start, hit.end - hit.start) != wanted) {
        return false;
    }
    return (flags & WHOLE_WORDS) == 0 || (!isInWord(text, hit.start) && !isInWord(text, hit.end));
}

} // namespace lectern::engine

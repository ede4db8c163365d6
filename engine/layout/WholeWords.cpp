// SPDX-License-Identifier: Apache-2.0
#include "engine/layout/WholeWords.h"

#include "engine/layout/HitOptions.h"
#include "engine/layout/SearchText.h"

#include <algorithm>

namespace lectern::engine {

bool hasWholeWords(std::u16string_view text, std::u16string_view wanted, bool matchCase) {
    const SearchText searched(text);
    const int32_t flags = matchCase ? WHOLE_WORDS | MATCH_CASE : WHOLE_WORDS;
    const auto isWhole = [&](const CharacterRange& hit) { return isWantedHit(text, wanted, hit, flags); };
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

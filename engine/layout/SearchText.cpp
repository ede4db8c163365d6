// SPDX-License-Identifier: Apache-2.0
#include "engine/layout/SearchText.h"

#include <unicode/uchar.h>
#include <unicode/ustring.h>
#include <unicode/utf16.h>

#include <algorithm>
#include <limits>

namespace lectern::engine {

namespace {

std::u16string foldCase(std::u16string_view text) {
    std::u16string folded(text.size() + text.size() / 8 + 8, u'\0');
    const auto length = static_cast<int32_t>(text.size());
    for (;;) {
        UErrorCode status = U_ZERO_ERROR;
        const int32_t needed = u_strFoldCase(folded.data(), static_cast<int32_t>(folded.size()), text.data(),
                                             length, U_FOLD_CASE_DEFAULT, &status);
        const bool tooShort = static_cast<size_t>(needed) > folded.size();
        folded.resize(static_cast<size_t>(std::max(needed, 0)));
        if (!tooShort) {
            return folded;
        }
    }
}

bool isWellFormed(std::u16string_view text) {
    for (size_t i = 0; i < text.size();) {
        UChar32 character = 0;
        U16_NEXT(text.data(), i, text.size(), character);
        if (U_IS_SURROGATE(character)) {
            return false;
        }
    }
    return true;
}

// Finds a pattern in texts, in time linear in their lengths: for each prefix of
// the pattern it knows the longest shorter prefix that also ends there, and
// continues with that after a mismatch (Knuth-Morris-Pratt).
class Matcher {
public:
    explicit Matcher(std::u16string_view pattern) : mPattern(pattern), mShorter(pattern.size() + 1, 0) {
        for (size_t i = 1, matched = 0; i < pattern.size(); ++i) {
            matched = advance(matched, pattern[i]);
            mShorter[i + 1] = matched;
        }
    }

    // Calls use(end) for every match; it returns whether the match counts.
    // Later matches do not overlap one that counts.
    template<class Use>
    void scan(std::u16string_view text, Use use) const {
        size_t matched = 0;
        for (size_t i = 0; i < text.size(); ++i) {
            matched = advance(matched, text[i]);
            if (matched == mPattern.size()) {
                matched = use(i + 1) ? 0 : mShorter[matched];
            }
        }
    }

private:
    size_t advance(size_t matched, char16_t unit) const {
        while (matched > 0 && mPattern[matched] != unit) {
            matched = mShorter[matched];
        }
        return mPattern[matched] == unit ? matched + 1 : 0;
    }

    std::u16string_view mPattern;
    std::vector<size_t> mShorter;
};

} // namespace

SearchText::SearchText(std::u16string_view text) {
    for (size_t start = 0; start <= text.size();) {
        const size_t end = std::min(text.find(PARAGRAPH_SEPARATOR, start), text.size());
        mParagraphs.push_back(fold(text.substr(start, end - start), static_cast<uint32_t>(start)));
        start = end + 1;
    }
}

SearchText::Paragraph SearchText::fold(std::u16string_view text, uint32_t start) {
    Paragraph paragraph{start, static_cast<uint32_t>(text.size()), foldCase(text), {}};
    // Folding never shortens a character, so equal lengths mean equal offsets.
    if (paragraph.folded.size() == text.size()) {
        return paragraph;
    }
    paragraph.origins.reserve(paragraph.folded.size());
    for (size_t i = 0; i < text.size();) {
        const size_t first = i;
        U16_FWD_1(text.data(), i, text.size());
        const size_t units = foldCase(text.substr(first, i - first)).size();
        paragraph.origins.insert(paragraph.origins.end(), units, static_cast<uint32_t>(first));
    }
    // Folding characters one by one should have the same result as folding the
    // paragraph; otherwise offsets are unknown and nothing is found in it.
    if (paragraph.origins.size() != paragraph.folded.size()) {
        paragraph.folded.clear();
    }
    return paragraph;
}

bool SearchText::Paragraph::isBoundary(size_t unit) const {
    return origins.empty() || unit == 0 || unit == origins.size() || origins[unit] != origins[unit - 1];
}

uint32_t SearchText::Paragraph::origin(size_t unit) const {
    if (origins.empty()) {
        return start + static_cast<uint32_t>(unit);
    }
    return start + (unit == origins.size() ? length : origins[unit]);
}

std::vector<CharacterRange> SearchText::find(std::u16string_view wanted, CharacterRange bounds,
                                             const std::function<bool(CharacterRange)>& counts) const {
    std::vector<CharacterRange> hits;
    if (wanted.empty() || wanted.size() > std::numeric_limits<int32_t>::max() / 4 || !isWellFormed(wanted)) {
        return hits;
    }
    const std::u16string folded = foldCase(wanted);
    const Matcher matcher(folded);
    for (const Paragraph& paragraph : mParagraphs) {
        if (paragraph.start + paragraph.length < bounds.start || paragraph.start >= bounds.end) {
            continue;
        }
        matcher.scan(paragraph.folded, [&](size_t end) {
            const size_t start = end - folded.size();
            if (!paragraph.isBoundary(start) || !paragraph.isBoundary(end)) {
                return false;
            }
            const CharacterRange hit{paragraph.origin(start), paragraph.origin(end)};
            if (hit.start < bounds.start || hit.end > bounds.end || !counts(hit)) {
                return false;
            }
            hits.push_back(hit);
            return true;
        });
    }
    return hits;
}

} // namespace lectern::engine

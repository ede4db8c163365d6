// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/word/PlacedRanges.h"

#include <vector>

namespace lectern::engine {

// Text that the body refers to but does not contain: a footnote, an endnote or
// a comment.
struct SideText {
    ClickType type;
    css::uno::Reference<css::uno::XInterface> object;
};

// The marks of notes and the characters that comments refer to.
class References {
public:
    References(const css::uno::Reference<css::text::XTextDocument>& model, const TextPositions& positions);

    // In document order; the indices are those of places().ranges().
    const std::vector<SideText>& texts() const { return mTexts; }
    PlacedRanges& places() { return mPlaces; }

private:
    std::vector<SideText> mTexts;
    PlacedRanges mPlaces;
};

} // namespace lectern::engine

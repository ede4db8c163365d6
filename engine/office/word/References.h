// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/word/PlacedRanges.h"

#include <vector>

namespace lectern::engine {

// What the text refers to and does not show: a footnote, an endnote, a comment.
struct SideText {
    ClickType type;
    css::uno::Reference<css::uno::XInterface> object;
};

// The marks of notes and the words that comments are about.
class References {
public:
    References(const css::uno::Reference<css::text::XTextDocument>& model, const TextPositions& positions);

    // In the order of the text, as ranges() of the places.
    const std::vector<SideText>& texts() const { return mTexts; }
    PlacedRanges& places() { return mPlaces; }

private:
    std::vector<SideText> mTexts;
    PlacedRanges mPlaces;
};

} // namespace lectern::engine

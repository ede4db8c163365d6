// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/word/TextPositions.h"

#include <optional>
#include <vector>

namespace lectern::engine {

// Characters that lead somewhere. An address that starts with # is a place in
// the document, as the suite names them.
struct Link {
    CharacterRange range;
    OUString address;
};

// The links of a paragraph: hyperlinks, and fields that quote a bookmark.
std::vector<Link> linksIn(const BodyParagraph& paragraph, const TextPositions& positions);

// Finds where links lead to inside a document.
class LinkTargets {
public:
    // Both outlive this.
    LinkTargets(const css::uno::Reference<css::text::XTextDocument>& model, const TextPositions& positions)
        : mModel(model), mPositions(positions) {}

    // The position of a place, given without its #: a bookmark, or a heading or
    // table as the suite names them. Nothing when there is no such place.
    std::optional<uint32_t> find(const OUString& name) const;

    // Where an entry of a table of contents leads, be it a link or not. Nothing
    // for a paragraph that is none.
    std::optional<uint32_t> ofContentsEntry(const BodyParagraph& paragraph) const;

private:
    std::optional<uint32_t> bookmark(const OUString& name) const;
    std::optional<uint32_t> table(const OUString& name) const;
    std::optional<uint32_t> heading(std::u16string_view text) const;

    const css::uno::Reference<css::text::XTextDocument>& mModel;
    const TextPositions& mPositions;
};

} // namespace lectern::engine

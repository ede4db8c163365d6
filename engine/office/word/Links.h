// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/word/TextPositions.h"

#include <optional>
#include <vector>

namespace lectern::engine {

// Characters that are a link. An address that starts with # is a place in the
// document, named as the suite names it.
struct Link {
    CharacterRange range;
    OUString address;
};

// The links of a paragraph: hyperlinks, and fields that refer to a bookmark.
std::vector<Link> linksIn(const BodyParagraph& paragraph, const TextPositions& positions);

// Finds the targets of links inside a document.
class LinkTargets {
public:
    // Both must outlive this.
    LinkTargets(const css::uno::Reference<css::text::XTextDocument>& model, const TextPositions& positions)
        : mModel(model), mPositions(positions) {}

    // The position of a place, named without the #: a bookmark, or the suite's
    // name of a heading or table. Nothing when there is no such place.
    std::optional<uint32_t> find(const OUString& name) const;

    // The target of an entry in a table of contents, whether or not the entry
    // is a link. Nothing for any other paragraph.
    std::optional<uint32_t> ofContentsEntry(const BodyParagraph& paragraph) const;

private:
    std::optional<uint32_t> bookmark(const OUString& name) const;
    std::optional<uint32_t> table(const OUString& name) const;
    std::optional<uint32_t> heading(std::u16string_view text) const;

    const css::uno::Reference<css::text::XTextDocument>& mModel;
    const TextPositions& mPositions;
};

} // namespace lectern::engine

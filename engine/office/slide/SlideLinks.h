// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/slide/SlideDeck.h"

#include <com/sun/star/awt/Rectangle.hpp>

#include <optional>
#include <string>

namespace lectern::engine {

// Where a link leads: to a slide, or to an address.
struct LinkTarget {
    std::optional<int32_t> slide;
    std::u16string address;
};

// The target of a link of a text on a slide. Nothing for one inside the presentation that
// leads nowhere.
std::optional<LinkTarget> targetOfAddress(const SlideDeck& deck, int32_t slide,
                                          const std::u16string& address);

// The target of the topmost shape with a link at a point of a slide, in 1/100 mm.
std::optional<LinkTarget> targetOfShapeAt(const SlideDeck& deck, int32_t slide, const css::awt::Point& point);

// The topmost picture, table or chart at a point of a slide, in 1/100 mm.
std::optional<css::awt::Rectangle> figureAt(const SlideDeck& deck, int32_t slide,
                                            const css::awt::Point& point);

} // namespace lectern::engine

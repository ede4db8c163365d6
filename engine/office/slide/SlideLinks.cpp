// SPDX-License-Identifier: Apache-2.0
#include "engine/office/slide/SlideLinks.h"

#include "engine/office/slide/SlideShapes.h"

#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/presentation/ClickAction.hpp>

#include <algorithm>
#include <array>
#include <utility>

namespace lectern::engine {

using css::drawing::XShape;
using css::presentation::ClickAction;
using css::uno::Reference;
using css::uno::UNO_QUERY;

namespace {

std::optional<LinkTarget> toSlide(const SlideDeck& deck, int32_t slide) {
    if (slide < 0 || slide >= deck.count()) {
        return std::nullopt;
    }
    return LinkTarget{slide, {}};
}

// The number at a name's end, such as that of "Slide 3" or "page3"; 0 without one.
int32_t numberAtEnd(const OUString& name) {
    sal_Int32 start = name.getLength();
    while (start > 0 && name[start - 1] >= u'0' && name[start - 1] <= u'9') {
        --start;
    }
    return name.copy(start).toInt32();
}

// A slide by its name. The names of slides without one are numbers in any language.
std::optional<LinkTarget> toNamedSlide(const SlideDeck& deck, const OUString& name) {
    for (int32_t slide = 0; slide < deck.count(); ++slide) {
        const Reference<css::container::XNamed> named(deck.slide(slide), UNO_QUERY);
        if (named.is() && named->getName() == name) {
            return toSlide(deck, slide);
        }
    }
    return toSlide(deck, numberAtEnd(name) - 1);
}

std::optional<LinkTarget> toNeighbour(const SlideDeck& deck, int32_t slide, ClickAction action) {
    switch (action) {
    case css::presentation::ClickAction_PREVPAGE:
        return toSlide(deck, slide - 1);
    case css::presentation::ClickAction_NEXTPAGE:
        return toSlide(deck, slide + 1);
    case css::presentation::ClickAction_FIRSTPAGE:
        return toSlide(deck, 0);
    case css::presentation::ClickAction_LASTPAGE:
        return toSlide(deck, deck.count() - 1);
    default:
        return std::nullopt;
    }
}

// The file format's words for such a jump, which the suite keeps in an address.
std::optional<ClickAction> jumpOf(const OUString& address) {
    constexpr std::array<std::pair<const char*, ClickAction>, 4> JUMPS = {{
        {"jump=previousslide", css::presentation::ClickAction_PREVPAGE},
        {"jump=nextslide", css::presentation::ClickAction_NEXTPAGE},
        {"jump=firstslide", css::presentation::ClickAction_FIRSTPAGE},
        {"jump=lastslide", css::presentation::ClickAction_LASTPAGE},
    }};
    const auto jump = std::find_if(JUMPS.begin(), JUMPS.end(), [&](const auto& candidate) {
        return address.endsWith(OUString::createFromAscii(candidate.first));
    });
    return jump != JUMPS.end() ? std::optional(jump->second) : std::nullopt;
}

std::optional<LinkTarget> targetOf(const SlideDeck& deck, int32_t slide, const OUString& address) {
    if (const auto jump = jumpOf(address)) {
        return toNeighbour(deck, slide, *jump);
    }
    if (address.startsWith("#")) {
        return toNamedSlide(deck, address.copy(1));
    }
    return address.isEmpty() ? std::nullopt : std::optional(LinkTarget{std::nullopt, toText(address)});
}

std::optional<LinkTarget> targetOf(const SlideDeck& deck, int32_t slide, const Reference<XShape>& shape) {
    const auto properties = propertiesOf(shape);
    const auto action = property<ClickAction>(properties, "OnClick", css::presentation::ClickAction_NONE);
    const auto bookmark = property<OUString>(properties, "Bookmark");
    switch (action) {
    case css::presentation::ClickAction_BOOKMARK:
        return toNamedSlide(deck, bookmark.startsWith("#") ? bookmark.copy(1) : bookmark);
    case css::presentation::ClickAction_DOCUMENT:
        return targetOf(deck, slide, bookmark);
    default:
        return toNeighbour(deck, slide, action);
    }
}

bool contains(const css::awt::Rectangle& area, const css::awt::Point& point) {
    const auto inside = [](int64_t from, int64_t length, int64_t value) {
        return value >= from && value < from + length;
    };
    return inside(area.X, area.Width, point.X) && inside(area.Y, area.Height, point.Y);
}

// Around the shape as it is drawn, turned or not.
css::awt::Rectangle areaOf(const Reference<XShape>& shape) {
    return property<css::awt::Rectangle>(propertiesOf(shape), "BoundRect");
}

bool isFigure(const Reference<XShape>& shape) {
    const OUString type = shape->getShapeType();
    return type.endsWith(".GraphicObjectShape") || type.endsWith(".TableShape") ||
           type.endsWith(".OLE2Shape") || type.endsWith(".ChartShape");
}

} // namespace

std::optional<LinkTarget> targetOfAddress(const SlideDeck& deck, int32_t slide,
                                          const std::u16string& address) {
    return targetOf(deck, slide,
                    OUString(reinterpret_cast<const sal_Unicode*>(address.data()),
                             static_cast<sal_Int32>(address.size())));
}

std::optional<LinkTarget> targetOfShapeAt(const SlideDeck& deck, int32_t slide,
                                          const css::awt::Point& point) {
    std::optional<LinkTarget> topmost;
    visitShapes(deck.slide(slide), [&](const Reference<XShape>& shape) {
        if (contains(areaOf(shape), point)) {
            if (const auto target = targetOf(deck, slide, shape)) {
                topmost = target;
            }
        }
        return true;
    });
    return topmost;
}

std::optional<css::awt::Rectangle> figureAt(const SlideDeck& deck, int32_t slide,
                                            const css::awt::Point& point) {
    std::optional<css::awt::Rectangle> topmost;
    visitShapes(deck.slide(slide), [&](const Reference<XShape>& shape) {
        const css::awt::Rectangle area = areaOf(shape);
        if (contains(area, point) && isFigure(shape)) {
            topmost = area;
        }
        return true;
    });
    return topmost;
}

} // namespace lectern::engine

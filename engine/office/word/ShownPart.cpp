// SPDX-License-Identifier: Apache-2.0
#include "engine/office/word/ShownPart.h"

#include <com/sun/star/lang/XMultiServiceFactory.hpp>
#include <com/sun/star/text/XTextSectionsSupplier.hpp>

#include <algorithm>
#include <cstdio>
#include <utility>

namespace lectern::engine {

using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

namespace {

// A rest of fewer characters is shown at once.
constexpr uint32_t SMALL_REST = 4096;

// Laying out a paragraph takes about as much time as this many characters more of it.
constexpr uint32_t CHARACTERS_FOR_A_PARAGRAPH = 100;

bool isInside(const Reference<css::uno::XInterface>& range, const char* container) {
    return property<Reference<css::uno::XInterface>>(propertiesOf(range), container).is();
}

bool hasSections(const Reference<css::text::XTextDocument>& model) {
    const Reference<css::text::XTextSectionsSupplier> supplier(model, UNO_QUERY);
    return supplier.is() && supplier->getTextSections()->hasElements();
}

// The end of the paragraph before `end`. Null inside of a table or section: a
// section that begins outside of them cannot end there.
Reference<css::text::XTextRange> lastBefore(const Reference<css::text::XTextRange>& end) {
    const auto last = end->getText()->createTextCursorByRange(end->getStart());
    const bool found =
        last->goLeft(1, false) && !isInside(last, "TextTable") && !isInside(last, "TextSection");
    return found ? Reference<css::text::XTextRange>(last, UNO_QUERY) : nullptr;
}

} // namespace

ShownPart::ShownPart(const Reference<css::text::XTextDocument>& model, const Body& body,
                     const Reference<css::text::XTextRange>& end)
    : mModel(model), mBody(body), mLast(lastBefore(end)), mHasSections(hasSections(model)) {}

void ShownPart::showTo(uint32_t end) {
    const size_t cut = cutBehind(end);
    if (isWhole() ? cut == own().size() : cut == mFirstHidden) {
        return;
    }
    // The new section lies in the old one or around it, so nothing is shown in between.
    const auto before = std::exchange(mHidden, hideFrom(cut));
    mFirstHidden = cut;
    if (before.is()) {
        before->dispose(); // the section only; its text stays
    }
}

uint32_t ShownPart::endOfPortion(uint32_t characters) const {
    const std::vector<BodyParagraph>& all = mBody.paragraphs();
    uint32_t taken = 0;
    size_t next = own()[mFirstHidden];
    for (; next < all.size() && taken < characters; ++next) {
        taken += all[next].length + CHARACTERS_FOR_A_PARAGRAPH;
    }
    return next < all.size() ? all[next].start : mBody.length();
}

// The index of the first paragraph behind `end` from which the text can be
// hidden; the number of paragraphs when there is none.
size_t ShownPart::cutBehind(uint32_t end) const {
    const size_t none = own().size();
    const uint32_t length = mBody.length();
    if (!mLast.is() || none < 2 || length < SMALL_REST || end > length - SMALL_REST) {
        return none;
    }
    const auto from = std::partition_point(
        own().begin(), own().end(), [&](size_t index) { return mBody.paragraphs()[index].start < end; });
    const auto cut = std::find_if(std::max(from, own().begin() + 1), own().end(), [&](size_t index) {
        return !mHasSections || !isInside(mBody.paragraphs()[index].range, "TextSection");
    });
    const auto place = static_cast<size_t>(cut - own().begin());
    return place < none && length - paragraph(place).start >= SMALL_REST ? place : none;
}

Reference<css::lang::XComponent> ShownPart::hideFrom(size_t index) const {
    if (index == own().size()) {
        return nullptr;
    }
    try {
        const Reference<css::lang::XMultiServiceFactory> factory(mModel, UNO_QUERY_THROW);
        const Reference<css::text::XTextContent> section(
            factory->createInstance("com.sun.star.text.TextSection"), UNO_QUERY_THROW);
        setProperty(propertiesOf(section), "IsVisible", false);
        const auto text = mModel->getText();
        const auto hidden = text->createTextCursorByRange(paragraph(index).range->getStart());
        hidden->gotoRange(mLast, true);
        text->insertTextContent(Reference<css::text::XTextRange>(hidden, UNO_QUERY), section, true);
        return {section, UNO_QUERY_THROW};
    } catch (const css::uno::Exception&) {
        std::fprintf(stderr, "office: the text is laid out in one piece\n");
        return nullptr;
    }
}

} // namespace lectern::engine

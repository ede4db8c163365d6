// SPDX-License-Identifier: Apache-2.0
#include "engine/office/word/References.h"

#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/lang/XServiceInfo.hpp>
#include <com/sun/star/text/XEndnotesSupplier.hpp>
#include <com/sun/star/text/XFootnotesSupplier.hpp>
#include <com/sun/star/text/XTextContent.hpp>
#include <com/sun/star/text/XTextFieldsSupplier.hpp>

#include <algorithm>
#include <cstdio>

namespace lectern::engine {

using css::uno::Reference;
using css::uno::UNO_QUERY;

namespace {

constexpr char16_t SEPARATORS[] = {u' ', u'\t', u'\n', u'\u00A0', PARAGRAPH_SEPARATOR, u'\0'};

struct Mark {
    CharacterRange range;
    SideText text;
};

class Collector {
public:
    explicit Collector(const TextPositions& positions) : mPositions(positions) {}

    // Without a place in the text, an element cannot be tapped.
    void add(const css::uno::Any& element, ClickType type) {
        try {
            addMark({element, UNO_QUERY}, type);
        } catch (const css::uno::Exception&) {
            std::fprintf(stderr, "office: a note or comment has no place\n");
        }
    }

    std::vector<Mark> marks;

private:
    void addMark(const Reference<css::text::XTextContent>& content, ClickType type) {
        const auto anchor = content.is() ? content->getAnchor() : Reference<css::text::XTextRange>();
        if (!anchor.is() || !anchor->getText().is()) {
            return;
        }
        const auto start = mPositions.find(anchor->getStart());
        if (!start) {
            return; // in a header or in another note
        }
        const auto length = static_cast<uint32_t>(anchor->getString().getLength());
        const uint32_t from = length == 0 ? wordBefore(*start) : *start;
        marks.push_back({{from, std::max(*start + length, from + 1)}, {type, content}});
    }

    // The start of the word that ends at a position, or of the character before
    // it: a comment on no characters belongs to that.
    uint32_t wordBefore(uint32_t end) const {
        const std::u16string& text = mPositions.body().string();
        const auto isLetter = [&](uint32_t at) {
            return std::u16string_view(SEPARATORS).find(text[at]) == std::u16string_view::npos;
        };
        uint32_t start = end > 0 ? end - 1 : 0;
        while (start > 0 && isLetter(start) && isLetter(start - 1)) {
            --start;
        }
        return start;
    }

    const TextPositions& mPositions;
};

void addNotes(Collector& collector, const Reference<css::container::XIndexAccess>& notes, ClickType type) {
    for (sal_Int32 i = 0; i < notes->getCount(); ++i) {
        collector.add(notes->getByIndex(i), type);
    }
}

void addComments(Collector& collector, const Reference<css::text::XTextFieldsSupplier>& supplier) {
    const auto fields = supplier->getTextFields()->createEnumeration();
    while (fields->hasMoreElements()) {
        const css::uno::Any field = fields->nextElement();
        const Reference<css::lang::XServiceInfo> info(field, UNO_QUERY);
        if (info.is() && info->supportsService("com.sun.star.text.textfield.Annotation")) {
            collector.add(field, ClickType::Comment);
        }
    }
}

} // namespace

References::References(const Reference<css::text::XTextDocument>& model, const TextPositions& positions) {
    Collector collector(positions);
    if (const Reference<css::text::XFootnotesSupplier> notes(model, UNO_QUERY); notes.is()) {
        addNotes(collector, notes->getFootnotes(), ClickType::Footnote);
    }
    if (const Reference<css::text::XEndnotesSupplier> notes(model, UNO_QUERY); notes.is()) {
        addNotes(collector, notes->getEndnotes(), ClickType::Endnote);
    }
    if (const Reference<css::text::XTextFieldsSupplier> fields(model, UNO_QUERY); fields.is()) {
        addComments(collector, fields);
    }
    auto& marks = collector.marks;
    std::stable_sort(marks.begin(), marks.end(),
                     [](const Mark& a, const Mark& b) { return a.range.start < b.range.start; });
    std::vector<CharacterRange> ranges;
    for (Mark& mark : marks) {
        ranges.push_back(mark.range);
        mTexts.push_back(std::move(mark.text));
    }
    mPlaces = PlacedRanges(std::move(ranges));
}

} // namespace lectern::engine

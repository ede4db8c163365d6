// SPDX-License-Identifier: Apache-2.0
#include "engine/office/word/Links.h"

#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/text/ReferenceFieldSource.hpp>
#include <com/sun/star/text/XBookmarksSupplier.hpp>
#include <com/sun/star/text/XTextContent.hpp>
#include <com/sun/star/text/XTextTablesSupplier.hpp>
#include <rtl/uri.hxx>

#include <algorithm>

namespace lectern::engine {

using css::uno::Reference;
using css::uno::UNO_QUERY;

namespace {

OUString addressOfField(const Reference<css::beans::XPropertySet>& portion) {
    const auto field = property<Reference<css::beans::XPropertySet>>(portion, "TextField");
    const bool quotesBookmark = property<sal_Int16>(field, "ReferenceFieldSource", sal_Int16{-1}) ==
                                css::text::ReferenceFieldSource::BOOKMARK;
    return quotesBookmark ? "#" + property<OUString>(field, "SourceName") : OUString();
}

// Collects the links in portions and in the portions nested in them. A
// selection's elements are paragraphs, which hold portions.
void collect(const Reference<css::container::XEnumerationAccess>& portions, const TextPositions& positions,
             std::vector<Link>& links) {
    const auto all =
        portions.is() ? portions->createEnumeration() : Reference<css::container::XEnumeration>();
    while (all.is() && all->hasMoreElements()) {
        const css::uno::Any element = all->nextElement();
        const Reference<css::text::XTextRange> range(element, UNO_QUERY);
        const auto properties = propertiesOf(range);
        const auto type = property<OUString>(properties, "TextPortionType");
        if (type.isEmpty()) {
            collect(Reference<css::container::XEnumerationAccess>(element, UNO_QUERY), positions, links);
        }
        for (const char* const outer : {"ContentControl", "InContentMetadata"}) {
            if (type.equalsAscii(outer)) {
                collect(property<Reference<css::container::XEnumerationAccess>>(properties, outer), positions,
                        links);
            }
        }
        const auto address = type == "TextField" ? addressOfField(properties) : OUString();
        const auto url = address.isEmpty() ? property<OUString>(properties, "HyperLinkURL") : address;
        if (!url.isEmpty() && range.is() && !range->getString().isEmpty()) {
            links.push_back(
                {{positions.positionOf(range->getStart()), positions.positionOf(range->getEnd())}, url});
        }
    }
}

// Whether `name` is `text` with a number before it, such as "2.1 Tides" for
// "Tides". A tab separates numbers of any kind, such as "A.1" or "IV".
bool isNumberedLike(std::u16string_view name, std::u16string_view text) {
    if (text.empty() || name.size() < text.size() || name.substr(name.size() - text.size()) != text) {
        return false;
    }
    const auto number = name.substr(0, name.size() - text.size());
    return (!number.empty() && number.back() == u'\t') ||
           std::all_of(number.begin(), number.end(), [](char16_t unit) {
               return unit == u'.' || unit == u' ' || (unit >= u'0' && unit <= u'9');
           });
}

} // namespace

std::vector<Link> linksIn(const BodyParagraph& paragraph, const TextPositions& positions) {
    std::vector<Link> links;
    collect(Reference<css::container::XEnumerationAccess>(paragraph.range, UNO_QUERY), positions, links);
    return links;
}

std::optional<uint32_t> LinkTargets::find(const OUString& name) const {
    const OUString plain = rtl::Uri::decode(name, rtl_UriDecodeWithCharset, RTL_TEXTENCODING_UTF8);
    if (const auto found = bookmark(plain)) {
        return found;
    }
    const sal_Int32 bar = plain.lastIndexOf('|');
    if (bar < 0) {
        return std::nullopt;
    }
    const OUString kind = plain.copy(bar + 1);
    const OUString place = plain.copy(0, bar);
    if (kind == "outline") {
        return heading(toText(place));
    }
    return kind == "table" ? table(place) : std::nullopt;
}

std::optional<uint32_t> LinkTargets::bookmark(const OUString& name) const {
    const Reference<css::text::XBookmarksSupplier> supplier(mModel, UNO_QUERY);
    if (!supplier.is() || !supplier->getBookmarks()->hasByName(name)) {
        return std::nullopt;
    }
    const Reference<css::text::XTextContent> mark(supplier->getBookmarks()->getByName(name), UNO_QUERY);
    return mPositions.positionOf(mark->getAnchor()->getStart());
}

std::optional<uint32_t> LinkTargets::table(const OUString& name) const {
    const auto& texts = mPositions.body().texts();
    const auto cell = std::find_if(texts.begin(), texts.end(), [&](const BodyText& text) {
        return std::get<0>(text.key) == name && !text.paragraphs.empty();
    });
    if (cell == texts.end()) {
        return std::nullopt;
    }
    return mPositions.body().paragraphs()[cell->paragraphs.front()].start;
}

std::optional<uint32_t> LinkTargets::heading(std::u16string_view text) const {
    const Body& body = mPositions.body();
    for (const BodyParagraph& paragraph : body.paragraphs()) {
        const auto own = std::u16string_view(body.string()).substr(paragraph.start, paragraph.length);
        if (paragraph.kind != BodyParagraph::Kind::Attached && isNumberedLike(text, own) &&
            property<sal_Int16>(propertiesOf(paragraph.range), "OutlineLevel") > 0) {
            return paragraph.start;
        }
    }
    return std::nullopt;
}

std::optional<uint32_t> LinkTargets::ofContentsEntry(const BodyParagraph& paragraph) const {
    const auto cursor =
        propertiesOf(paragraph.range->getText()->createTextCursorByRange(paragraph.range->getStart()));
    if (!property<Reference<css::uno::XInterface>>(cursor, "DocumentIndex").is()) {
        return std::nullopt;
    }
    const auto entry =
        std::u16string_view(mPositions.body().string()).substr(paragraph.start, paragraph.length);
    return heading(entry.substr(0, entry.rfind(u'\t')));
}

} // namespace lectern::engine

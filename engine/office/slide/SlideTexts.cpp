// SPDX-License-Identifier: Apache-2.0
#include "engine/office/slide/SlideTexts.h"

#include "engine/office/slide/SlideShapes.h"

#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/presentation/XPresentationPage.hpp>
#include <com/sun/star/text/XTextRange.hpp>

#include <algorithm>

namespace lectern::engine {

using css::drawing::XDrawPage;
using css::drawing::XShape;
using css::uno::Reference;
using css::uno::UNO_QUERY;

namespace {

bool isFooter(const OUString& placeholder) {
    return placeholder == "FooterShape" || placeholder == "DateTimeShape" ||
           placeholder == "SlideNumberShape" || placeholder == "HeaderShape";
}

// Joins the lines of a text that was broken into lines to fit its shape.
std::u16string onOneLine(const OUString& text) {
    std::u16string line = toText(text.trim());
    std::replace_if(
        line.begin(), line.end(), [](char16_t unit) { return unit < u' '; }, u' ');
    return line;
}

void addParagraphs(const Reference<XShape>& shape, std::vector<OutlineItem>& items) {
    const Reference<css::container::XEnumerationAccess> text(shape, UNO_QUERY);
    if (!text.is()) {
        return;
    }
    const auto paragraphs = text->createEnumeration();
    while (paragraphs->hasMoreElements()) {
        const Reference<css::text::XTextRange> paragraph(paragraphs->nextElement(), UNO_QUERY);
        if (!paragraph.is() || paragraph->getString().trim().isEmpty()) {
            continue;
        }
        const auto level = property<sal_Int16>(propertiesOf(paragraph), "NumberingLevel");
        items.push_back({onOneLine(paragraph->getString()), 1 + std::max<int32_t>(level, 0)});
    }
}

} // namespace

std::u16string slideTitle(const Reference<XDrawPage>& slide) {
    OUString title;
    OUString firstText;
    visitShapes(slide, [&](const Reference<XShape>& shape) {
        const OUString placeholder = placeholderOf(shape);
        if (placeholder == "TitleTextShape") {
            title = textOf(shape).trim();
        } else if (firstText.isEmpty() && !isFooter(placeholder)) {
            firstText = textOf(shape).trim();
        }
        return title.isEmpty();
    });
    return onOneLine(title.isEmpty() ? firstText : title);
}

std::u16string slideNote(const Reference<XDrawPage>& slide) {
    const Reference<css::presentation::XPresentationPage> page(slide, UNO_QUERY);
    OUString note;
    if (page.is()) {
        visitShapes(page->getNotesPage(), [&](const Reference<XShape>& shape) {
            if (placeholderOf(shape) == "NotesShape") {
                note = textOf(shape);
            }
            return note.isEmpty();
        });
    }
    return note.trim().isEmpty() ? std::u16string() : toText(note);
}

std::vector<OutlineItem> slideOutline(const Reference<XDrawPage>& slide) {
    std::vector<OutlineItem> items;
    visitShapes(slide, [&](const Reference<XShape>& shape) {
        const OUString placeholder = placeholderOf(shape);
        if (isEmptyPlaceholder(shape)) {
            return true;
        }
        if (placeholder == "TitleTextShape" && !textOf(shape).trim().isEmpty()) {
            items.insert(items.begin(), {onOneLine(textOf(shape)), 0});
        } else if (placeholder == "OutlinerShape" || placeholder == "SubtitleShape") {
            addParagraphs(shape, items);
        }
        return true;
    });
    return items;
}

} // namespace lectern::engine

// SPDX-License-Identifier: Apache-2.0
#include "engine/office/word/PageStyles.h"

#include <com/sun/star/style/BreakType.hpp>
#include <com/sun/star/style/XStyle.hpp>
#include <com/sun/star/style/XStyleFamiliesSupplier.hpp>
#include <com/sun/star/table/BorderLine2.hpp>
#include <com/sun/star/table/ShadowFormat.hpp>
#include <com/sun/star/text/WritingMode2.hpp>
#include <com/sun/star/text/XTextColumns.hpp>

#include <algorithm>

namespace lectern::engine {

using css::uno::Reference;
using css::uno::UNO_QUERY;

namespace {

// Notes get pages of these styles during the layout, so treat the styles as in
// use from the start.
bool isOfNotes(const OUString& name) {
    return name == "Footnote" || name == "Endnote";
}

template<class Use>
void forUsedStyles(const Reference<css::text::XTextDocument>& model, const char* family, Use use) {
    const Reference<css::style::XStyleFamiliesSupplier> supplier(model, UNO_QUERY);
    const Reference<css::container::XNameAccess> styles(
        supplier->getStyleFamilies()->getByName(OUString::createFromAscii(family)), UNO_QUERY);
    for (const OUString& name : styles->getElementNames()) {
        const Reference<css::style::XStyle> style(styles->getByName(name), UNO_QUERY);
        if (style.is() && (style->isInUse() || isOfNotes(name))) {
            use(propertiesOf(style));
        }
    }
}

void stripPage(const Reference<css::beans::XPropertySet>& page) {
    // Headers and footers first: turning them off removes the shapes anchored in them.
    setProperty(page, "HeaderIsOn", false);
    setProperty(page, "FooterIsOn", false);
    setProperty(page, "IsLandscape", false);
    // A text grid would break a page after a number of lines, whatever the
    // page's height.
    setProperty(page, "GridMode", static_cast<sal_Int16>(0));
    for (const char* margin : {"LeftMargin", "RightMargin"}) {
        setProperty(page, margin, PAGE_MARGIN);
    }
    for (const char* margin : {"TopMargin", "BottomMargin"}) {
        setProperty(page, margin, static_cast<sal_Int32>(0));
    }
    for (const char* border : {"LeftBorder", "RightBorder", "TopBorder", "BottomBorder"}) {
        setProperty(page, border, css::table::BorderLine2());
    }
    for (const char* distance :
         {"LeftBorderDistance", "RightBorderDistance", "TopBorderDistance", "BottomBorderDistance"}) {
        setProperty(page, distance, static_cast<sal_Int32>(0));
    }
    setProperty(page, "ShadowFormat", css::table::ShadowFormat());
    // Vertical lines would depend on the height of the page instead of its width.
    if (property<sal_Int16>(page, "WritingMode") >= css::text::WritingMode2::TB_RL) {
        setProperty(page, "WritingMode", css::text::WritingMode2::LR_TB);
    }
    removeColumns(page);
}

} // namespace

css::awt::Size paperSize(const Reference<css::text::XTextDocument>& model) {
    css::awt::Size largest;
    forUsedStyles(model, "PageStyles", [&largest](const Reference<css::beans::XPropertySet>& page) {
        largest.Width = std::max(largest.Width, property<sal_Int32>(page, "Width"));
        largest.Height = std::max(largest.Height, property<sal_Int32>(page, "Height"));
    });
    return largest;
}

void stripPages(const Reference<css::text::XTextDocument>& model) {
    forUsedStyles(model, "PageStyles", stripPage);
}

void setPageSize(const Reference<css::text::XTextDocument>& model, int32_t width, int32_t height) {
    forUsedStyles(model, "PageStyles", [=](const Reference<css::beans::XPropertySet>& page) {
        if (property<sal_Int32>(page, "Width") != width) {
            setProperty(page, "Width", width);
        }
        if (property<sal_Int32>(page, "Height") != height) {
            setProperty(page, "Height", height);
        }
    });
}

void removeStyleBreaks(const Reference<css::text::XTextDocument>& model) {
    forUsedStyles(model, "ParagraphStyles", removeBreaks);
}

void removeBreaks(const Reference<css::beans::XPropertySet>& block) {
    if (!property<OUString>(block, "PageDescName").isEmpty()) {
        setProperty(block, "PageDescName", OUString());
    }
    if (property(block, "BreakType", css::style::BreakType_NONE) != css::style::BreakType_NONE) {
        setProperty(block, "BreakType", css::style::BreakType_NONE);
    }
}

void removeColumns(const Reference<css::beans::XPropertySet>& properties) {
    const auto columns = property<Reference<css::text::XTextColumns>>(properties, "TextColumns");
    if (!columns.is() || columns->getColumnCount() < 2) {
        return;
    }
    columns->setColumnCount(1);
    setProperty(properties, "TextColumns", columns);
}

} // namespace lectern::engine

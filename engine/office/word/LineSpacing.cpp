// SPDX-License-Identifier: Apache-2.0
#include "engine/office/word/LineSpacing.h"

#include <com/sun/star/style/LineSpacing.hpp>
#include <com/sun/star/style/LineSpacingMode.hpp>

namespace lectern::engine {

void loosenLines(const css::uno::Reference<css::beans::XPropertySet>& paragraph) {
    using namespace css::style;
    auto spacing = property<LineSpacing>(paragraph, "ParaLineSpacing");
    if (spacing.Mode == LineSpacingMode::FIX) {
        spacing.Mode = LineSpacingMode::MINIMUM;
    } else if (spacing.Mode == LineSpacingMode::PROP && spacing.Height < 100) {
        spacing.Height = 100;
    } else {
        return;
    }
    setProperty(paragraph, "ParaLineSpacing", spacing);
}

void loosenLines(const Body& body) {
    for (const BodyParagraph& paragraph : body.paragraphs()) {
        if (paragraph.length > 0) {
            loosenLines(propertiesOf(paragraph.range));
        }
    }
}

} // namespace lectern::engine

// SPDX-License-Identifier: Apache-2.0
#include "engine/office/word/BoxedTexts.h"

#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/drawing/XShapes.hpp>

#include <algorithm>
#include <tuple>

namespace lectern::engine {

using css::uno::Reference;
using css::uno::UNO_QUERY;

namespace {

using PropertyValues = css::uno::Sequence<css::beans::PropertyValue>;

using Shapes = std::vector<Reference<css::drawing::XShape>>;

void collectParts(const Reference<css::drawing::XShape>& shape, Shapes& parts) {
    const Reference<css::drawing::XShapes> group(shape, UNO_QUERY);
    if (!group.is()) {
        parts.push_back(shape);
        return;
    }
    for (sal_Int32 i = 0; i < group->getCount(); ++i) {
        collectParts(Reference<css::drawing::XShape>(group->getByIndex(i), UNO_QUERY), parts);
    }
}

// The shapes of a group and of the groups in it, or the shape itself, from top
// to bottom and from left to right.
Shapes partsOf(const Reference<css::drawing::XShape>& shape) {
    Shapes parts;
    collectParts(shape, parts);
    const auto place = [](const Reference<css::drawing::XShape>& part) {
        const css::awt::Point corner = part->getPosition();
        return std::tuple(corner.Y, corner.X);
    };
    if (parts.size() > 1) {
        std::stable_sort(parts.begin(), parts.end(),
                         [&](const auto& a, const auto& b) { return place(a) < place(b); });
    }
    return parts;
}

template<class T>
T valueOf(const PropertyValues& values, const char* name) {
    T result{};
    const auto found =
        std::find_if(values.begin(), values.end(),
                     [&](const css::beans::PropertyValue& value) { return value.Name.equalsAscii(name); });
    if (found != values.end()) {
        found->Value >>= result;
    }
    return result;
}

// The frame that a shape is, or that a drawing contains; may be null.
Reference<css::text::XTextFrame> frameOf(const Reference<css::drawing::XShape>& shape,
                                         const Reference<css::beans::XPropertySet>& properties) {
    const Reference<css::text::XTextFrame> frame(shape, UNO_QUERY);
    if (frame.is() || !property<bool>(properties, "TextBox")) {
        return frame;
    }
    return property<Reference<css::text::XTextFrame>>(properties, "TextBoxContent");
}

Reference<css::text::XText> drawnText(const Reference<css::drawing::XShape>& shape,
                                      const Reference<css::beans::XPropertySet>& properties) {
    const Reference<css::text::XText> text(shape, UNO_QUERY);
    const bool isText = text.is() && !text->getString().isEmpty() && !isWordArt(properties);
    return isText ? text : Reference<css::text::XText>();
}

Reference<css::text::XText> textOf(const BoxedText& text) {
    return text.frame.is() ? text.frame->getText() : text.drawn;
}

} // namespace

std::vector<BoxedText> boxedTexts(const Reference<css::drawing::XShape>& shape) {
    std::vector<BoxedText> texts;
    const Shapes parts = partsOf(shape);
    for (const auto& part : parts) {
        const auto properties = propertiesOf(part);
        BoxedText text{properties, frameOf(part, properties), {}};
        if (!text.frame.is()) {
            text.drawn = drawnText(part, properties);
        }
        // The text of a group's part may have been moved already.
        const bool isEmpty = parts.size() > 1 && textOf(text).is() && textOf(text)->getString().isEmpty();
        if (textOf(text).is() && !isEmpty) {
            texts.push_back(text);
        }
    }
    return texts;
}

void clear(const std::vector<BoxedText>& texts) {
    for (const BoxedText& text : texts) {
        textOf(text)->setString(OUString());
    }
}

bool hasPictures(const Reference<css::drawing::XShape>& shape) {
    const Shapes parts = partsOf(shape);
    return std::any_of(parts.begin(), parts.end(), [](const Reference<css::drawing::XShape>& part) {
        return part->getShapeType() == "com.sun.star.drawing.GraphicObjectShape" ||
               isWordArt(propertiesOf(part));
    });
}

bool isWordArt(const Reference<css::beans::XPropertySet>& shape) {
    const auto geometry = property<PropertyValues>(shape, "CustomShapeGeometry");
    return valueOf<bool>(valueOf<PropertyValues>(geometry, "TextPath"), "TextPath");
}

} // namespace lectern::engine

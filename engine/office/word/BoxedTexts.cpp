// SPDX-License-Identifier: Apache-2.0
#include "engine/office/word/BoxedTexts.h"

#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/drawing/XShapes.hpp>

#include <algorithm>
#include <iterator>
#include <tuple>

namespace lectern::engine {

using css::uno::Reference;
using css::uno::UNO_QUERY;

namespace {

using PropertyValues = css::uno::Sequence<css::beans::PropertyValue>;

std::vector<Reference<css::drawing::XShape>> partsOf(const Reference<css::drawing::XShapes>& group) {
    std::vector<Reference<css::drawing::XShape>> parts;
    for (sal_Int32 i = 0; i < group->getCount(); ++i) {
        parts.emplace_back(group->getByIndex(i), UNO_QUERY);
    }
    const auto place = [](const Reference<css::drawing::XShape>& shape) {
        const css::awt::Point corner = shape->getPosition();
        return std::tuple(corner.Y, corner.X);
    };
    std::stable_sort(parts.begin(), parts.end(),
                     [&](const auto& a, const auto& b) { return place(a) < place(b); });
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
    if (const Reference<css::drawing::XShapes> group(shape, UNO_QUERY); group.is()) {
        for (const auto& part : partsOf(group)) {
            std::vector<BoxedText> inner = boxedTexts(part);
            std::copy_if(inner.begin(), inner.end(), std::back_inserter(texts),
                         [](const BoxedText& text) { return !textOf(text)->getString().isEmpty(); });
        }
        return texts;
    }
    const auto properties = propertiesOf(shape);
    if (const auto frame = frameOf(shape, properties); frame.is()) {
        texts.push_back({properties, frame, {}});
    } else if (const auto drawn = drawnText(shape, properties); drawn.is()) {
        texts.push_back({properties, {}, drawn});
    }
    return texts;
}

void clear(const std::vector<BoxedText>& texts) {
    for (const BoxedText& text : texts) {
        textOf(text)->setString(OUString());
    }
}

bool hasPictures(const Reference<css::drawing::XShape>& shape) {
    if (const Reference<css::drawing::XShapes> group(shape, UNO_QUERY); group.is()) {
        const auto parts = partsOf(group);
        return std::any_of(parts.begin(), parts.end(), hasPictures);
    }
    return shape->getShapeType() == "com.sun.star.drawing.GraphicObjectShape" ||
           isWordArt(propertiesOf(shape));
}

bool isWordArt(const Reference<css::beans::XPropertySet>& shape) {
    const auto geometry = property<PropertyValues>(shape, "CustomShapeGeometry");
    return valueOf<bool>(valueOf<PropertyValues>(geometry, "TextPath"), "TextPath");
}

} // namespace lectern::engine

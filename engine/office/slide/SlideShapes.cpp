// SPDX-License-Identifier: Apache-2.0
#include "engine/office/slide/SlideShapes.h"

#include <com/sun/star/text/XText.hpp>

namespace lectern::engine {

using css::drawing::XShape;
using css::drawing::XShapes;
using css::uno::Reference;
using css::uno::UNO_QUERY;

namespace {

constexpr int DEEPEST_GROUP = 64;

bool visit(const Reference<XShapes>& shapes, const ShapeVisit& use, int depth) {
    for (sal_Int32 i = 0; i < shapes->getCount(); ++i) {
        const Reference<XShape> shape(shapes->getByIndex(i), UNO_QUERY);
        if (!shape.is()) {
            continue;
        }
        const Reference<XShapes> group(shape, UNO_QUERY);
        const bool goOn = group.is() ? depth >= DEEPEST_GROUP || visit(group, use, depth + 1) : use(shape);
        if (!goOn) {
            return false;
        }
    }
    return true;
}

} // namespace

OUString placeholderOf(const Reference<XShape>& shape) {
    OUString name;
    return shape->getShapeType().startsWith("com.sun.star.presentation.", &name) ? name : OUString();
}

bool isEmptyPlaceholder(const Reference<XShape>& shape) {
    return property<bool>(propertiesOf(shape), "IsEmptyPresentationObject");
}

OUString textOf(const Reference<XShape>& shape) {
    const Reference<css::text::XText> text(shape, UNO_QUERY);
    return text.is() && !isEmptyPlaceholder(shape) ? text->getString() : OUString();
}

bool visitShapes(const Reference<css::drawing::XDrawPage>& slide, const ShapeVisit& use) {
    const Reference<XShapes> shapes(slide, UNO_QUERY);
    return !shapes.is() || visit(shapes, use, 0);
}

} // namespace lectern::engine

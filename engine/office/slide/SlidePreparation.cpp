// SPDX-License-Identifier: Apache-2.0
#include "engine/office/slide/SlidePreparation.h"

#include "engine/office/slide/SlideShapes.h"

#include <com/sun/star/animations/XAnimate.hpp>
#include <com/sun/star/animations/XAnimationNodeSupplier.hpp>
#include <com/sun/star/beans/NamedValue.hpp>
#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/graphic/XGraphic.hpp>
#include <com/sun/star/lang/XMultiServiceFactory.hpp>
#include <com/sun/star/presentation/EffectNodeType.hpp>
#include <com/sun/star/presentation/EffectPresetClass.hpp>

#include <algorithm>
#include <utility>
#include <vector>

namespace lectern::engine {

using css::animations::XAnimationNode;
using css::drawing::XDrawPage;
using css::drawing::XShape;
using css::uno::Reference;
using css::uno::UNO_QUERY;

namespace {

namespace EffectNodeType = css::presentation::EffectNodeType;
namespace EffectPresetClass = css::presentation::EffectPresetClass;

bool isMedia(const Reference<XShape>& shape) {
    return shape->getShapeType().endsWith(".MediaShape");
}

void replaceByStill(const Reference<css::frame::XModel>& model, const Reference<XDrawPage>& slide,
                    const Reference<XShape>& media) {
    const css::uno::Any still = anyProperty(propertiesOf(media), "FallbackGraphic");
    const auto place = property<sal_Int32>(propertiesOf(media), "ZOrder");
    const css::awt::Point position = media->getPosition();
    const css::awt::Size size = media->getSize();
    slide->remove(media);
    const Reference<css::lang::XMultiServiceFactory> factory(model, UNO_QUERY);
    if (!still.hasValue() || !factory.is()) {
        return;
    }
    const Reference<XShape> picture(factory->createInstance("com.sun.star.drawing.GraphicObjectShape"),
                                    UNO_QUERY);
    slide->add(picture);
    picture->setPosition(position);
    picture->setSize(size);
    setAnyProperty(propertiesOf(picture), "Graphic", still);
    setProperty(propertiesOf(picture), "ZOrder", place);
}

// Number stored as user data of an animation node under `name`; 0 when there is none.
sal_Int16 userNumber(const Reference<XAnimationNode>& node, const char* name) {
    sal_Int16 number = 0;
    for (const css::beans::NamedValue& entry : node->getUserData()) {
        if (entry.Name.equalsAscii(name)) {
            entry.Value >>= number;
        }
    }
    return number;
}

// Finds out which shapes are visible after all animations that run without a
// click on a shape have run. Records the last entrance or exit of each shape.
class Outcome {
public:
    void follow(const Reference<XAnimationNode>& node, bool takesAway, bool decides, int depth) {
        constexpr int DEEPEST = 32;
        if (depth > DEEPEST || userNumber(node, "node-type") == EffectNodeType::INTERACTIVE_SEQUENCE) {
            return;
        }
        const sal_Int16 kind = userNumber(node, "preset-class");
        if (kind != 0) {
            takesAway = kind == EffectPresetClass::EXIT;
            decides = takesAway || kind == EffectPresetClass::ENTRANCE;
        }
        const Reference<css::animations::XAnimate> animation(node, UNO_QUERY);
        Reference<XShape> target;
        if (animation.is() && decides && (animation->getTarget() >>= target) && target.is()) {
            note(target, takesAway);
        }
        const Reference<css::container::XEnumerationAccess> parts(node, UNO_QUERY);
        if (!parts.is()) {
            return;
        }
        const auto all = parts->createEnumeration();
        while (all->hasMoreElements()) {
            if (const Reference<XAnimationNode> part(all->nextElement(), UNO_QUERY); part.is()) {
                follow(part, takesAway, decides, depth + 1);
            }
        }
    }
    void hideTakenAway() const {
        for (const auto& [shape, takenAway] : mLast) {
            if (takenAway) {
                setProperty(propertiesOf(shape), "Visible", false);
            }
        }
    }

private:
    void note(const Reference<XShape>& shape, bool takenAway) {
        const auto known =
            std::find_if(mLast.begin(), mLast.end(), [&](const auto& last) { return last.first == shape; });
        if (known == mLast.end()) {
            mLast.emplace_back(shape, takenAway);
        } else {
            known->second = takenAway;
        }
    }

    std::vector<std::pair<Reference<XShape>, bool>> mLast;
};

void hideWhatAnimationsTakeAway(const Reference<XDrawPage>& slide) {
    const Reference<css::animations::XAnimationNodeSupplier> supplier(slide, UNO_QUERY);
    if (!supplier.is()) {
        return;
    }
    if (const Reference<XAnimationNode> root = supplier->getAnimationNode(); root.is()) {
        Outcome outcome;
        outcome.follow(root, false, false, 0);
        outcome.hideTakenAway();
    }
}

// Whether a shape is a picture that is missing, such as a linked one. The suite
// shows its name in a box, as a help for editors.
bool isMissingPicture(const Reference<XShape>& shape) {
    if (!shape->getShapeType().endsWith(".GraphicObjectShape")) {
        return false;
    }
    const Reference<css::beans::XPropertySet> graphic(
        property<Reference<css::graphic::XGraphic>>(propertiesOf(shape), "Graphic"), UNO_QUERY);
    // A picture that was read from a file has the file's type, and any other has a size.
    const auto type = property<OUString>(graphic, "MimeType");
    return (type.isEmpty() || type == "image/x-vclgraphic") &&
           property<css::awt::Size>(graphic, "SizePixel").Width < 1 &&
           property<css::awt::Size>(graphic, "Size100thMM").Width < 1;
}

void hideMissingPictures(const Reference<XDrawPage>& slide) {
    visitShapes(slide, [](const Reference<XShape>& shape) {
        if (isMissingPicture(shape)) {
            setProperty(propertiesOf(shape), "Visible", false);
        }
        return true;
    });
}

} // namespace

void prepareSlide(const Reference<css::frame::XModel>& model, const Reference<XDrawPage>& slide) {
    // Do this before removing shapes, because animations refer to them.
    hideWhatAnimationsTakeAway(slide);
    for (sal_Int32 i = slide->getCount() - 1; i >= 0; --i) {
        const Reference<XShape> shape(slide->getByIndex(i), UNO_QUERY);
        if (!shape.is()) {
            continue;
        }
        if (isMedia(shape)) {
            replaceByStill(model, slide, shape);
        } else if (isEmptyPlaceholder(shape)) {
            slide->remove(shape);
        }
    }
    hideMissingPictures(slide);
}

} // namespace lectern::engine

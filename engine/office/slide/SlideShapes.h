// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/Uno.h"

#include <com/sun/star/drawing/XDrawPage.hpp>
#include <com/sun/star/drawing/XShape.hpp>

#include <functional>

namespace lectern::engine {

// What a shape is for, in the suite's own words: "TitleTextShape" and the like.
// Empty for those that are no placeholder.
OUString placeholderOf(const css::uno::Reference<css::drawing::XShape>& shape);

// Whether a placeholder has been left empty, and so only prompts who edits it.
bool isEmptyPlaceholder(const css::uno::Reference<css::drawing::XShape>& shape);

// The text of a shape; empty for a shape without one.
OUString textOf(const css::uno::Reference<css::drawing::XShape>& shape);

// Visits the shapes of a slide in drawing order, those of groups one by one. The visit
// goes on while `visit` gives true; so tells the result.
using ShapeVisit = std::function<bool(const css::uno::Reference<css::drawing::XShape>&)>;
bool visitShapes(const css::uno::Reference<css::drawing::XDrawPage>& slide, const ShapeVisit& visit);

} // namespace lectern::engine

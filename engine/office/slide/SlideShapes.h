// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/Uno.h"

#include <com/sun/star/drawing/XDrawPage.hpp>
#include <com/sun/star/drawing/XShape.hpp>

#include <functional>

namespace lectern::engine {

// The suite's name of a placeholder's type, such as "TitleTextShape"; empty for
// other shapes.
OUString placeholderOf(const css::uno::Reference<css::drawing::XShape>& shape);

// Whether a shape is an empty placeholder, which shows only a prompt for editors.
bool isEmptyPlaceholder(const css::uno::Reference<css::drawing::XShape>& shape);

// The text of a shape; empty for a shape without text.
OUString textOf(const css::uno::Reference<css::drawing::XShape>& shape);

// Visits the shapes of a slide in drawing order; for a group, its members one
// by one. Stops when `visit` returns false. Returns whether every visit
// returned true.
using ShapeVisit = std::function<bool(const css::uno::Reference<css::drawing::XShape>&)>;
bool visitShapes(const css::uno::Reference<css::drawing::XDrawPage>& slide, const ShapeVisit& visit);

} // namespace lectern::engine

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/Uno.h"

#include <com/sun/star/drawing/XDrawPage.hpp>

namespace lectern::engine {

// Replaces axial gradients, which are mirrored at their middle, by pictures of
// them, in the background and the shapes of a slide or a master page. The suite
// paints such a gradient as few stripes, and slanted ones with seams in between.
// Gradients of the cells of tables stay as they are.
void smoothAxialGradients(const css::uno::Reference<css::uno::XComponentContext>& context,
                          const css::uno::Reference<css::drawing::XDrawPage>& page);

} // namespace lectern::engine

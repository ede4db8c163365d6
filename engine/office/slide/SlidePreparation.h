// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/Uno.h"

#include <com/sun/star/drawing/XDrawPage.hpp>
#include <com/sun/star/frame/XModel.hpp>

namespace lectern::engine {

// Prepares a slide, in memory only, for viewing: removes empty placeholders,
// hides shapes that animations take away and pictures that are missing, and replaces sound and film by their
// still pictures. Playing them would need libraries that crash the process.
void prepareSlide(const css::uno::Reference<css::frame::XModel>& model,
                  const css::uno::Reference<css::drawing::XDrawPage>& slide);

} // namespace lectern::engine

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/Uno.h"

#include <com/sun/star/drawing/XDrawPage.hpp>
#include <com/sun/star/frame/XModel.hpp>

namespace lectern::engine {

// Makes a slide, which is only in memory, one to look at: placeholders that
// only prompt an editor go, what its animations take away is hidden, and sound
// and film become the still picture they came with, for playing them needs
// libraries that would bring the process down.
void prepareSlide(const css::uno::Reference<css::frame::XModel>& model,
                  const css::uno::Reference<css::drawing::XDrawPage>& slide);

} // namespace lectern::engine

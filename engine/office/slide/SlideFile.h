// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/Uno.h"

#include <string>

namespace lectern::engine {

// Whether the file of a presentation says that it has no slides; the suite puts
// an empty one into those. False for what cannot be read.
bool isWithoutSlides(const css::uno::Reference<css::uno::XComponentContext>& context,
                     const std::string& path);

} // namespace lectern::engine

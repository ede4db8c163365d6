// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/Uno.h"

#include <string>

namespace lectern::engine {

// Returns whether the file of a presentation has no slides; the suite adds an
// empty slide to such a presentation. False when the file cannot be read.
bool isWithoutSlides(const css::uno::Reference<css::uno::XComponentContext>& context,
                     const std::string& path);

} // namespace lectern::engine

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/word/Body.h"

namespace lectern::engine {

// Makes each line of a paragraph as high as what it contains. Lines of a fixed
// height, and those closer than single spacing, would cover each other where a
// font or a picture is higher.
void loosenLines(const css::uno::Reference<css::beans::XPropertySet>& paragraph);

// Does so in all paragraphs with text. One without is often made low to be a small gap.
void loosenLines(const Body& body);

} // namespace lectern::engine

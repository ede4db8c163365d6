// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/Uno.h"

namespace lectern::engine {

// The width in twips that a text must have so that four letters fit into the narrowest
// column of the table at a cursor, whose properties these are. 0 outside of tables.
//
// Tables are as wide as the text, and their columns keep their proportions; a table
// inside of another one is taken to be as wide. Letters are taken to be 0.6 times as wide
// as the font is high, as in wide words.
double leastTableWidth(const css::uno::Reference<css::beans::XPropertySet>& cursor);

} // namespace lectern::engine

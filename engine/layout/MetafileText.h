// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/DrawnText.h"

#include <span>

namespace lectern::engine {

// Reads the text drawn by a metafile of the suite, with its positions. Text
// that is drawn twice at about the same place, for example as its own shadow,
// is returned once. The bytes need not be trusted: at invalid data the function
// returns what it has read so far.
DrawnText readMetafileText(std::span<const unsigned char> metafile);

} // namespace lectern::engine

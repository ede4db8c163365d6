// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/DrawnText.h"

#include <span>

namespace lectern::engine {

// Reads what a metafile of the suite writes, and where. Text that is drawn twice
// in about the same place, as it is for its shadow, is taken once. Never trusts
// the bytes: of a metafile that makes no sense it gives what was read until then.
DrawnText readMetafileText(std::span<const unsigned char> metafile);

} // namespace lectern::engine

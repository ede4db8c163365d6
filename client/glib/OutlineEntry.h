// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/GLibHolder.h"
#include <lectern/TouchCalls.h>

#include <lectern-glib/lectern-types.h>

namespace lectern {

// number: of the entry in its outline, from 0. The caller owns the object.
LecternOutlineEntry* newOutlineEntry(const touch::OutlineEntry& entry, int number);

} // namespace lectern

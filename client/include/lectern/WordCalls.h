// SPDX-License-Identifier: Apache-2.0
// The methods of the category "/word".
#pragma once

#include <lectern/Bus.h>

#pragma GCC visibility push(default)

namespace lectern::word {

// Lays the text out wider than the view, or as wide as it. Answered when the
// worker has been told, not when it is done.
Failure wideMode(const Bus& bus, int docid, bool on, const CallLimits& limits = {});

} // namespace lectern::word

#pragma GCC visibility pop

// SPDX-License-Identifier: Apache-2.0
// The methods of the category "/word", for word-processing documents. Bus.h
// describes the threads, the errors and the limits of a call.
#pragma once

#include <lectern/Bus.h>

#pragma GCC visibility push(default)

namespace lectern::word {

// on: lays the text out wider than the view, and the view also scrolls sideways.
// Off: lays it out as wide as the view. Returns when the service has queued the
// request, not when the text is laid out; a document of another kind, or one that
// does not exist, is no error.
Failure wideMode(const Bus& bus, int docid, bool on, const CallLimits& limits = {});

} // namespace lectern::word

#pragma GCC visibility pop

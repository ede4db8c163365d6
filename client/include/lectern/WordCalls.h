// SPDX-License-Identifier: Apache-2.0
// The methods of the category "/word", for word-processing documents. Document::ask makes
// the calls that these functions return; it describes the threads, the errors and the
// limits.
#pragma once

#include <lectern/Call.h>

#pragma GCC visibility push(default)

namespace lectern::word {

// on: lays the text out wider than the view, and the view also scrolls sideways.
// Off: lays it out as wide as the view. Returns when the service has queued the
// request, not when the text is laid out; a document of another kind, or one that
// does not exist, is no error.
Call<void> wideMode(bool on);

} // namespace lectern::word

#pragma GCC visibility pop

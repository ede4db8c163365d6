// SPDX-License-Identifier: Apache-2.0
// Documents that nobody uses rest: their views and modules give back the memory of
// pictures, and restore it at the next use. Nothing else changes.
#pragma once

#include "service/Registry.h"

// The milliseconds after its last use for which a document keeps its memory. The
// environment variable LECTERN_REST_AFTER_MS changes them: a whole number above 0.
inline constexpr int REST_AFTER_MS = 60'000;

// Notes a use of an open document and wakes its view. The document rests when the time
// after its last use is over: a single timer in the main loop waits for the document
// that is next, and there is none while all documents rest.
void noteUse(Documents& document) REQUIRES(gRegistry);

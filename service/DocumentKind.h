// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "view/OfficeBase.h"

#include <memory>

// The kind that a file's name tells: by the text after its last dot, in upper
// or lower case. _UNKNOWN without one.
doctype_t KindOf(const char* fileName);

// Makes the view of a kind. width and height are the frame's, in pixels; a
// dataStoreShmId other than 0 names the state of an earlier view.
using ViewMaker = std::unique_ptr<OfficeBase> (*)(int width, int height, int docId,
                                                  unsigned int dataStoreShmId);

// Null for a kind that has no view.
ViewMaker ViewMakerOf(doctype_t kind);

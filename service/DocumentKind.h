// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "view/OfficeBase.h"

#include <memory>

// The kind of a document by its file name's extension, the text after the last
// dot, regardless of case. _UNKNOWN for another extension or none.
doctype_t KindOf(const char* fileName);

// Creates the view of one kind. width and height are the frame's, in pixels. A
// dataStoreShmId other than 0 is the identifier of an earlier view's state segment.
using ViewMaker = std::unique_ptr<OfficeBase> (*)(int width, int height, int docId,
                                                  unsigned int dataStoreShmId);

// Null for a kind that has no view.
ViewMaker ViewMakerOf(doctype_t kind);

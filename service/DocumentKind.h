// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "view/OfficeBase.h"

#include <functional>
#include <memory>

// The kind of a document by its file name's extension, the text after the last
// dot, regardless of case. _UNKNOWN for another extension or none.
doctype_t KindOf(const char* fileName);

// The kind that a client names: "word", "excel" or "ppt"; _UNKNOWN for anything else.
doctype_t KindNamed(const char* name);

// Creates the view of one kind. width and height are the frame's, in pixels. A
// dataStoreShmId other than 0 is the identifier of an earlier view's state segment.
using ViewMaker =
    std::function<std::unique_ptr<OfficeBase>(int width, int height, int docId, unsigned int dataStoreShmId)>;

// Null for a kind that has no view.
ViewMaker ViewMakerOf(doctype_t kind);
// The same for a client that asks for touch manners, on a screen with so many dots per inch.
ViewMaker TouchViewMakerOf(doctype_t kind, double dotsPerInch);

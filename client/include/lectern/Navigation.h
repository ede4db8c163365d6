// SPDX-License-Identifier: Apache-2.0
// Moves the view for programs; with classic manners by the input that a user would give. Each function
// ends with a paint, so that frame() and state() show the result. Like
// Document::paint, they belong to the thread that paints; they block, and they fail
// as paint does.
#pragma once

#include <lectern/Document.h>
#include <lectern/Point.h>

#pragma GCC visibility push(default)

namespace lectern {

// Zooms by this factor, above 0, about the view's centre. The view stops at its smallest
// or largest scale. With classic manners the same part of the document stays in view, but
// not exactly the same row, because text is laid out again.
Failure pinch(Document& document, double factor, const CallLimits& limits = {});

// Moves the view until its top left corner is at this point, in document pixels, or
// until the document ends. Returns true when the view is at the point.
Result<bool> scrollTo(Document& document, Point target, const CallLimits& limits = {});

// Shows a sheet or a slide, counted from 0. The sheet must exist, because the service
// does not check its number. A slide number out of range shows the first or the last
// slide.
Failure showSheet(Document& document, int sheet, const CallLimits& limits = {});
Failure showSlide(Document& document, int slide, const CallLimits& limits = {});

} // namespace lectern

#pragma GCC visibility pop

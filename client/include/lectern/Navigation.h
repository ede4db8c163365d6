// SPDX-License-Identifier: Apache-2.0
// Fingers for programs: moves of a view that a person would make by hand, each
// followed by a paint, so that frame() and state() show where it led.
#pragma once

#include <lectern/Document.h>
#include <lectern/Point.h>

#pragma GCC visibility push(default)

namespace lectern {

// Spreads two fingers by this factor (below 1: brings them together). The view
// keeps within its limits of scale, and keeps the neighbourhood, not the row.
Failure pinch(Document& document, double factor, const CallLimits& limits = {});

// Drags the view to a scroll position in document pixels, or as far as the
// document goes: true when it got there.
Result<bool> scrollTo(Document& document, Point target, const CallLimits& limits = {});

// Goes to a sheet or slide, counted from 0. A sheet must exist: the service does
// not check; a slide that does not is the nearest one.
Failure showSheet(Document& document, int sheet, const CallLimits& limits = {});
Failure showSlide(Document& document, int slide, const CallLimits& limits = {});

} // namespace lectern

#pragma GCC visibility pop

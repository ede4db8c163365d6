// SPDX-License-Identifier: Apache-2.0
// The methods of the category "/ppt", for presentations. Bus.h describes the
// threads, the errors and the limits of a call. A document of another kind is an
// error of kind refused with the name "errWrongType".
#pragma once

#include <lectern/Bus.h>

#include <optional>
#include <string>

#pragma GCC visibility push(default)

namespace lectern::ppt {

Result<int> getSlideCount(const Bus& bus, int docid, const CallLimits& limits = {});
// Returns the service's text, unchanged: the slides' titles, and which one is shown.
// The service does not escape titles and cuts long lists, so the text may not be
// valid JSON. Use ListReply.h to read it.
Result<std::string> getSlideList(const Bus& bus, int docid, const CallLimits& limits = {});
// Shows a slide, counted from 0, and returns its number. A number out of range
// shows the first or the last slide.
Result<int> jumpToSlide(const Bus& bus, int docid, int slide, const CallLimits& limits = {});
// Returns a JSON object with "note", the note of the shown slide, or the empty text
// when the slide has no note.
Result<std::string> getSlideNote(const Bus& bus, int docid, const CallLimits& limits = {});
// Turns the picture for a device that is turned: "left" or "right" for a device on
// its side, "down" for one upside down, any other text for an upright one. Without
// an orientation the call switches between upright and a mode that shows nothing.
Failure fitWideMode(const Bus& bus, int docid, const std::optional<std::string>& orientation = {},
                    const CallLimits& limits = {});

} // namespace lectern::ppt

#pragma GCC visibility pop

// SPDX-License-Identifier: Apache-2.0
// The methods of the category "/ppt", for presentations. Document::ask makes the calls
// that these functions return; it describes the threads, the errors and the limits. A
// document of another kind is an error of kind refused with the name "errWrongType".
#pragma once

#include <lectern/Call.h>

#include <optional>
#include <string>

#pragma GCC visibility push(default)

namespace lectern::ppt {

Call<int> getSlideCount();
// Returns the service's text, unchanged: the slides' titles, and which one is shown.
// The service does not escape titles and cuts long lists, so the text may not be
// valid JSON. Use ListReply.h to read it.
Call<std::string> getSlideList();
// Shows a slide, counted from 0, and returns its number. A number out of range
// shows the first or the last slide.
Call<int> jumpToSlide(int slide);
// Returns a JSON object with "note", the note of the shown slide, or the empty text
// when the slide has no note.
Call<std::string> getSlideNote();
// Returns the note of the shown slide; empty when it has none.
Call<std::string> getNote();
// Turns the picture for a device that is turned: "left" or "right" for a device on
// its side, "down" for one upside down, any other text for an upright one. Without
// an orientation the call switches between upright and a mode that shows nothing.
Call<void> fitWideMode(const std::optional<std::string>& orientation = {});

} // namespace lectern::ppt

#pragma GCC visibility pop

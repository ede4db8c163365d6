// SPDX-License-Identifier: Apache-2.0
// The methods of the category "/ppt": presentations.
#pragma once

#include <lectern/Bus.h>

#include <optional>
#include <string>

#pragma GCC visibility push(default)

namespace lectern::ppt {

Result<int> getSlideCount(const Bus& bus, int docid, const CallLimits& limits = {});
// The service's text, unchanged: titles and which slide is shown. Titles are
// not escaped and a long list is cut, so it need not be JSON: ListReply.h reads it.
Result<std::string> getSlideList(const Bus& bus, int docid, const CallLimits& limits = {});
// Shows a slide, counted from 0, or the nearest there is, and gives the one shown.
Result<int> jumpToSlide(const Bus& bus, int docid, int slide, const CallLimits& limits = {});
// JSON text with "note", the note of the slide shown; empty when it has none.
Result<std::string> getSlideNote(const Bus& bus, int docid, const CallLimits& limits = {});
// Fits slides to a device on its side ("right", "left") or upside down ("down");
// any other orientation is upright. Without one, goes to and fro between
// upright and as wide as the device is high.
Failure fitWideMode(const Bus& bus, int docid, const std::optional<std::string>& orientation = {},
                    const CallLimits& limits = {});

} // namespace lectern::ppt

#pragma GCC visibility pop

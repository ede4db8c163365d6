// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/GLibHolder.h"
#include <lectern/CommonCalls.h>
#include <lectern/TouchCalls.h>

#include <gio/gio.h>
#include <lectern-glib/lectern-types.h>

#include <string>
#include <vector>

namespace lectern {

// A value that a finished call hands to its caller, and how to free it.
struct Returned {
    gpointer value;
    GDestroyNotify free;
};

Returned returned(const std::string& text);
Returned returned(const touch::Selection& selection);
Returned returned(const std::vector<touch::TextLine>& lines);       // GPtrArray of LecternTextLine
Returned returned(const std::vector<touch::OutlineEntry>& entries); // GListModel of LecternOutlineEntry
Returned returned(const touch::Cell& cell);
Returned returned(const common::DocumentProperties& properties);
Returned returned(GLibHolder<GBytes> bytes);

LecternRectangle toRectangle(const touch::Rectangle& rectangle);

} // namespace lectern

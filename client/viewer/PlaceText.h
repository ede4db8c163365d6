// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern-glib/lectern-types.h>

#include <string>

namespace lectern::viewer {

// The place of a view in its document.
struct ShownPlace {
    LecternDocumentKind kind = LECTERN_DOCUMENT_KIND_UNKNOWN;
    int part = 0; // the shown slide or sheet
    int parts = 1;
    std::string sheet = {}; // its name; may be empty
    int y = 0;              // of the view's top, in pixels of the document
    int height = 0;         // of the view
    gint64 documentHeight = 0;
};

// What the indicator says: "Slide 3 of 12", "Sheet Costs", or how much of a text has been
// read, in percent.
std::string placeText(const ShownPlace& place);

// "3. Harbours", or "Slide 3" without a title. Slides count from 0.
std::string slideTitle(int slide, const std::string& title);

// "Notes of Slide 3".
std::string notesHeading(int slide);

// "Comment on B7".
std::string commentHeading(const std::string& address);

// "3 of 17", "17 results", or "No results". `hit` counts from 0 and is -1 without a
// current hit.
std::string hitText(int hit, int hits);

} // namespace lectern::viewer

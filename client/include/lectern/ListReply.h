// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

#pragma GCC visibility push(default)

namespace lectern {

// A sheet or slide of a document.
struct ListedPart {
    std::string title;
    bool shown = false; // true for the one that the view shows
    bool operator==(const ListedPart&) const = default;
};

struct PartList {
    std::vector<ListedPart> parts; // in the document's order, from the first one
    // The number of sheets or slides in the document. Larger than parts.size() when the
    // service has cut the list.
    int count = 0;
};

// Reads the reply of getSheetList or getSlideList. A JSON parser cannot read every
// such reply: the service does not escape titles, and it cuts the text to 128 bytes
// for each part. Returns an empty list for any other text.
PartList readPartList(const std::string& text);

} // namespace lectern

#pragma GCC visibility pop

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

#pragma GCC visibility push(default)

namespace lectern {

// A sheet or slide of a document.
struct ListedPart {
    std::string title;
    bool shown = false; // the one the view is at
    bool operator==(const ListedPart&) const = default;
};

struct PartList {
    std::vector<ListedPart> parts; // from the first on
    // How many the document has: more than are listed where the list was cut.
    int count = 0;
};

// Reads what getSheetList and getSlideList give. A JSON parser would not do:
// titles stand in it as they are, quotes and all, and the whole is cut at 128
// bytes for each part. What is no such list gives no parts.
PartList readPartList(const std::string& text);

} // namespace lectern

#pragma GCC visibility pop

// SPDX-License-Identifier: Apache-2.0
// The methods of the category "/common", for documents of every kind.
//
// Document::ask makes the calls that these functions return; it describes the threads,
// the errors and the limits.
#pragma once

#include <lectern/Call.h>

#include <optional>
#include <string>

#pragma GCC visibility push(default)

namespace lectern::common {

// Returns the service's JSON text, unchanged: an object with the texts "name",
// "author", "description", "lastsave" and "createdate", and for word-processing
// documents the number "wordcnt".
Call<std::string> getDocProperties();
// What a document says of itself; texts and dates that it does not
// have are empty. The dates are texts to show.
struct DocumentProperties {
    std::string name;
    std::string author;
    std::string description;
    std::string created;
    std::string saved;
    std::optional<int> words = {}; // of word-processing documents
};
// The same as values.
Call<DocumentProperties> getProperties();
// Searches without regard to case, marks the hits, moves the view to one of them and
// returns their number. In word-processing documents and presentations the search
// starts at the view's place; it covers the shown sheet of a spreadsheet and the
// whole of other documents. Presentations do not count their hits and return 0.
Call<int> search(const std::string& text);
// Move the view to the next or previous hit.
Call<void> nextResult();
Call<void> previousResult();
// Ends the search and removes its marks.
Call<void> closeSearch();
Call<void> clearSelection();
// Returns the document's MIME type. This version of the service returns the empty
// text for every document.
Call<std::string> getMimeInfo();

} // namespace lectern::common

#pragma GCC visibility pop

// SPDX-License-Identifier: Apache-2.0
// The methods of the category "/common", for documents of every kind.
//
// docid is the document's number from "create". Bus.h describes the threads, the
// errors and the limits of a call. A document that does not exist is an error of
// kind refused with the name "errDoesNotExist".
#pragma once

#include <lectern/Bus.h>

#include <string>

#pragma GCC visibility push(default)

namespace lectern::common {

// Returns the service's JSON text, unchanged: an object with the texts "name",
// "author", "description", "lastsave" and "createdate", and for word-processing
// documents the number "wordcnt".
Result<std::string> getDocProperties(const Bus& bus, int docid, const CallLimits& limits = {});
// Searches without regard to case, marks the hits, moves the view to one of them and
// returns their number. In word-processing documents and presentations the search
// starts at the view's place; it covers the shown sheet of a spreadsheet and the
// whole of other documents. Presentations do not count their hits and return 0.
Result<int> search(const Bus& bus, int docid, const std::string& text, const CallLimits& limits = {});
// Move the view to the next or previous hit.
Failure nextResult(const Bus& bus, int docid, const CallLimits& limits = {});
Failure previousResult(const Bus& bus, int docid, const CallLimits& limits = {});
// Ends the search and removes its marks.
Failure closeSearch(const Bus& bus, int docid, const CallLimits& limits = {});
Failure clearSelection(const Bus& bus, int docid, const CallLimits& limits = {});
// Returns the document's MIME type. This version of the service returns the empty
// text for every document.
Result<std::string> getMimeInfo(const Bus& bus, int docid, const CallLimits& limits = {});

} // namespace lectern::common

#pragma GCC visibility pop

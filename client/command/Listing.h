// SPDX-License-Identifier: Apache-2.0
// The service's replies as people read them: lines without control characters,
// which documents may hold and terminals would obey.
#pragma once

#include <lectern/Document.h>
#include <lectern/ListReply.h>

#include <string>

namespace lectern {

// A text on one line: runs of control characters and blanks become a blank.
std::string onOneLine(const std::string& text);
// A text of several lines: other control characters are left out.
std::string onSeveralLines(const std::string& text);

// The reply of getDocProperties, a labelled line for each property that is told.
std::string propertyListing(DocumentKind kind, const std::string& reply);
// A line for each sheet or slide: its number from 1 and its title.
std::string partListing(const PartList& list);

// The text on standard output, and that it has got there.
Failure print(const std::string& text);

} // namespace lectern

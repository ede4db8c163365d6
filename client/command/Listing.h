// SPDX-License-Identifier: Apache-2.0
// Formats the service's replies for people: without control characters, which
// documents may contain and terminals would execute.
#pragma once

#include <lectern/Document.h>
#include <lectern/ListReply.h>

#include <string>

namespace lectern {

// Makes a text one line: each run of control characters and blanks becomes one blank.
std::string onOneLine(const std::string& text);
// Removes control characters other than line feeds and tabs.
std::string onSeveralLines(const std::string& text);

// Formats the reply of getDocProperties, one labelled line for each known property.
std::string propertyListing(DocumentKind kind, const std::string& reply);
// Formats a list, one line for each sheet or slide: its number from 1 and its title.
std::string partListing(const PartList& list);

// Writes and flushes the text to the standard output.
Failure print(const std::string& text);

} // namespace lectern

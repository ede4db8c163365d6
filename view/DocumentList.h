// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>

// Writes the title of a sheet or slide, zero-terminated UTF-16, into a zeroed buffer.
using TitleReader = std::function<void(int index, std::span<uint16_t> title)>;

// Returns the list of a document's sheets or slides as text:
// {"list": [{"data":TITLE, "listitem":NUMBER FROM 1, "status":IMAGE OF THE CURRENT}, ...]}
//
// Clients expect a text of at most 128 bytes for each sheet or slide: a longer list
// is cut at a whole character. Titles are not escaped, so the text may not be valid
// JSON. It is empty if count is below 1. `current` counts from 0.
std::string documentList(int count, int current, const TitleReader& readTitle);

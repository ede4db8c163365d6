// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>

// Has a module write a part's title, zero-terminated UTF-16, into a zeroed buffer.
using TitleReader = std::function<void(int index, std::span<uint16_t> title)>;

// What a document is made of, sheets or slides:
// {"list": [{"data":TITLE, "listitem":NUMBER FROM 1, "status":IMAGE OF THE CURRENT}, ...]}
//
// Clients know it as text made in a buffer of 128 bytes for each part: a longer
// list is cut there, at a whole character, and titles are not escaped. Without
// parts the text is empty.
std::string documentList(int count, int current, const TitleReader& readTitle);

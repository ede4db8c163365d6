// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

namespace lectern::engine {

// The encoding of a plain text.
enum class TextEncoding { Utf8, Utf16LittleEndian, Utf16BigEndian, Windows1252 };

// Detects the encoding by the byte order mark, or else by validity (UTF-8) and
// by the positions of zero bytes in Western text (UTF-16). Any other text
// counts as Windows-1252.
TextEncoding detectTextEncoding(std::string_view bytes);

// Converts a text to UTF-8 without a byte order mark. Bytes that cannot be
// decoded become U+FFFD.
std::string toUtf8(std::string_view bytes, TextEncoding encoding);

} // namespace lectern::engine

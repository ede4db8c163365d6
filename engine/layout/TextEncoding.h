// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

namespace lectern::engine {

// What a plain text's bytes are written in.
enum class TextEncoding { Utf8, Utf16LittleEndian, Utf16BigEndian, Windows1252 };

// By the byte order mark; without one, by validity (UTF-8) and by where the
// zero bytes of Western text lie (UTF-16). Everything else counts as Windows
// Western European.
TextEncoding detectTextEncoding(std::string_view bytes);

// The text in UTF-8, without a byte order mark. What cannot be decoded becomes
// U+FFFD.
std::string toUtf8(std::string_view bytes, TextEncoding encoding);

} // namespace lectern::engine

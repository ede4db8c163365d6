// SPDX-License-Identifier: Apache-2.0
// Dates and text conversions for the views. Rendering modules speak UTF-16,
// the bus UTF-8; both ends are zero-terminated.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

// Local time as "Mar 1, 2010, 3:07pm" in 32 bytes that the caller frees with
// delete[]. A time beyond the calendar's years has the month "Ukn".
char* Time2String(long t);

// Zero-terminated text, freed with g_free; null when it cannot be converted.
char* ToUTF8(const unsigned short* text);
unsigned short* ToUTF16(const char* text);

// A module's text for a reply; empty when null or broken.
std::string utf8OrEmpty(const unsigned short* text);

// The same of a text in a module's buffer, which may be one that did not fit:
// what there is of it, up to its last whole character.
std::string utf8OfBuffer(std::span<uint16_t> buffer);
// The start of a UTF-8 text in at most so many bytes, without a part of a character.
std::string_view utf8Prefix(std::string_view text, size_t bytes);

// A text on its way to a module, alive as long as the object. Null and broken
// UTF-8 count as the empty text, so get() is never null.
class Utf16Text {
public:
    explicit Utf16Text(const char* text) : mText(ToUTF16(text)) {}
    ~Utf16Text();
    Utf16Text(const Utf16Text&) = delete;
    Utf16Text& operator=(const Utf16Text&) = delete;

    const unsigned short* get() const;

private:
    unsigned short* mText;
};

// SPDX-License-Identifier: Apache-2.0
// Dates and text conversions for the views. Rendering modules use UTF-16, the bus
// uses UTF-8. Both kinds of text are zero-terminated.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

// Formats seconds since 1970 as local time, "Mar 1, 2010, 3:07pm". The result has at
// most 32 bytes; the caller frees it with delete[]. The month is "Ukn" if the time
// is outside the range of the calendar.
char* Time2String(long t);

// Convert a text. The caller frees the result with g_free. Null if the text is null
// or not valid.
char* ToUTF8(const unsigned short* text);
unsigned short* ToUTF16(const char* text);

// Converts a module's text for a reply. Empty if the text is null or not valid.
std::string utf8OrEmpty(const unsigned short* text);

// Converts a text in a buffer that a module has filled. If the text did not fit into
// the buffer, returns its start, up to the last whole character. Changes the
// buffer's end.
std::string utf8OfBuffer(std::span<uint16_t> buffer);
// The longest start of a UTF-8 text that has at most `bytes` bytes and ends with a
// whole character.
std::string_view utf8Prefix(std::string_view text, size_t bytes);

// A UTF-8 text converted to UTF-16 for a module. The object owns the result. Null and
// invalid UTF-8 become the empty text, so get() is never null.
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

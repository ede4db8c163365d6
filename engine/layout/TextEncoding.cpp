// SPDX-License-Identifier: Apache-2.0
#include "engine/layout/TextEncoding.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace lectern::engine {

namespace {

constexpr char32_t REPLACEMENT = 0xFFFD;

unsigned byteAt(std::string_view bytes, size_t i) {
    return static_cast<unsigned char>(bytes[i]);
}

// Length of the valid UTF-8 sequence at i; 0 when there is none.
size_t utf8Length(std::string_view bytes, size_t i) {
    const unsigned first = byteAt(bytes, i);
    if (first < 0x80) {
        return 1;
    }
    const size_t length = first >= 0xC2 && first < 0xE0   ? 2
                          : first >= 0xE0 && first < 0xF0 ? 3
                          : first >= 0xF0 && first < 0xF5 ? 4
                                                          : 0;
    if (length == 0 || bytes.size() - i < length) {
        return 0;
    }
    for (size_t k = 1; k < length; ++k) {
        if ((byteAt(bytes, i + k) & 0xC0) != 0x80) {
            return 0;
        }
    }
    const unsigned second = byteAt(bytes, i + 1);
    const bool overlong = (first == 0xE0 && second < 0xA0) || (first == 0xF0 && second < 0x90);
    const bool surrogate = first == 0xED && second >= 0xA0;
    const bool tooHigh = first == 0xF4 && second >= 0x90;
    return overlong || surrogate || tooHigh ? 0 : length;
}

bool isUtf8(std::string_view bytes) {
    for (size_t i = 0; i < bytes.size();) {
        const size_t length = utf8Length(bytes, i);
        if (length == 0) {
            return false;
        }
        i += length;
    }
    return true;
}

// Whether at least a tenth of the units are below 256 in the given byte order
// and none is in the other, where the zero bytes would be the low ones.
bool looksLikeUtf16(std::string_view bytes, size_t highByte) {
    if (bytes.size() < 2 || bytes.size() % 2 != 0) {
        return false;
    }
    size_t zeroHigh = 0;
    size_t zeroLow = 0;
    for (size_t i = 0; i < bytes.size(); i += 2) {
        zeroHigh += bytes[i + highByte] == 0 ? 1 : 0;
        zeroLow += bytes[i + 1 - highByte] == 0 ? 1 : 0;
    }
    return zeroLow == 0 && zeroHigh * 10 >= bytes.size() / 2;
}

void appendUtf8(std::string& text, char32_t c) {
    const auto tail = [&text](char32_t bits) { text += static_cast<char>(0x80 | (bits & 0x3F)); };
    if (c < 0x80) {
        text += static_cast<char>(c);
    } else if (c < 0x800) {
        text += static_cast<char>(0xC0 | (c >> 6));
        tail(c);
    } else if (c < 0x10000) {
        text += static_cast<char>(0xE0 | (c >> 12));
        tail(c >> 6);
        tail(c);
    } else {
        text += static_cast<char>(0xF0 | (c >> 18));
        tail(c >> 12);
        tail(c >> 6);
        tail(c);
    }
}

std::string fromUtf16(std::string_view bytes, size_t highByte) {
    std::string text;
    text.reserve(bytes.size());
    const auto unit = [&](size_t i) -> char32_t {
        return byteAt(bytes, i + highByte) << 8 | byteAt(bytes, i + 1 - highByte);
    };
    for (size_t i = 0; i + 1 < bytes.size(); i += 2) {
        char32_t c = unit(i);
        if (i == 0 && c == 0xFEFF) {
            continue;
        }
        if (c >= 0xD800 && c < 0xE000) {
            const bool pair =
                c < 0xDC00 && i + 3 < bytes.size() && unit(i + 2) >= 0xDC00 && unit(i + 2) < 0xE000;
            c = pair ? 0x10000 + ((c - 0xD800) << 10) + (unit(i + 2) - 0xDC00) : REPLACEMENT;
            i += pair ? 2 : 0;
        }
        appendUtf8(text, c);
    }
    return text;
}

std::string fromWindows1252(std::string_view bytes) {
    // Characters of 0x80 to 0x9F; the rest is Latin-1. The five undefined codes
    // stay the control characters with the same number.
    static constexpr std::array<char16_t, 32> HIGH = {
        0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
        0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
        0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 8);
    for (size_t i = 0; i < bytes.size(); ++i) {
        const unsigned byte = byteAt(bytes, i);
        appendUtf8(text, byte >= 0x80 && byte < 0xA0 ? HIGH[byte - 0x80] : byte);
    }
    return text;
}

} // namespace

TextEncoding detectTextEncoding(std::string_view bytes) {
    if (bytes.starts_with("\xFF\xFE")) {
        return TextEncoding::Utf16LittleEndian;
    }
    if (bytes.starts_with("\xFE\xFF")) {
        return TextEncoding::Utf16BigEndian;
    }
    // UTF-16 of Western text is also valid UTF-8, with every second byte zero,
    // so it is tested first.
    if (looksLikeUtf16(bytes, 1)) {
        return TextEncoding::Utf16LittleEndian;
    }
    if (looksLikeUtf16(bytes, 0)) {
        return TextEncoding::Utf16BigEndian;
    }
    return isUtf8(bytes) ? TextEncoding::Utf8 : TextEncoding::Windows1252;
}

std::string toUtf8(std::string_view bytes, TextEncoding encoding) {
    switch (encoding) {
    case TextEncoding::Utf16LittleEndian:
        return fromUtf16(bytes, 1);
    case TextEncoding::Utf16BigEndian:
        return fromUtf16(bytes, 0);
    case TextEncoding::Windows1252:
        return fromWindows1252(bytes);
    case TextEncoding::Utf8:
        break;
    }
    bytes.remove_prefix(bytes.starts_with("\xEF\xBB\xBF") ? 3 : 0);
    return std::string(bytes);
}

} // namespace lectern::engine

// SPDX-License-Identifier: Apache-2.0
#include "view/TextHelpers.h"

#include <glib.h>

#include <algorithm>
#include <cstdio>
#include <ctime>

namespace {

constexpr size_t DATE_SIZE = 32;
// The upper six bits of the first unit of a surrogate pair.
constexpr uint16_t FIRST_OF_PAIR = 0xD800;

const char* prvMonthName(int month) {
    static const char* const NAMES[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                        "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    return month >= 0 && month < 12 ? NAMES[month] : "Ukn";
}

} // namespace

char* Time2String(long t) {
    const time_t seconds = t;
    tm local{};
    if (localtime_r(&seconds, &local) == nullptr) {
        local = tm{};
        local.tm_mon = -1;
    }
    const int hour = local.tm_hour % 12 == 0 ? 12 : local.tm_hour % 12;
    const long year = 1900L + local.tm_year;
    const char* suffix = local.tm_hour > 11 ? "pm" : "am";
    auto* text = new char[DATE_SIZE];
    std::snprintf(text, DATE_SIZE, "%s %d, %ld, %d:%02d%s", prvMonthName(local.tm_mon), local.tm_mday, year,
                  hour, local.tm_min, suffix);
    return text;
}

char* ToUTF8(const unsigned short* text) {
    return text != nullptr ? g_utf16_to_utf8(text, -1, nullptr, nullptr, nullptr) : nullptr;
}

unsigned short* ToUTF16(const char* text) {
    return text != nullptr ? g_utf8_to_utf16(text, -1, nullptr, nullptr, nullptr) : nullptr;
}

std::string utf8OrEmpty(const unsigned short* text) {
    char* converted = ToUTF8(text);
    std::string result = converted != nullptr ? converted : "";
    g_free(converted);
    return result;
}

std::string utf8OfBuffer(std::span<uint16_t> buffer) {
    if (buffer.empty()) {
        return {};
    }
    buffer.back() = 0;
    const auto end = std::find(buffer.begin(), buffer.end(), 0);
    const bool cut = end == buffer.end() - 1 && end != buffer.begin();
    if (cut && (end[-1] & 0xFC00) == FIRST_OF_PAIR) {
        end[-1] = 0;
    }
    return utf8OrEmpty(buffer.data());
}

std::string_view utf8Prefix(std::string_view text, size_t bytes) {
    if (bytes >= text.size()) {
        return text;
    }
    const auto isInside = [](char byte) { return (byte & 0xC0) == 0x80; };
    while (bytes > 0 && isInside(text[bytes])) {
        --bytes;
    }
    return text.substr(0, bytes);
}

Utf16Text::~Utf16Text() {
    g_free(mText);
}

const unsigned short* Utf16Text::get() const {
    static const unsigned short EMPTY = 0;
    return mText != nullptr ? mText : &EMPTY;
}

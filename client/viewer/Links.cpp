// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/Links.h"

#include "base/GLibHolder.h"

#include <algorithm>
#include <string_view>

namespace lectern::viewer {

namespace {

constexpr size_t LONGEST_SHOWN = 300; // characters; about eight lines of a phone

} // namespace

bool mayOpenLink(const std::string& address) {
    const char* const scheme = g_uri_peek_scheme(address.c_str());
    constexpr std::string_view ALLOWED[] = {"http", "https", "mailto"};
    return scheme != nullptr &&
           std::find(std::begin(ALLOWED), std::end(ALLOWED), scheme) != std::end(ALLOWED);
}

std::string shownLink(const std::string& address) {
    const GLibHolder<char> valid(g_utf8_make_valid(address.c_str(), -1));
    glong length = 0;
    const std::unique_ptr<gunichar, decltype(&g_free)> characters(
        g_utf8_to_ucs4_fast(valid.get(), -1, &length), &g_free);
    std::u32string shown(characters.get(), characters.get() + length);
    std::replace_if(
        shown.begin(), shown.end(), [](char32_t c) { return g_unichar_isprint(c) == FALSE; }, U'\uFFFD');
    if (shown.size() > LONGEST_SHOWN) {
        shown.erase(LONGEST_SHOWN / 2, shown.size() - LONGEST_SHOWN);
        shown.insert(shown.begin() + LONGEST_SHOWN / 2, U'\u2026');
    }
    const GLibHolder<char> text(g_ucs4_to_utf8(reinterpret_cast<const gunichar*>(shown.data()),
                                               static_cast<glong>(shown.size()), nullptr, nullptr, nullptr));
    return text.get();
}

} // namespace lectern::viewer

// SPDX-License-Identifier: Apache-2.0
#include "engine/office/ReadersLanguage.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <string_view>

namespace lectern::engine {

std::string readersLanguage() {
    constexpr char DEFAULT[] = "en-US";
    const char* const language = std::getenv("LECTERN_LANGUAGE");
    const std::string_view tag = language == nullptr ? "" : language;
    const bool isTag = !tag.empty() && std::all_of(tag.begin(), tag.end(), [](unsigned char c) {
        return std::isalnum(c) != 0 || c == '-';
    });
    return isTag ? std::string(tag) : DEFAULT;
}

} // namespace lectern::engine

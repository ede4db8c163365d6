// SPDX-License-Identifier: Apache-2.0
#include "client/gtk4/LinkText.h"

namespace lectern::gtk4 {

namespace {

constexpr char SPACES[] = " \t\r\n";

std::string trimmed(const std::string& text) {
    const size_t first = text.find_first_not_of(SPACES);
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(SPACES) - first + 1);
}

} // namespace

std::string linkIn(const std::string& text) {
    const std::string word = trimmed(text);
    if (word.find_first_of(SPACES) != std::string::npos) {
        return {};
    }
    for (const char* scheme : {"https://", "http://", "mailto:"}) {
        if (word.starts_with(scheme) && word.size() > std::char_traits<char>::length(scheme)) {
            return word;
        }
    }
    return word.starts_with("www.") && word.size() > 4 ? "https://" + word : std::string();
}

} // namespace lectern::gtk4

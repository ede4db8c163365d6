// SPDX-License-Identifier: Apache-2.0
#include "engine/office/FileUrl.h"

namespace lectern::engine {

std::string fileUrl(const std::string& path) {
    static constexpr char HEX[] = "0123456789ABCDEF";
    std::string url = "file://";
    for (const char c : path) {
        const auto byte = static_cast<unsigned char>(c);
        const bool letterOrDigit = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
        if (letterOrDigit || c == '/' || c == '-' || c == '.' || c == '_' || c == '~') {
            url += c;
        } else {
            url += '%';
            url += HEX[byte >> 4];
            url += HEX[byte & 15];
        }
    }
    return url;
}

} // namespace lectern::engine

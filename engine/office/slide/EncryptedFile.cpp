// SPDX-License-Identifier: Apache-2.0
#include "engine/office/slide/EncryptedFile.h"

#include <algorithm>
#include <fstream>
#include <functional>
#include <iterator>
#include <string_view>

namespace lectern::engine {

bool isEncryptedPresentation(const std::string& path) {
    constexpr std::string_view COMPOUND = "\xD0\xCF\x11\xE0";
    // Start of the record about the user who saved last: the record's size,
    // then the token that only encrypted files have.
    constexpr std::string_view ENCRYPTED_USER("\x14\x00\x00\x00\xDF\xC4\xD1\xF3", 8);
    std::ifstream file(path, std::ios::binary);
    std::string head(COMPOUND.size(), '\0');
    if (!file.read(head.data(), static_cast<std::streamsize>(head.size())) || head != COMPOUND) {
        return false;
    }
    const std::istreambuf_iterator<char> first(file);
    const std::string rest(first, {});
    return std::search(rest.begin(), rest.end(),
                       std::boyer_moore_searcher(ENCRYPTED_USER.begin(), ENCRYPTED_USER.end())) != rest.end();
}

} // namespace lectern::engine

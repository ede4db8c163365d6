// SPDX-License-Identifier: Apache-2.0
#include <lectern/ListReply.h>

#include <optional>
#include <string_view>

namespace lectern {

namespace {

constexpr size_t BYTES_FOR_APART = 128;

// Reads a text from its start to its end.
class Scanner {
public:
    explicit Scanner(std::string_view text) : mRest(text) {}

    bool skip(std::string_view expected) {
        const bool found = mRest.substr(0, expected.size()) == expected;
        mRest.remove_prefix(found ? expected.size() : 0);
        return found;
    }
    // Returns the text before the delimiter and skips both.
    std::optional<std::string> upTo(std::string_view delimiter) {
        const size_t end = mRest.find(delimiter);
        if (end == std::string_view::npos) {
            return std::nullopt;
        }
        std::string found(mRest.substr(0, end));
        mRest.remove_prefix(end + delimiter.size());
        return found;
    }

private:
    std::string_view mRest;
};

// Finds the end of a title by the number that follows it, because the title may
// contain any characters.
std::optional<ListedPart> readPart(Scanner& scanner, size_t number) {
    if (!scanner.skip("{\"data\":\"")) {
        return std::nullopt;
    }
    std::optional<std::string> title =
        scanner.upTo("\", \"listitem\":\"" + std::to_string(number) + "\", \"status\":\"");
    const std::optional<std::string> status = scanner.upTo("\"}");
    if (!title || !status) {
        return std::nullopt;
    }
    return ListedPart{std::move(*title), !status->empty()};
}

} // namespace

PartList readPartList(const std::string& text) {
    PartList list;
    Scanner scanner(text);
    if (!scanner.skip("{\"list\": [")) {
        return list;
    }
    do {
        std::optional<ListedPart> part = readPart(scanner, list.parts.size() + 1);
        if (!part) {
            break;
        }
        list.parts.push_back(std::move(*part));
    } while (scanner.skip(","));
    // The service cuts a list at a length that depends on the number of parts,
    // so the length of a cut list tells that number.
    const size_t count =
        scanner.skip("]}") ? list.parts.size() : (text.size() + BYTES_FOR_APART - 1) / BYTES_FOR_APART;
    list.count = static_cast<int>(count);
    return list;
}

} // namespace lectern

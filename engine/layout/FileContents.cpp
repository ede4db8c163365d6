// SPDX-License-Identifier: Apache-2.0
#include "engine/layout/FileContents.h"

#include "engine/layout/TextEncoding.h"

#include <algorithm>
#include <cctype>
#include <string>

namespace lectern::engine {
namespace {

bool startsWith(std::string_view text, std::string_view lowerCase) {
    return text.size() >= lowerCase.size() &&
           std::equal(lowerCase.begin(), lowerCase.end(), text.begin(),
                      [](char wanted, unsigned char c) { return wanted == std::tolower(c); });
}

std::string_view withoutSpace(std::string_view text) {
    const size_t first = text.find_first_not_of(" \t\r\n\f");
    return first == std::string_view::npos ? std::string_view() : text.substr(first);
}

// Removes an element that begins with `start`, up to the first `end`, and the space after
// it. False when the text begins with something else.
bool skip(std::string_view& text, std::string_view start, std::string_view end) {
    if (!startsWith(text, start)) {
        return false;
    }
    const size_t last = text.find(end);
    text = last == std::string_view::npos ? std::string_view() : withoutSpace(text.substr(last + end.size()));
    return true;
}

// Of a document in HTML the first element is one of these; comments and an XML
// declaration may stand before it.
bool isHtml(std::string_view text) {
    text = withoutSpace(text);
    while (skip(text, "<!--", "-->") || skip(text, "<?xml", ">")) {
    }
    return startsWith(text, "<!doctype html") || startsWith(text, "<html") || startsWith(text, "<head") ||
           startsWith(text, "<body") || startsWith(text, "<table");
}

// Text by people has next to no control characters; 1 in 200 is borne with.
bool isText(std::string_view text) {
    const auto controls = std::count_if(text.begin(), text.end(), [](unsigned char c) {
        return c < 0x20 && c != '\t' && c != '\n' && c != '\r' && c != '\f';
    });
    return text.find('\0') == std::string_view::npos && static_cast<size_t>(controls) * 200 <= text.size();
}

} // namespace

FileContents contentsOf(std::string_view head) {
    const std::string text = toUtf8(head, detectTextEncoding(head));
    const std::string_view start = withoutSpace(text);
    if (isHtml(start)) {
        return FileContents::Html;
    }
    // Rich text, and documents that are one XML file.
    if (start.starts_with("{\\rtf") || start.starts_with("<?xml") || start.starts_with("PK\x03\x04")) {
        return FileContents::Other;
    }
    return isText(text) ? FileContents::PlainText : FileContents::Other;
}

} // namespace lectern::engine

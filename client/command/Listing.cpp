// SPDX-License-Identifier: Apache-2.0
#include "client/command/Listing.h"

#include "base/GLibHolder.h"
#include "client/lib/Errors.h"
#include <lectern/CommonCalls.h>

#include <glib.h>

#include <cerrno>
#include <cstdio>

namespace lectern {

namespace {

// Applies `change` to each character of the text; characters for which it
// returns 0 are left out.
template<typename Change>
std::string changed(const std::string& text, Change change) {
    const GLibHolder<char> valid(g_utf8_make_valid(text.c_str(), static_cast<gssize>(text.size())));
    std::string result;
    for (const char* at = valid.get(); *at != '\0'; at = g_utf8_next_char(at)) {
        if (const gunichar character = change(g_utf8_get_char(at)); character != 0) {
            char bytes[6];
            result.append(bytes, static_cast<size_t>(g_unichar_to_utf8(character, bytes)));
        }
    }
    return result;
}

const char* kindName(DocumentKind kind) {
    switch (kind) {
    case DocumentKind::Spreadsheet:
        return "spreadsheet";
    case DocumentKind::WordProcessing:
        return "word-processing document";
    case DocumentKind::Presentation:
        return "presentation";
    default:
        return "";
    }
}

std::string propertyLine(const std::string& label, const std::string& value) {
    constexpr size_t LABEL_WIDTH = 13;
    const std::string text = onOneLine(value);
    return text.empty() ? "" : label + ":" + std::string(LABEL_WIDTH - label.size() - 1, ' ') + text + "\n";
}

} // namespace

std::string onOneLine(const std::string& text) {
    bool blank = true; // so that none is written at the start
    std::string line = changed(text, [&blank](gunichar character) -> gunichar {
        const bool wasBlank = blank;
        blank = g_unichar_iscntrl(character) != FALSE || g_unichar_isspace(character) != FALSE;
        return !blank ? character : wasBlank ? 0 : ' ';
    });
    if (!line.empty() && line.back() == ' ') {
        line.pop_back();
    }
    return line;
}

std::string onSeveralLines(const std::string& text) {
    return changed(text, [](gunichar character) -> gunichar {
        const bool kept = character == '\n' || character == '\t' || g_unichar_iscntrl(character) == FALSE;
        return kept ? character : 0;
    });
}

std::string propertyListing(DocumentKind kind, const std::string& reply) {
    std::string lines = propertyLine("Kind", kindName(kind));
    const auto properties = common::getProperties().read(reply);
    if (!properties) {
        return lines;
    }
    lines += propertyLine("Name", properties->name);
    lines += propertyLine("Author", properties->author);
    lines += propertyLine("Description", properties->description);
    lines += propertyLine("Created", properties->created);
    lines += propertyLine("Last saved", properties->saved);
    if (properties->words) {
        lines += propertyLine("Words", std::to_string(*properties->words));
    }
    return lines;
}

std::string partListing(const PartList& list) {
    const size_t width = std::to_string(list.parts.size()).size();
    std::string lines;
    int number = 0;
    for (const ListedPart& part : list.parts) {
        const std::string digits = std::to_string(++number);
        const std::string title = onOneLine(part.title);
        lines +=
            std::string(width - digits.size(), ' ') + digits + (title.empty() ? "" : "  " + title) + "\n";
    }
    return lines;
}

Failure print(const std::string& text) {
    errno = 0;
    if (std::fputs(text.c_str(), stdout) < 0 || std::fflush(stdout) != 0) {
        return systemError("cannot write to the standard output", errno);
    }
    return std::nullopt;
}

} // namespace lectern

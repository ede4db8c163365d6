// SPDX-License-Identifier: Apache-2.0
#include "tests/guides/Markdown.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace markdown {

namespace {

std::string trimmed(const std::string& text) {
    const size_t first = text.find_first_not_of(" \t");
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

Row cellsOf(const std::string& line) {
    Row cells;
    std::istringstream rest(line.substr(1, line.rfind('|') - 1));
    for (std::string cell; std::getline(rest, cell, '|');) {
        cells.push_back(trimmed(cell));
    }
    return cells;
}

} // namespace

std::string read(const std::string& path) {
    std::ifstream file(std::string(LECTERN_SOURCE_DIR "/") + path);
    std::ostringstream text;
    text << file.rdbuf();
    EXPECT_FALSE(text.str().empty()) << path;
    return text.str();
}

std::vector<Table> tables(const std::string& text) {
    std::vector<Table> found;
    std::string heading;
    bool inTable = false;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind('#', 0) == 0) {
            heading = trimmed(line.substr(line.find_first_not_of('#')));
        }
        if (line.rfind('|', 0) != 0) {
            inTable = false;
        } else if (!inTable) {
            inTable = true;
            found.push_back({heading, cellsOf(line), {}});
        } else if (line.rfind("|---", 0) != 0 && line.rfind("| ---", 0) != 0) {
            found.back().rows.push_back(cellsOf(line));
        }
    }
    return found;
}

Table table(const std::string& path, const std::string& heading, const std::string& firstColumn) {
    for (const Table& found : tables(read(path))) {
        if (found.heading == heading && found.columns.at(0) == firstColumn) {
            return found;
        }
    }
    ADD_FAILURE() << path << " has no table of " << firstColumn << " under " << heading;
    return {};
}

std::vector<std::string> blocks(const std::string& text, const std::string& language) {
    std::vector<std::string> found;
    const std::string fence = "\n```" + language + "\n";
    for (size_t at = text.find(fence); at != std::string::npos; at = text.find(fence, at)) {
        at += fence.size();
        const size_t end = text.find("\n```\n", at - 1);
        found.push_back(text.substr(at, end + 1 - at));
        at = end;
    }
    return found;
}

std::vector<std::string> codes(const std::string& cell) {
    std::vector<std::string> found;
    for (size_t start = cell.find('`'); start != std::string::npos;) {
        const size_t end = cell.find('`', start + 1);
        found.push_back(cell.substr(start + 1, end - start - 1));
        start = end == std::string::npos ? end : cell.find('`', end + 1);
    }
    return found;
}

} // namespace markdown

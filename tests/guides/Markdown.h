// SPDX-License-Identifier: Apache-2.0
// The documents of docs/ as tests read them: tables and code blocks.
#pragma once

#include <string>
#include <vector>

namespace markdown {

using Row = std::vector<std::string>; // cells, without surrounding blanks

struct Table {
    std::string heading; // of the table's section, without the marks
    Row columns;
    std::vector<Row> rows;
};

// The text of a file in the source tree; fails the test when the file does not exist.
std::string read(const std::string& path);
std::vector<Table> tables(const std::string& text);
// The table with this section heading and this name of its first column; fails
// the test when there is none.
Table table(const std::string& path, const std::string& heading, const std::string& firstColumn);
// The contents of all blocks fenced as ```language.
std::vector<std::string> blocks(const std::string& text, const std::string& language);
// The texts between back-quotes.
std::vector<std::string> codes(const std::string& cell);

} // namespace markdown

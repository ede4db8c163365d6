// SPDX-License-Identifier: Apache-2.0
// The documents of docs/ as tests read them: tables and blocks of code.
#pragma once

#include <string>
#include <vector>

namespace markdown {

using Row = std::vector<std::string>; // cells, without the blanks around them

struct Table {
    std::string heading; // of the section it stands in, without the marks
    Row columns;
    std::vector<Row> rows;
};

// The text of a file of the source tree; fails the test when there is none.
std::string read(const std::string& path);
std::vector<Table> tables(const std::string& text);
// The one of a file whose section and first column are called so; fails the test
// when there is none.
Table table(const std::string& path, const std::string& heading, const std::string& firstColumn);
// The contents of all blocks fenced as ```language.
std::vector<std::string> blocks(const std::string& text, const std::string& language);
// What stands between back-quotes.
std::vector<std::string> codes(const std::string& cell);

} // namespace markdown

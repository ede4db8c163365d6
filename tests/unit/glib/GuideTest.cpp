// SPDX-License-Identifier: Apache-2.0
// The guide shows the programs that are built and run.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

namespace {

std::string contents(const std::string& path) {
    std::ifstream file(std::string(LECTERN_SOURCE_DIR) + path);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

// The program from this line on.
std::string from(const std::string& program, const std::string& line) {
    const size_t start = program.find(line);
    return start == std::string::npos ? "no such line" : program.substr(start);
}

TEST(Guide, ShowsTheProgramInPython) {
    const std::string program = contents("/client/glib/example/first_page.py");
    EXPECT_NE(contents("/docs/glib.md").find("```python\n" + from(program, "import sys") + "```\n"),
              std::string::npos);
}

TEST(Guide, ShowsTheProgramInC) {
    const std::string program = contents("/client/glib/example/first-page.c");
    EXPECT_NE(contents("/docs/glib.md").find("```c\n" + from(program, "#include") + "```\n"),
              std::string::npos);
}

} // namespace

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

void expectShown(const std::string& guide, const std::string& language, const std::string& program,
                 const std::string& firstLine) {
    const std::string block = "```" + language + "\n" + from(contents(program), firstLine) + "```\n";
    EXPECT_NE(contents(guide).find(block), std::string::npos) << guide << " does not show " << program;
}

TEST(Guide, ShowsTheProgramsWithoutAToolkit) {
    expectShown("/docs/glib.md", "python", "/client/glib/example/first_page.py", "import sys");
    expectShown("/docs/glib.md", "c", "/client/glib/example/first-page.c", "#include");
}

TEST(Guide, ShowsTheProgramsWithTheWidget) {
    expectShown("/docs/gtk4.md", "python", "/client/gtk4/example/lectern_show.py", "import sys");
    expectShown("/docs/gtk4.md", "c", "/client/gtk4/example/lectern-show.c", "#include");
}

} // namespace

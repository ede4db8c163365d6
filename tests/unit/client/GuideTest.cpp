// SPDX-License-Identifier: Apache-2.0
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

TEST(ClientGuide, ShowsTheProgramThatIsCompiled) {
    const std::string program = contents("/client/example/Pan.cpp");
    const size_t start = program.find("#include");
    ASSERT_NE(start, std::string::npos);
    const std::string block = "```cpp\n" + program.substr(start) + "```\n";
    EXPECT_NE(contents("/docs/client.md").find(block), std::string::npos);
}

} // namespace

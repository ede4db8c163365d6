// SPDX-License-Identifier: Apache-2.0
// docs/results.md and docs/engine.md tell what the code has.
#include "tests/guides/Markdown.h"

#include <gtest/gtest.h>

#include <map>
#include <regex>
#include <set>
#include <sstream>

namespace {

std::vector<std::smatch> matches(const std::string& text, const std::regex& expression) {
    return {std::sregex_iterator(text.begin(), text.end(), expression), {}};
}

TEST(ResultsGuide, HasEveryCodeOfTheModulesWithItsNumber) {
    const std::string header = markdown::read("modules/ModuleResults.h");
    std::map<int, std::string> codes;
    for (const std::smatch& code : matches(header, std::regex(R"((MODULE_\w+) = (\d+))"))) {
        codes[std::stoi(code[2])] = code[1];
    }
    std::map<int, std::string> told;
    for (const markdown::Row& row :
         markdown::table("docs/results.md", "The codes of Lectern's modules", "Code").rows) {
        std::istringstream numbers(row.at(0));
        for (const std::string& name : markdown::codes(row.at(1))) {
            std::string number;
            ASSERT_TRUE(std::getline(numbers, number, ',')) << name;
            told[std::stoi(number)] = name;
        }
    }
    EXPECT_EQ(told, codes);
}

TEST(EngineGuide, NamesTheVariablesThatChangeDeadlines) {
    const std::string settings = markdown::read("engine/host/EngineSettings.cpp");
    std::set<std::string> variables;
    for (const std::smatch& variable : matches(settings, std::regex(R"(limitFrom\("(\w+)\")"))) {
        variables.insert(variable[1]);
    }
    std::set<std::string> told;
    for (const markdown::Row& row : markdown::table("docs/engine.md", "Deadlines", "Deadline").rows) {
        for (const std::string& name : markdown::codes(row.at(3))) {
            told.insert(name);
        }
    }
    EXPECT_EQ(told, variables);
}

} // namespace

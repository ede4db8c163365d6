// SPDX-License-Identifier: Apache-2.0
#include "tests/guides/BusGuide.h"

#include "tests/guides/Markdown.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

void addParameters(GuideMethod& method, const std::string& cell) {
    std::istringstream words(cell);
    for (std::string word; words >> word;) {
        const bool optional = word.front() == '(';
        for (const std::string& name : markdown::codes(word)) {
            (optional ? method.optional : method.required).push_back(name);
        }
    }
}

std::vector<GuideMethod> methodsOf(const char* guide) {
    std::vector<GuideMethod> methods;
    for (const markdown::Table& table : markdown::tables(markdown::read(guide))) {
        if (table.columns.at(0) != "Method") {
            continue;
        }
        EXPECT_EQ(table.columns, (markdown::Row{"Method", "Parameters", "Missing", "Reply", "Paint"}));
        for (const markdown::Row& row : table.rows) {
            GuideMethod method;
            method.category = table.heading.substr(0, table.heading.find(':'));
            method.name = markdown::codes(row.at(0)).at(0);
            addParameters(method, row.at(1));
            method.missing = row.at(2);
            if (row.at(3) != "none") {
                method.reply = markdown::codes(row.at(3)).at(0);
            }
            method.paint = row.at(4);
            methods.push_back(method);
        }
    }
    return methods;
}

} // namespace

std::string GuideMethod::missingText(size_t parameter) const {
    const size_t then = missing.find("; then ");
    if (parameter > 0 && then != std::string::npos) {
        return markdown::codes(missing.substr(then)).at(0);
    }
    const std::string first = missing.substr(0, then);
    EXPECT_TRUE(first == "docid" || first == "parameter") << name << ": " << missing;
    return first == "docid" ? "failed to get docid" : "failed to get required parameter";
}

std::vector<GuideMethod> busGuide() {
    std::vector<GuideMethod> methods = methodsOf("docs/bus.md");
    const std::vector<GuideMethod> touch = methodsOf("docs/touch.md");
    methods.insert(methods.end(), touch.begin(), touch.end());
    return methods;
}

std::vector<std::string> busGuideCommands() {
    std::vector<std::string> commands;
    for (const char* guide : {"docs/bus.md", "docs/touch.md"}) {
        for (const std::string& block : markdown::blocks(markdown::read(guide), "sh")) {
            std::istringstream lines(block);
            for (std::string line; std::getline(lines, line);) {
                commands.push_back(line);
            }
        }
    }
    return commands;
}

// SPDX-License-Identifier: Apache-2.0
// The optional functions that docs/modules.md lists, compared with their header.
#include "tests/guides/Markdown.h"

#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <string>

namespace {

std::set<std::string> declaredIn(const std::string& header) {
    const std::string text = markdown::read(header);
    const std::regex declaration(R"(LECTERN_MODULE_EXPORT int32_t (\w+)\()");
    std::set<std::string> names;
    for (std::sregex_iterator i(text.begin(), text.end(), declaration), end; i != end; ++i) {
        names.insert((*i)[1]);
    }
    return names;
}

TEST(ModuleGuide, NamesEveryOptionalFunctionOfTexts) {
    std::set<std::string> named;
    for (const markdown::Row& row :
         markdown::table("docs/modules.md", "Optional functions of texts", "Optional function").rows) {
        for (const std::string& name : markdown::codes(row.at(0))) {
            named.insert(name);
        }
    }
    EXPECT_EQ(named, declaredIn("modules/TouchWordFunctions.h"));
    EXPECT_EQ(named.size(), 8U);
}

} // namespace

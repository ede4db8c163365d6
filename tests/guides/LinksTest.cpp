// SPDX-License-Identifier: Apache-2.0
// The links in the documents have targets.
#include "tests/guides/Markdown.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <set>

namespace {

namespace fs = std::filesystem;

const fs::path ROOT = LECTERN_SOURCE_DIR;

// Paths from the top of the source tree.
std::set<std::string> documents() {
    std::set<std::string> names = {"README.md"};
    for (const auto& entry : fs::directory_iterator(ROOT / "docs")) {
        if (entry.path().extension() == ".md") {
            names.insert("docs/" + entry.path().filename().string());
        }
    }
    return names;
}

// The documents and the pages for developers of the source tree.
std::set<std::string> pages() {
    std::set<std::string> names = documents();
    names.insert({"CHANGELOG.md", "CONTRIBUTING.md", "tests/README.md"});
    return names;
}

// The first groups of all matches of a pattern in a text.
std::set<std::string> matches(const std::string& text, const char* pattern) {
    const std::regex expression(pattern);
    std::set<std::string> found;
    for (std::sregex_iterator at(text.begin(), text.end(), expression), end; at != end; ++at) {
        found.insert((*at)[1]);
    }
    return found;
}

TEST(Guides, LinksLeadSomewhere) {
    size_t links = 0;
    for (const std::string& name : pages()) {
        for (const std::string& target : matches(markdown::read(name), R"(\]\(([^)#: ]+)\))")) {
            EXPECT_TRUE(fs::exists((ROOT / name).parent_path() / target)) << name << ": " << target;
            ++links;
        }
    }
    EXPECT_GE(links, 20U);
}

TEST(Guides, FilesAndFoldersOfTheTreeThatAreNamedExist) {
    size_t names = 0;
    for (const std::string& document : documents()) {
        for (const std::string& name :
             matches(markdown::read(document),
                     "`((?:service|hub|word|excel|ppt|view|raster|channel|modules|engine|client|docs|scripts|"
                     "tests|samples)/[A-Za-z0-9_./-]*)`")) {
            EXPECT_TRUE(fs::exists(ROOT / name)) << document << ": " << name;
            ++names;
        }
    }
    EXPECT_GE(names, 20U);
}

TEST(Guides, TheReadmeNamesEveryDocument) {
    std::set<std::string> named = matches(markdown::read("README.md"), R"(\]\((docs/[a-z0-9]+\.md)\))");
    named.insert("README.md");
    EXPECT_EQ(named, documents());
}

} // namespace

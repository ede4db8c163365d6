// SPDX-License-Identifier: Apache-2.0
// The shell's completions, --help and the manual page must list the same
// commands and options.
#include "base/GLibHolder.h"
#include "client/command/Subcommands.h"
#include "client/command/play/Instructions.h"

#include <glib.h>
#include <gmock/gmock.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <set>
#include <sstream>

namespace {

using lectern::GLibHolder;
using testing::Contains;
using testing::IsEmpty;
using testing::UnorderedElementsAre;
using Names = std::set<std::string>;

std::string contents(const std::string& path) {
    std::ifstream file(std::string(LECTERN_SOURCE_DIR) + path);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

// The first group of each match of a Perl-style regular expression.
Names matches(const std::string& text, const char* expression) {
    const GLibHolder<GRegex> pattern(
        g_regex_new(expression, G_REGEX_MULTILINE, G_REGEX_MATCH_DEFAULT, nullptr));
    GLibHolder<GMatchInfo> match;
    g_regex_match(pattern.get(), text.c_str(), G_REGEX_MATCH_DEFAULT, out(match));
    Names found;
    for (; g_match_info_matches(match.get()) != FALSE; g_match_info_next(match.get(), nullptr)) {
        const GLibHolder<char> group(g_match_info_fetch(match.get(), 1));
        found.insert(group.get());
    }
    return found;
}

std::string helpOf(const lectern::Subcommand& subcommand) {
    testing::internal::CaptureStdout();
    EXPECT_EQ(subcommand.run({"--help"}), 0);
    return testing::internal::GetCapturedStdout();
}

Names optionsInHelp(const std::string& help) {
    return matches(help, R"(^ +(?:-\w, )?(--[a-z]+=?))");
}

// The manual page's section about a sub-command, with plain hyphens.
std::string sectionOf(const std::string& subcommand) {
    std::string page = contents("/docs/man/lectern.1");
    for (size_t at = page.find("\\-"); at != std::string::npos; at = page.find("\\-", at)) {
        page.erase(at, 1);
    }
    const size_t start = page.find(".SS lectern " + subcommand + "\n");
    return start == std::string::npos ? "" : page.substr(start, page.find("\n.S", start) - start);
}

// The completions that bash offers for the last of these words after "lectern".
Names completions(const std::string& words, const std::string& folder = "/") {
    const std::string script =
        "cd '" + folder +
        "' && source '" LECTERN_SOURCE_DIR "/client/completions/lectern' && COMP_WORDS=(lectern " + words +
        ") && COMP_CWORD=$((${#COMP_WORDS[@]} - 1)) && _lectern; "
        "printf '%s\\n' \"${COMPREPLY[@]}\"";
    const std::string path = testing::TempDir() + "lectern-completion-" + std::to_string(getpid()) + ".sh";
    std::ofstream(path) << script;
    Names found;
    if (std::FILE* output = popen(("bash " + path).c_str(), "re")) {
        char line[256];
        while (std::fgets(line, sizeof line, output) != nullptr) {
            const std::string word = line;
            if (word.size() > 1) {
                found.insert(word.substr(0, word.size() - 1));
            }
        }
        EXPECT_EQ(pclose(output), 0);
    }
    std::remove(path.c_str());
    return found;
}

TEST(CommandsNames, AreTheSameInHelpCompletionAndManual) {
    Names commands;
    for (const lectern::Subcommand& subcommand : lectern::subcommands()) {
        commands.insert(subcommand.name);
    }
    const std::string help = lectern::generalHelp();
    EXPECT_EQ(matches(help.substr(help.find("Commands:")), "^  ([a-z]+) "), commands);
    EXPECT_EQ(matches(contents("/docs/man/lectern.1"), R"(^\.SS lectern ([a-z]+)$)"), commands);
    EXPECT_EQ(matches(contents("/docs/man/lectern.1"), R"(^\.B lectern ([a-z]+)$)"), commands) << "synopsis";
    commands.insert({"--help", "--version"});
    EXPECT_EQ(completions("''"), commands);
}

TEST(CommandsOptions, AreTheSameInHelpCompletionAndManual) {
    for (const lectern::Subcommand& subcommand : lectern::subcommands()) {
        const Names options = optionsInHelp(helpOf(subcommand));
        EXPECT_THAT(options, Contains("--help"));
        EXPECT_EQ(completions(std::string(subcommand.name) + " --"), options) << subcommand.name;
        Names plain{"--help"};
        for (const std::string& option : options) {
            plain.insert(option.substr(0, option.find('=')));
        }
        Names told = matches(sectionOf(subcommand.name), "(--[a-z]+)");
        told.insert("--help");
        EXPECT_EQ(told, plain) << subcommand.name;
    }
}

TEST(CommandsOptions, ThatTakeAValueDoSoInTheManual) {
    for (const lectern::Subcommand& subcommand : lectern::subcommands()) {
        const std::string section = sectionOf(subcommand.name);
        for (const std::string& option : optionsInHelp(helpOf(subcommand))) {
            if (option.back() == '=') {
                const std::string name = option.substr(0, option.size() - 1);
                EXPECT_NE(section.find(name + " ="), std::string::npos) << subcommand.name << " " << option;
            }
        }
    }
}

TEST(ScriptInstructions, AreAllInTheManual) {
    const Names told = matches(sectionOf("play"), R"(^\.BI? ([a-z]+))");
    for (const std::string& form : lectern::play::instructionForms()) {
        EXPECT_THAT(told, Contains(form.substr(0, form.find(' '))));
    }
}

class Completion : public testing::Test {
protected:
    Completion() {
        std::string pattern = testing::TempDir() + "lectern-completion-XXXXXX";
        mFolder = mkdtemp(pattern.data());
        for (const char* name : {"a.docx", "a b.xls", "c.png", "d.play", "e.cpp"}) {
            std::ofstream(mFolder + "/" + name) << "x";
        }
    }
    ~Completion() override { std::filesystem::remove_all(mFolder); }

    Names after(const std::string& words) const { return completions(words, mFolder); }

    std::string mFolder;
};

TEST_F(Completion, OffersDocumentsWhereOneIsWanted) {
    EXPECT_THAT(after("open ''"), UnorderedElementsAre("a.docx", "a b.xls"));
    EXPECT_THAT(after("info a.d"), UnorderedElementsAre("a.docx"));
    EXPECT_THAT(after("open --size = 320x480 --zoom 2 -o c.png --wide ''"),
                UnorderedElementsAre("a.docx", "a b.xls"));
    EXPECT_THAT(after("open a.docx ''"), IsEmpty());
}

TEST_F(Completion, OffersDocumentsForEachWindow) {
    EXPECT_THAT(after("view a.docx ''"), UnorderedElementsAre("a.docx", "a b.xls"));
}

TEST_F(Completion, OffersAScriptFirstAndThenADocument) {
    EXPECT_THAT(after("play ''"), UnorderedElementsAre("d.play"));
    EXPECT_THAT(after("play d.play ''"), UnorderedElementsAre("a.docx", "a b.xls"));
}

TEST_F(Completion, OffersValuesOfOptions) {
    EXPECT_THAT(after("open -o ''"), UnorderedElementsAre("c.png"));
    EXPECT_THAT(after("open --output ''"), UnorderedElementsAre("c.png"));
    EXPECT_THAT(after("open --output = c"), UnorderedElementsAre("c.png"));
    EXPECT_THAT(after("open --size = 48"), UnorderedElementsAre("480x800"));
    EXPECT_THAT(after("open --zoom ''"), IsEmpty());
}

TEST_F(Completion, OffersTheServicesCategories) {
    EXPECT_THAT(after("call ''"),
                UnorderedElementsAre("/common", "/events", "/word", "/excel", "/ppt", "/touch"));
    EXPECT_THAT(after("serve ''"), IsEmpty());
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
// Modules that cannot be used end the process, so each is loaded in a child process.
#include "FunctionNames.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

struct Kind {
    const char* prefix;
    const char* file;
    std::vector<std::string> names;
};

const Kind KINDS[] = {
    {"wtg", "WordToGoModule.so", {std::begin(WORD_FUNCTIONS), std::end(WORD_FUNCTIONS)}},
    {"stg", "SheetToGoModule.so", {std::begin(SHEET_FUNCTIONS), std::end(SHEET_FUNCTIONS)}},
    {"sstg", "SlideshowToGoModule.so", {std::begin(SLIDE_FUNCTIONS), std::end(SLIDE_FUNCTIONS)}},
};

struct Outcome {
    int status; // exit status; -1 when a signal ended it
    std::string output;
    std::string errors;
};

std::string contents(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

class Loading : public testing::Test {
protected:
    Loading() {
        std::string pattern = (fs::temp_directory_path() / "modules-test-XXXXXX").string();
        mDirectory = mkdtemp(pattern.data());
        fs::create_directory(modules());
    }
    ~Loading() override { fs::remove_all(mDirectory); }

    fs::path modules() const { return mDirectory / "modules"; }

    // Fills a table in a process that searches modules() for modules.
    Outcome load(const Kind& kind) const {
        std::string path = "LD_LIBRARY_PATH=" + modules().string();
        std::string program = LOADER_PROGRAM;
        std::string prefix = kind.prefix;
        char* const arguments[] = {program.data(), prefix.data(), nullptr};
        char* const environment[] = {path.data(), nullptr};
        const fs::path output = mDirectory / "output";
        const fs::path errors = mDirectory / "errors";
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        const int flags = O_WRONLY | O_CREAT | O_TRUNC;
        posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, output.c_str(), flags, 0600);
        posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, errors.c_str(), flags, 0600);
        pid_t child = -1;
        const int spawned = posix_spawn(&child, LOADER_PROGRAM, &actions, nullptr, arguments, environment);
        posix_spawn_file_actions_destroy(&actions);
        if (spawned != 0) {
            ADD_FAILURE() << "cannot start " LOADER_PROGRAM;
            return {-1, "", ""};
        }
        int status = 0;
        waitpid(child, &status, 0);
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, contents(output), contents(errors)};
    }

    // A copy of the complete module in which one function has another name, so
    // that its symbol is missing.
    void writeModuleWithout(const Kind& kind, const std::string& name) const {
        std::string module = contents(fs::path(MODULE_DIR) / kind.file);
        const std::string entry = '\0' + name + '\0';
        size_t found = 0;
        for (size_t at = module.find(entry); at != std::string::npos; at = module.find(entry, at + 1)) {
            module[at + name.size()] = '#';
            found++;
        }
        ASSERT_GT(found, 0U) << name;
        std::ofstream(modules() / kind.file, std::ios::binary | std::ios::trunc) << module;
    }

    fs::path mDirectory;
};

TEST_F(Loading, FindsACompleteModuleAlongTheSearchPath) {
    for (const Kind& kind : KINDS) {
        fs::copy(fs::path(MODULE_DIR) / kind.file, modules());
        const Outcome outcome = load(kind);
        EXPECT_EQ(outcome.status, 0) << kind.file;
        EXPECT_EQ(outcome.output, "loaded\n");
        EXPECT_EQ(outcome.errors, "");
    }
}

// Functions that are not called may be undefined, and a null address that the
// loader does not report as an error is accepted.
TEST_F(Loading, BindsLazilyAndAcceptsANullAddress) {
    fs::copy(fs::path(UNBOUND_MODULE_DIR) / KINDS[2].file, modules());
    const Outcome outcome = load(KINDS[2]);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, "loaded\n");
    EXPECT_EQ(outcome.errors, "");
}

TEST_F(Loading, OfAMissingModuleEndsTheProcessWithTheLoadersMessage) {
    for (const Kind& kind : KINDS) {
        const Outcome outcome = load(kind);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.output, "");
        EXPECT_EQ(outcome.errors,
                  std::string(kind.file) + ": cannot open shared object file: No such file or directory\n");
    }
}

TEST_F(Loading, OfAFileThatIsNoModuleEndsTheProcess) {
    for (const Kind& kind : KINDS) {
        std::ofstream(modules() / kind.file)
            << "not a shared object, but long enough to look like a header\n";
        const Outcome outcome = load(kind);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_NE(outcome.errors.find(kind.file), std::string::npos) << outcome.errors;
    }
}

TEST_F(Loading, OfAModuleThatLacksAnySingleFunctionEndsTheProcess) {
    for (const Kind& kind : KINDS) {
        for (const std::string& name : kind.names) {
            writeModuleWithout(kind, name);
            const Outcome outcome = load(kind);
            EXPECT_EQ(outcome.status, 1) << name;
            EXPECT_EQ(outcome.output, "") << name;
            EXPECT_EQ(outcome.errors,
                      (modules() / kind.file).string() + ": undefined symbol: " + name + "\n");
        }
    }
}

} // namespace

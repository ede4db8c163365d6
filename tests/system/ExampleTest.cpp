// SPDX-License-Identifier: Apache-2.0
// Runs the client guide's example as a reader would.
#include "tests/system/support/Subprocess.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <filesystem>

namespace {

class ExampleTest : public testing::Test {
protected:
    // Runs the example; returns its wait status.
    std::optional<int> run(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), EXAMPLE_PROGRAM);
        const std::map<std::string, std::string> nothingOfTheMachines = {{"DBUS_SESSION_BUS_ADDRESS", ""},
                                                                         {"XDG_RUNTIME_DIR", ""}};
        example = std::make_unique<Subprocess>(arguments, nothingOfTheMachines, folder.path() + "/example");
        return example->wait(std::chrono::seconds(120));
    }
    static constexpr char HEADER[] = "P7\nWIDTH 480\nHEIGHT 800\nDEPTH 3\nMAXVAL 255\nENDHDR\n";

    TemporaryFolder folder;
    std::unique_ptr<Subprocess> example;
};

TEST_F(ExampleTest, WritesAPictureForEveryStepOfThePan) {
    ASSERT_EQ(run({SAMPLE, folder.path() + "/p"}), std::optional<int>(0)) << example->errors();
    int count = 0;
    int row = 0;
    ASSERT_EQ(std::sscanf(example->output().c_str(), "%d pictures, now at row %d", &count, &row), 2);
    EXPECT_GE(count, 12);
    EXPECT_GT(row, 0);
    const std::string first = readFile(folder.path() + "/p-1.pam");
    EXPECT_EQ(first.size(), sizeof HEADER - 1 + 480 * 800 * 3);
    EXPECT_EQ(first.rfind(HEADER, 0), 0U);
    EXPECT_NE(first, readFile(folder.path() + "/p-" + std::to_string(count) + ".pam"));
    EXPECT_FALSE(std::filesystem::exists(folder.path() + "/p-" + std::to_string(count + 1) + ".pam"));
}

TEST_F(ExampleTest, ShowsItInATerminal) {
    ASSERT_EQ(run({SAMPLE}), std::optional<int>(0)) << example->errors();
    EXPECT_NE(example->output().find("\033[48;2;255;255;255m"), std::string::npos) << "no white paper";
}

TEST_F(ExampleTest, SaysWhatIsWrong) {
    EXPECT_EQ(run({"/nonexistent/a.docx"}), std::optional<int>(W_EXITCODE(1, 0)));
    EXPECT_NE(example->errors().find("there is no such file"), std::string::npos);
}

} // namespace

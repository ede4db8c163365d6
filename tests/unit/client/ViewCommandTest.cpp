// SPDX-License-Identifier: Apache-2.0
// How the command starts the viewer.
#include <gmock/gmock.h>
#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace {

using testing::HasSubstr;

struct Outcome {
    std::string output; // of both streams
    int status = -1;
};

Outcome run(const std::string& line) {
    Outcome outcome;
    if (std::FILE* stream = popen((line + " 2>&1").c_str(), "re")) {
        char part[256];
        while (std::fgets(part, sizeof part, stream) != nullptr) {
            outcome.output += part;
        }
        outcome.status = WEXITSTATUS(pclose(stream));
    }
    return outcome;
}

TEST(ViewCommand, HandsItsFilesToTheViewer) {
    const Outcome outcome = run("LECTERN_VIEWER=/bin/echo " LECTERN_COMMAND " view 'a b.docx' c.xls");
    EXPECT_EQ(outcome.output, "-- a b.docx c.xls\n");
    EXPECT_EQ(outcome.status, 0);
}

TEST(ViewCommand, EndsWithTheViewersStatus) {
    EXPECT_EQ(run("LECTERN_VIEWER=/bin/false " LECTERN_COMMAND " view").status, 1);
}

TEST(ViewCommand, SaysHowToGetAMissingViewer) {
    std::string folder = testing::TempDir() + "lectern-view-XXXXXX";
    ASSERT_NE(mkdtemp(folder.data()), nullptr);
    std::filesystem::copy(LECTERN_COMMAND, folder + "/lectern");
    const Outcome outcome = run("PATH=" + folder + " " + folder + "/lectern view a.docx");
    std::filesystem::remove_all(folder);
    EXPECT_THAT(outcome.output, HasSubstr("the viewer is not installed"));
    EXPECT_THAT(outcome.output, HasSubstr("cmake --preset viewer"));
    EXPECT_EQ(outcome.status, 1);
}

TEST(ViewCommand, NamesAViewerThatDoesNotStart) {
    const Outcome outcome = run("LECTERN_VIEWER=/nowhere/viewer " LECTERN_COMMAND " view");
    EXPECT_THAT(outcome.output, HasSubstr("/nowhere/viewer cannot be started: No such file"));
    EXPECT_EQ(outcome.status, 1);
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
#include "client/command/OutputFile.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace {

using namespace lectern;
using testing::HasSubstr;

class OutputFile : public testing::Test {
protected:
    OutputFile() {
        std::string pattern = testing::TempDir() + "lectern-output-XXXXXX";
        mFolder = mkdtemp(pattern.data());
    }
    ~OutputFile() override { std::filesystem::remove_all(mFolder); }

    std::string path(const char* name) const { return mFolder / name; }
    static std::string contents(const std::string& path) {
        std::ifstream file(path);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    size_t files() const {
        return static_cast<size_t>(std::distance(std::filesystem::directory_iterator(mFolder),
                                                 std::filesystem::directory_iterator()));
    }

    std::filesystem::path mFolder;
};

bool writeWord(std::FILE* stream) {
    return std::fputs("word", stream) >= 0;
}
bool writeHalf(std::FILE* stream) {
    return std::fputs("wo", stream) < 0;
}

TEST_F(OutputFile, IsWrittenWholeAndAlone) {
    EXPECT_FALSE(checkOutput(path("a")));
    EXPECT_FALSE(writeOutput(path("a"), writeWord));
    EXPECT_EQ(contents(path("a")), "word");
    EXPECT_EQ(files(), 1U);
}

TEST_F(OutputFile, MayBeStandardOutput) {
    testing::internal::CaptureStdout();
    EXPECT_FALSE(checkOutput("-"));
    EXPECT_FALSE(writeOutput("-", writeWord));
    std::fflush(stdout);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "word");
    testing::internal::CaptureStdout();
    EXPECT_TRUE(writeOutput("-", writeHalf));
    testing::internal::GetCapturedStdout();
    EXPECT_EQ(files(), 0U);
}

TEST_F(OutputFile, ReplacesAnOldOneOnlyWhenWritten) {
    std::ofstream(path("a")) << "old";
    EXPECT_TRUE(writeOutput(path("a"), writeHalf));
    EXPECT_EQ(contents(path("a")), "old");
    EXPECT_EQ(files(), 1U);
    EXPECT_FALSE(writeOutput(path("a"), writeWord));
    EXPECT_EQ(contents(path("a")), "word");
}

TEST_F(OutputFile, IsRefusedBeforehandInAFolderThatIsNotThere) {
    const Failure failure = checkOutput(path("none/a.png"));
    ASSERT_TRUE(failure);
    EXPECT_THAT(failure->text, HasSubstr("none/a.png': No such file"));
}

TEST_F(OutputFile, IsRefusedBeforehandWhereAFolderIs) {
    const Failure failure = checkOutput(mFolder);
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->code, EISDIR);
    EXPECT_TRUE(checkOutput(""));
    EXPECT_TRUE(checkOutput("/dev/null/out.png"));
}

TEST_F(OutputFile, ReportsAFailureOfTheFolderWhenWriting) {
    const Failure failure = writeOutput(path("none/a.png"), writeWord);
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->code, ENOENT);
}

TEST_F(OutputFile, WritesThroughToWhatIsNoRegularFile) {
    EXPECT_FALSE(checkOutput("/dev/null"));
    EXPECT_FALSE(writeOutput("/dev/null", writeWord));
    const Failure failure = writeOutput("/dev/full", writeWord);
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->code, ENOSPC);
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
// On a kernel without Landlock documents are opened all the same, with a warning, unless
// the policy demands it.
#include "tests/process/engine/EngineTest.h"
#include "tests/process/engine/probe/UserFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>

namespace lectern::test {
namespace {

class WithoutLandlock : public testing::Test {
protected:
    // Opens a document; returns the driver, whose line about it has been written.
    pid_t open(UserFolder::Kernel kernel, const std::string& policy = "") {
        const pid_t driver = mFolder.open(mFolder.write("a.docx", "rows=1\n"), FAKE_ENGINE, kernel, policy);
        EXPECT_TRUE(EngineTest::waitUntil([this] { return output().find("a.docx\n") != std::string::npos; }));
        return driver;
    }
    std::string output() const { return mFolder.output(); }
    bool isOpened() const {
        return output().find("\n 0  0 ") != std::string::npos || output().rfind(" 0  0 ", 0) == 0;
    }
    // Files that tell about a process belong to root when its memory is hidden.
    static bool hidesItsMemory(pid_t process) {
        struct stat file {};
        return stat(("/proc/" + std::to_string(process) + "/environ").c_str(), &file) == 0 &&
               file.st_uid == 0;
    }

private:
    static constexpr uid_t NOBODY = 65534;
    UserFolder mFolder{geteuid() == 0 ? NOBODY : geteuid()};
};

TEST_F(WithoutLandlock, ADocumentIsOpenedWithAWarning) {
    open(UserFolder::Kernel::WithoutLandlock);
    EXPECT_TRUE(isOpened()) << output();
    EXPECT_NE(output().find("this kernel has no Landlock"), std::string::npos) << output();
}

TEST_F(WithoutLandlock, TheServiceHidesItsMemory) {
    EXPECT_TRUE(hidesItsMemory(open(UserFolder::Kernel::WithoutLandlock)));
}

TEST_F(WithoutLandlock, APolicyRefusesDocumentsAndSaysWhy) {
    open(UserFolder::Kernel::WithoutLandlock, "require");
    EXPECT_FALSE(isOpened()) << output();
    EXPECT_NE(output().find("LECTERN_SANDBOX=require is set, and this kernel has no Landlock"),
              std::string::npos)
        << output();
}

TEST_F(WithoutLandlock, ElseThePolicyChangesNothing) {
    const pid_t service = open(UserFolder::Kernel::AsItIs, "require");
    EXPECT_TRUE(isOpened()) << output() << "this kernel must have Landlock";
    EXPECT_FALSE(hidesItsMemory(service));
    EXPECT_EQ(output().find("Landlock"), std::string::npos) << output();
}

} // namespace
} // namespace lectern::test

// SPDX-License-Identifier: Apache-2.0
#include "tests/process/engine/probe/UserFolder.h"

#include <fcntl.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <seccomp.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace lectern::test {
namespace {

namespace fs = std::filesystem;

// Below the folder.
constexpr const char* PROGRAMS = "/programs/";
constexpr const char* TEMPORARY = "/temporary";
constexpr const char* OUTPUT = "/output";

constexpr const char* COPIED[] = {ENGINE_DRIVER, MODULE_FOLDER "/WordToGoModule.so",
                                  MODULE_FOLDER "/liblectern-engine.so"};

void copyProgram(const fs::path& program, const std::string& folder) {
    const fs::path copy = folder + PROGRAMS + program.filename().string();
    fs::copy_file(program, copy, fs::copy_options::skip_existing);
    fs::permissions(copy, fs::perms(0755));
}

// Makes the kernel appear to have no Landlock to this process and those it starts.
bool hideLandlock() {
    void* filter = seccomp_init(SCMP_ACT_ALLOW);
    return filter != nullptr &&
           seccomp_rule_add(filter, SCMP_ACT_ERRNO(ENOSYS), SCMP_SYS(landlock_create_ruleset), 0) == 0 &&
           seccomp_load(filter) == 0;
}

bool becomeUser(uid_t user) {
    return user == geteuid() || (setgroups(0, nullptr) == 0 && setgid(user) == 0 && setuid(user) == 0);
}

} // namespace

UserFolder::UserFolder(uid_t user) : mUser(user), mPath(fs::temp_directory_path() / "lectern-probe-XXXXXX") {
    EXPECT_NE(mkdtemp(mPath.data()), nullptr);
    for (const std::string& folder : {mPath, mPath + PROGRAMS, mPath + TEMPORARY}) {
        fs::create_directory(folder);
        EXPECT_EQ(chown(folder.c_str(), user, user), 0);
    }
    for (const char* program : COPIED) {
        copyProgram(program, mPath);
    }
    EXPECT_EQ(pipe2(mInput, O_CLOEXEC), 0);
}

UserFolder::~UserFolder() {
    close(mInput[0]);
    close(mInput[1]);
    for (const pid_t driver : mDrivers) {
        waitpid(driver, nullptr, 0);
    }
    std::error_code ignored;
    fs::remove_all(mPath, ignored);
}

std::string UserFolder::write(const std::string& name, const std::string& contents) const {
    const std::string path = mPath + "/" + name;
    std::ofstream(path) << contents;
    EXPECT_EQ(chmod(path.c_str(), 0600), 0);
    EXPECT_EQ(chown(path.c_str(), mUser, mUser), 0);
    return path;
}

pid_t UserFolder::open(const std::string& document, const std::string& engine, Kernel kernel,
                       const std::string& policy) {
    copyProgram(engine, mPath);
    const pid_t driver = fork();
    if (driver == 0) {
        becomeDriver(document, engine, kernel, policy);
    }
    mDrivers.push_back(driver);
    return driver;
}

void UserFolder::becomeDriver(const std::string& document, const std::string& engine, Kernel kernel,
                              const std::string& policy) const {
    const std::string programs = mPath + PROGRAMS;
    const std::string driver = programs + fs::path(ENGINE_DRIVER).filename().string();
    const int output = ::open((mPath + OUTPUT).c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
    if ((kernel == Kernel::WithoutLandlock && !hideLandlock()) || !becomeUser(mUser)) {
        _exit(126);
    }
    setenv("TMPDIR", (mPath + TEMPORARY).c_str(), 1);
    setenv("LECTERN_ENGINE", (programs + fs::path(engine).filename().string()).c_str(), 1);
    setenv("LECTERN_TEST_MODULES", programs.c_str(), 1);
    setenv("LECTERN_SANDBOX", policy.c_str(), 1);
    dup2(mInput[0], STDIN_FILENO);
    dup2(output, STDOUT_FILENO);
    dup2(output, STDERR_FILENO);
    execl(driver.c_str(), driver.c_str(), "-w", document.c_str(), nullptr);
    _exit(127);
}

std::string UserFolder::output() const {
    std::ifstream file(mPath + OUTPUT);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

} // namespace lectern::test

// SPDX-License-Identifier: Apache-2.0
#include "engine/process/Sandbox.h"

#include "base/FileDescriptor.h"
#include "engine/process/SystemCallFilter.h"

#include <fcntl.h>
#include <linux/capability.h>
#include <linux/landlock.h>
#include <sched.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>

// Missing in the headers of older systems.
#ifndef LANDLOCK_ACCESS_FS_REFER
#define LANDLOCK_ACCESS_FS_REFER (1ULL << 13)
#endif
#ifndef LANDLOCK_ACCESS_FS_TRUNCATE
#define LANDLOCK_ACCESS_FS_TRUNCATE (1ULL << 14)
#endif

namespace lectern::engine {
namespace {

constexpr std::uint64_t WRITE_IN_FOLDER = LANDLOCK_ACCESS_FS_WRITE_FILE | LANDLOCK_ACCESS_FS_REMOVE_DIR |
                                          LANDLOCK_ACCESS_FS_REMOVE_FILE | LANDLOCK_ACCESS_FS_MAKE_DIR |
                                          LANDLOCK_ACCESS_FS_MAKE_REG | LANDLOCK_ACCESS_FS_MAKE_SYM;
constexpr std::uint64_t NEVER_ALLOWED = LANDLOCK_ACCESS_FS_EXECUTE | LANDLOCK_ACCESS_FS_MAKE_CHAR |
                                        LANDLOCK_ACCESS_FS_MAKE_SOCK | LANDLOCK_ACCESS_FS_MAKE_FIFO |
                                        LANDLOCK_ACCESS_FS_MAKE_BLOCK;

// Allows the accesses `allowed` for a path and everything below it.
bool allowAt(int ruleset, const char* path, std::uint64_t allowed) {
    const FileDescriptor place(open(path, O_PATH | O_CLOEXEC));
    const landlock_path_beneath_attr rule{allowed, place.get()};
    return place && syscall(SYS_landlock_add_rule, ruleset, LANDLOCK_RULE_PATH_BENEATH, &rule, 0) == 0;
}

Confinement restrictFiles(const std::string& folder) {
    const long version = syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION);
    if (version < 1) {
        return Confinement::NoFileRules;
    }
    std::uint64_t inFolder = WRITE_IN_FOLDER;
    inFolder |= version >= 2 ? LANDLOCK_ACCESS_FS_REFER : 0;
    inFolder |= version >= 3 ? LANDLOCK_ACCESS_FS_TRUNCATE : 0;
    const std::uint64_t toFile = inFolder & (LANDLOCK_ACCESS_FS_WRITE_FILE | LANDLOCK_ACCESS_FS_TRUNCATE);

    const landlock_ruleset_attr attributes{inFolder | NEVER_ALLOWED};
    const FileDescriptor ruleset(
        static_cast<int>(syscall(SYS_landlock_create_ruleset, &attributes, sizeof attributes, 0)));
    const bool done = ruleset && allowAt(ruleset.get(), folder.c_str(), inFolder) &&
                      allowAt(ruleset.get(), "/dev/null", toFile) &&
                      syscall(SYS_landlock_restrict_self, ruleset.get(), 0) == 0;
    return done ? Confinement::Complete : Confinement::Failed;
}

// A service that runs as root can read its users' documents; its engines keep
// only that capability.
bool dropCapabilities() {
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct sets[_LINUX_CAPABILITY_U32S_3] = {};
    if (syscall(SYS_capget, &header, sets) != 0) {
        return false;
    }
    for (__user_cap_data_struct& set : sets) {
        set.permitted &= &set == sets ? 1U << CAP_DAC_READ_SEARCH : 0;
        set.effective = set.permitted;
        set.inheritable = 0;
    }
    return syscall(SYS_capset, &header, sets) == 0;
}

} // namespace

Confinement enterSandbox(const std::string& folder) {
    // Needs a privilege that most services lack. Without it, the system call
    // filter alone keeps the network out.
    (void)unshare(CLONE_NEWNET);
    if (!dropCapabilities() || prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0) {
        std::perror("engine: giving up privileges");
        return Confinement::Failed;
    }
    const Confinement files = restrictFiles(folder);
    if (files == Confinement::Failed) {
        std::perror("engine: file rules");
        return Confinement::Failed;
    }
    return refuseDangerousCalls() ? files : Confinement::Failed;
}

bool confineEngine(const std::string& folder) {
    if (restrictFiles(folder) == Confinement::Failed) {
        std::perror("engine: file rules");
        return false;
    }
    return refuseOtherProcesses();
}

} // namespace lectern::engine

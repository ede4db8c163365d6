// SPDX-License-Identifier: Apache-2.0
#include "engine/process/FileRules.h"

#include "engine/protocol/Landlock.h"

#include <fcntl.h>
#include <linux/landlock.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>

namespace lectern::engine {
namespace {

// Landlock as of its version 6. The headers of older systems lack the later parts.
struct RulesetAttributes {
    std::uint64_t files;
    std::uint64_t network; // since version 4
    std::uint64_t scopes;  // since version 6
};
constexpr std::uint64_t REFER = 1U << 13;           // since version 2: links and moves between folders
constexpr std::uint64_t TRUNCATE = 1U << 14;        // since version 3
constexpr std::uint64_t DEVICE_COMMANDS = 1U << 15; // since version 5: ioctl
constexpr std::uint64_t BIND_AND_CONNECT_TCP = 3;   // since version 4
constexpr std::uint64_t SOCKETS_AND_SIGNALS = 3;    // since version 6: abstract sockets, signals

constexpr std::uint64_t READ = LANDLOCK_ACCESS_FS_READ_FILE | LANDLOCK_ACCESS_FS_READ_DIR;
constexpr std::uint64_t WRITE = LANDLOCK_ACCESS_FS_WRITE_FILE | TRUNCATE;
constexpr std::uint64_t CHANGE = LANDLOCK_ACCESS_FS_REMOVE_DIR | LANDLOCK_ACCESS_FS_REMOVE_FILE |
                                 LANDLOCK_ACCESS_FS_MAKE_DIR | LANDLOCK_ACCESS_FS_MAKE_REG | REFER;
constexpr std::uint64_t NEVER_ALLOWED = LANDLOCK_ACCESS_FS_EXECUTE | LANDLOCK_ACCESS_FS_MAKE_SYM |
                                        LANDLOCK_ACCESS_FS_MAKE_CHAR | LANDLOCK_ACCESS_FS_MAKE_SOCK |
                                        LANDLOCK_ACCESS_FS_MAKE_FIFO | LANDLOCK_ACCESS_FS_MAKE_BLOCK |
                                        DEVICE_COMMANDS;
// What a rule for a file, not a folder, may contain.
constexpr std::uint64_t OF_FILES = LANDLOCK_ACCESS_FS_READ_FILE | WRITE;

std::uint64_t knownTo(int version) {
    std::uint64_t known = REFER - 1;
    known |= version >= 2 ? REFER : 0;
    known |= version >= 3 ? TRUNCATE : 0;
    known |= version >= 5 ? DEVICE_COMMANDS : 0;
    return known;
}

FileDescriptor openPlace(const std::string& path) {
    return FileDescriptor(open(path.c_str(), O_PATH | O_CLOEXEC));
}

} // namespace

FileRules::FileRules(Covers covers)
    : mCovered((NEVER_ALLOWED | WRITE | CHANGE | (covers == Covers::Reading ? READ : 0)) &
               knownTo(landlockVersion())) {
    const int version = landlockVersion();
    const RulesetAttributes attributes{mCovered, version >= 4 ? BIND_AND_CONNECT_TCP : 0,
                                       version >= 6 ? SOCKETS_AND_SIGNALS : 0};
    mRuleset = FileDescriptor(
        static_cast<int>(syscall(SYS_landlock_create_ruleset, &attributes, sizeof attributes, 0)));
}

bool FileRules::areSupported() {
    return landlockVersion() > 0;
}

bool FileRules::allowEverythingIn(const std::string& folder) {
    const FileDescriptor place = openPlace(folder);
    return place && allow(place.get(), READ | WRITE | CHANGE);
}

bool FileRules::allowWriting(const std::string& file) {
    const FileDescriptor place = openPlace(file);
    return place && allow(place.get(), WRITE);
}

bool FileRules::allowReading(const std::string& path) {
    const FileDescriptor place = openPlace(path);
    if (!place) {
        return errno == ENOENT || errno == ENOTDIR || errno == EACCES;
    }
    return allow(place.get(), READ);
}

bool FileRules::allowReading(int file) {
    return allow(file, READ);
}

bool FileRules::allow(int place, std::uint64_t accesses) {
    struct stat status {};
    if (fstat(place, &status) != 0) {
        return false;
    }
    const std::uint64_t possible = S_ISDIR(status.st_mode) ? mCovered : mCovered & OF_FILES;
    const landlock_path_beneath_attr rule{accesses & possible, place};
    return rule.allowed_access == 0 ||
           syscall(SYS_landlock_add_rule, mRuleset.get(), LANDLOCK_RULE_PATH_BENEATH, &rule, 0) == 0;
}

bool FileRules::enforce() {
    return mRuleset && syscall(SYS_landlock_restrict_self, mRuleset.get(), 0) == 0;
}

} // namespace lectern::engine

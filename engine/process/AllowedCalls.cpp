// SPDX-License-Identifier: Apache-2.0
#include "engine/process/AllowedCalls.h"

#include <asm/ioctls.h>
#include <fcntl.h>
#include <sched.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace lectern::engine {
namespace {

// clang-format off
// Names that a processor or libseccomp does not have are left out.
constexpr const char* UNCONDITIONAL[] = {
    // Opening, reading and writing files; the file rules decide which.
    "open", "openat", "close", "read", "pread64", "readv", "preadv", "write", "pwrite64", "writev", "pwritev",
    "lseek", "_llseek", "ftruncate", "fallocate", "fadvise64", "fsync", "fdatasync", "dup", "dup2", "dup3",
    "pipe", "pipe2",
    // Looking for files and folders.
    "stat", "lstat", "fstat", "newfstatat", "statx", "statfs", "fstatfs", "access", "faccessat", "faccessat2",
    "readlink", "readlinkat", "getdents", "getdents64", "getcwd",
    // Temporary files; the file rules confine them to the engine's folder. mkdir has conditions.
    "rmdir", "unlink", "unlinkat", "rename", "renameat", "renameat2",
    // Memory; mmap has conditions.
    "brk", "munmap", "mremap", "mprotect", "madvise",
    // Threads and their locks; clone has conditions.
    "futex", "set_robust_list", "set_tid_address", "rseq", "gettid", "exit", "exit_group", "sched_yield",
    "sched_getaffinity",
    // Handlers of this process's own signals.
    "rt_sigaction", "rt_sigprocmask", "rt_sigreturn", "sigaltstack", "restart_syscall",
    // Waiting for the service, for other threads, and for the time.
    "poll", "ppoll", "select", "pselect6", "eventfd2", "nanosleep", "clock_nanosleep", "clock_gettime",
    "clock_getres", "gettimeofday", "time", "times", "getrusage",
    // The connection with the service, which exists.
    "sendmsg", "recvmsg", "recvfrom", "getsockopt", "getsockname", "getpeername", "shutdown",
    // Who and where it is; random numbers.
    "getpid", "getuid", "geteuid", "getgid", "getegid", "uname", "sysinfo", "getrandom",
};

// What only the fork server calls, and an engine until it is confined.
constexpr const char* OF_FORK_SERVER[] = {
    "pidfd_open", "setsid", "alarm",
    "landlock_create_ruleset", "landlock_add_rule", "landlock_restrict_self", "seccomp",
};
// clang-format on

constexpr std::uint64_t EXACT = ~std::uint64_t{0};

Condition equals(unsigned argument, std::uint64_t value) {
    return {argument, EXACT, value};
}

constexpr std::uint64_t NEW_NAMESPACES =
    CLONE_NEWNS | CLONE_NEWUTS | CLONE_NEWIPC | CLONE_NEWUSER | CLONE_NEWPID | CLONE_NEWNET | CLONE_NEWCGROUP;

// The first argument of clone is its flags; clone3, which hides them behind a pointer,
// does not exist here.
SystemCall cloneWith(std::uint64_t flags) {
    return {"clone", {{0, NEW_NAMESPACES | CLONE_VM | CLONE_SIGHAND | CLONE_THREAD, flags}}};
}

// No ownership of signals, no leases, no notes of changes, no locks that others see, no
// larger pipes.
void allowOwnDescriptors(std::vector<SystemCall>& calls) {
    for (const int command : {F_DUPFD, F_DUPFD_CLOEXEC, F_GETFD, F_SETFD, F_GETFL}) {
        calls.push_back({"fcntl", {equals(1, static_cast<std::uint64_t>(command))}});
    }
    calls.push_back({"fcntl", {equals(1, F_SETFL), {2, O_ASYNC, 0}}});
    // Standard output may be a terminal, with LECTERN_ENGINE_VERBOSE.
    calls.push_back({"ioctl", {equals(1, TCGETS)}});
}

// Folders that the service can open, to remove them.
void allowOpenFolders(std::vector<SystemCall>& calls) {
    calls.push_back({"mkdir", {{1, S_IRWXU, S_IRWXU}}});
    calls.push_back({"mkdirat", {{2, S_IRWXU, S_IRWXU}}});
}

// Memory that counts as data of this process, and memory of files: no further memory that
// could be shared, which no limit would cover. The suite's libraries are loaded late, and
// its components call each other through code that it writes, so memory can be executed.
void allowLimitedMemory(std::vector<SystemCall>& calls) {
    calls.push_back({"mmap", {{3, MAP_TYPE, MAP_PRIVATE}}});
    calls.push_back({"mmap", {{3, MAP_TYPE | MAP_ANONYMOUS, MAP_SHARED}}});
}

} // namespace

std::vector<SystemCall> allowedCalls() {
    std::vector<SystemCall> calls;
    for (const char* name : UNCONDITIONAL) {
        calls.push_back({name, {}});
    }
    for (const char* name : OF_FORK_SERVER) {
        calls.push_back({name, {}});
    }
    calls.push_back(cloneWith(CLONE_VM | CLONE_SIGHAND | CLONE_THREAD)); // a thread
    calls.push_back(cloneWith(0));                                       // an engine
    allowOwnDescriptors(calls);
    allowOpenFolders(calls);
    allowLimitedMemory(calls);
    // Without an address, which would let a datagram reach other sockets.
    calls.push_back({"sendto", {equals(4, 0)}});
    calls.push_back({"prctl", {equals(0, PR_SET_NAME)}});
    calls.push_back({"prlimit64", {equals(0, 0)}}); // its own limits, which are only lowered
    calls.push_back({"tgkill", {}});                // for an abort()
    return calls;
}

std::vector<SystemCall> callsRefusedToEngine() {
    std::vector<SystemCall> calls;
    for (const char* name : OF_FORK_SERVER) {
        calls.push_back({name, {}});
    }
    calls.push_back({"clone", {{0, CLONE_THREAD, 0}}});
    calls.push_back({"tgkill", {{0, EXACT, static_cast<std::uint64_t>(getpid()), false}}});
    return calls;
}

} // namespace lectern::engine

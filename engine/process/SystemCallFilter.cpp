// SPDX-License-Identifier: Apache-2.0
#include "engine/process/SystemCallFilter.h"

#include <sched.h>
#include <seccomp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

namespace lectern::engine {
namespace {

// The office suite needs several hundred calls that differ between versions of
// it and of the C library, so what is dangerous is named, not what is needed.
// clang-format off
const char* const REFUSED[] = {
    // network and all other sockets; the existing one stays usable
    "socket", "connect", "bind", "listen", "accept", "accept4",
    // other programs
    "execve", "execveat",
    // other processes
    "ptrace", "process_vm_readv", "process_vm_writev", "process_madvise", "process_mrelease",
    "pidfd_getfd", "pidfd_send_signal", "tkill", "rt_sigqueueinfo", "rt_tgsigqueueinfo", "kcmp", "setpriority",
    "sched_setscheduler", "sched_setattr", "ioprio_set", "migrate_pages", "move_pages",
    // IPC objects with names of their own, by which the service talks to clients
    "shmget", "shmat", "shmctl", "msgget", "msgsnd", "msgrcv", "msgctl", "semget", "semop", "semtimedop",
    "semctl", "mq_open", "mq_unlink", "add_key", "request_key", "keyctl",
    // file attributes, which the file rules do not cover
    "chown", "lchown", "fchown", "fchownat", "setxattr", "lsetxattr", "fsetxattr", "removexattr",
    "lremovexattr", "fremovexattr", "truncate", "mknod", "mknodat", "open_by_handle_at",
    // the system
    "mount", "umount2", "move_mount", "open_tree", "fsopen", "fsconfig", "fsmount", "fspick", "mount_setattr",
    "pivot_root", "chroot", "unshare", "setns", "bpf", "perf_event_open", "userfaultfd", "io_uring_setup",
    "io_uring_enter", "io_uring_register", "init_module", "finit_module", "delete_module", "kexec_load",
    "kexec_file_load", "reboot", "swapon", "swapoff", "quotactl", "acct", "syslog", "settimeofday",
    "clock_settime", "clock_adjtime", "adjtimex", "sethostname", "setdomainname", "fanotify_init",
    "lookup_dcookie", "personality", "modify_ldt", "iopl", "ioperm", "vhangup",
};
// clang-format on

using Filter = std::unique_ptr<void, decltype(&seccomp_release)>;

bool refuse(void* filter, const char* name, int error = EPERM) {
    const int call = seccomp_syscall_resolve_name(name);
    // A call that libseccomp or this processor does not know is harmless.
    return call == __NR_SCMP_ERROR || seccomp_rule_add(filter, SCMP_ACT_ERRNO(error), call, 0) == 0;
}

bool refuseWhen(void* filter, const char* name, scmp_arg_cmp condition) {
    return seccomp_rule_add_array(filter, SCMP_ACT_ERRNO(EPERM), seccomp_syscall_resolve_name(name), 1,
                                  &condition) == 0;
}

// libseccomp's own macros for this do not compile as C++.
constexpr scmp_arg_cmp firstArgument(scmp_compare comparison, scmp_datum_t value) {
    return {0, comparison, value, 0};
}

bool addDangerous(void* filter) {
    for (const char* name : REFUSED) {
        if (!refuse(filter, name)) {
            return false;
        }
    }
    // clone3 passes its flags behind a pointer, which a filter cannot read.
    // When it is refused, the C library uses clone, whose flags distinguish a
    // thread from a process.
    return refuse(filter, "clone3", ENOSYS) &&
           refuseWhen(filter, "prlimit64", firstArgument(SCMP_CMP_NE, 0)) &&
           refuseWhen(filter, "socketpair", firstArgument(SCMP_CMP_NE, AF_UNIX));
}

bool addOtherProcesses(void* filter) {
    const auto self = static_cast<scmp_datum_t>(getpid());
    return refuse(filter, "fork") && refuse(filter, "vfork") && refuse(filter, "pidfd_open") &&
           refuseWhen(filter, "clone", firstArgument(SCMP_CMP_MASKED_EQ, CLONE_THREAD)) &&
           refuseWhen(filter, "kill", firstArgument(SCMP_CMP_NE, self)) &&
           refuseWhen(filter, "tgkill", firstArgument(SCMP_CMP_NE, self));
}

bool load(bool (*addRules)(void*)) {
    const Filter filter(seccomp_init(SCMP_ACT_ALLOW), &seccomp_release);
    const bool loaded = filter && addRules(filter.get()) && seccomp_load(filter.get()) == 0;
    if (!loaded) {
        std::fprintf(stderr, "engine: the system call filter cannot be loaded\n");
    }
    return loaded;
}

} // namespace

bool refuseDangerousCalls() {
    return load(&addDangerous);
}

bool refuseOtherProcesses() {
    return load(&addOtherProcesses);
}

} // namespace lectern::engine

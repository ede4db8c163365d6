// SPDX-License-Identifier: Apache-2.0
// Loaded into the service before the C library: makes the n-th system call or allocation
// of Lectern's own code fail. Calls by GLib are left alone, because GLib ends the process
// when it gets no memory, and so are those by operator new, whose failure would be an
// exception: both are small, and Linux does not refuse small blocks but ends processes,
// engines first. Blocks for pictures come from calloc and mmap, which do count.
#include "tests/torture/FailingCalls.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <poll.h>
#include <pthread.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/msg.h>
#include <sys/shm.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <cstring>

#define EXPORT extern "C" __attribute__((visibility("default")))

extern "C" void* __libc_malloc(size_t size);
extern "C" void* __libc_calloc(size_t count, size_t size);

namespace {

FaultControl* openControl() {
    const char* const path = getenv("LECTERN_TEST_FAULTS");
    const int file = path == nullptr ? -1 : static_cast<int>(syscall(SYS_open, path, O_RDWR | O_CLOEXEC));
    if (file < 0) {
        return nullptr;
    }
    void* const shared = reinterpret_cast<void*>(
        syscall(SYS_mmap, nullptr, sizeof(FaultControl), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0));
    close(file);
    return shared == MAP_FAILED ? nullptr : static_cast<FaultControl*>(shared);
}

FaultControl* gControl = nullptr;

__attribute__((constructor)) void setUp() {
    gControl = openControl();
}

// Whether an address lies in a program or library of Lectern. std::thread creates its
// threads inside the C++ library.
bool isOurs(const void* caller, bool throughLibrary) {
    Dl_info info{};
    if (dladdr(caller, &info) == 0 || info.dli_fname == nullptr) {
        return false;
    }
    const char* const slash = strrchr(info.dli_fname, '/');
    const char* const name = slash != nullptr ? slash + 1 : info.dli_fname;
    return strstr(name, "lectern") != nullptr || strstr(name, "ToGoModule") != nullptr ||
           strstr(name, "hubservice") != nullptr || (throughLibrary && strstr(name, "stdc++") != nullptr);
}

bool fails(const char* call, const void* caller, bool throughLibrary = false) {
    if (gControl == nullptr || gControl->callsUntilFault < 1 || !isOurs(caller, throughLibrary) ||
        gControl->callsUntilFault.fetch_sub(1) != 1) {
        return false;
    }
    strncpy(gControl->call, call, sizeof gControl->call - 1);
    gControl->happened = true;
    return true;
}

} // namespace

// A function with the same name and parameters that fails in its turn.
#define FAILING(result, name, failure, error, parameters, arguments)                                         \
    EXPORT result name parameters {                                                                          \
        if (fails(#name, __builtin_return_address(0))) {                                                     \
            errno = error;                                                                                   \
            return failure;                                                                                  \
        }                                                                                                    \
        static const auto real = reinterpret_cast<result(*) parameters>(dlsym(RTLD_NEXT, #name));            \
        return real arguments;                                                                               \
    }

EXPORT void* malloc(size_t size) noexcept {
    return fails("malloc", __builtin_return_address(0)) ? nullptr : __libc_malloc(size);
}
EXPORT void* calloc(size_t count, size_t size) noexcept {
    return fails("calloc", __builtin_return_address(0)) ? nullptr : __libc_calloc(count, size);
}
EXPORT int pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*run)(void*),
                          void* argument) noexcept {
    if (fails("pthread_create", __builtin_return_address(0), true)) {
        return EAGAIN;
    }
    static const auto real = reinterpret_cast<decltype(&pthread_create)>(dlsym(RTLD_NEXT, "pthread_create"));
    return real(thread, attributes, run, argument);
}
EXPORT int posix_spawn(pid_t* child, const char* path, const posix_spawn_file_actions_t* actions,
                       const posix_spawnattr_t* attributes, char* const* arguments,
                       char* const* environment) {
    if (fails("posix_spawn", __builtin_return_address(0))) {
        return EAGAIN;
    }
    static const auto real = reinterpret_cast<decltype(&posix_spawn)>(dlsym(RTLD_NEXT, "posix_spawn"));
    return real(child, path, actions, attributes, arguments, environment);
}
EXPORT int fcntl(int file, int command, ...) {
    va_list list;
    va_start(list, command);
    void* const argument = va_arg(list, void*);
    va_end(list);
    if (fails("fcntl", __builtin_return_address(0))) {
        errno = EMFILE;
        return -1;
    }
    static const auto real = reinterpret_cast<int (*)(int, int, ...)>(dlsym(RTLD_NEXT, "fcntl"));
    return real(file, command, argument);
}

FAILING(void*, mmap, MAP_FAILED, ENOMEM, (void* at, size_t size, int rights, int flags, int file, off_t from),
        (at, size, rights, flags, file, from))
FAILING(int, shmget, -1, ENOSPC, (key_t key, size_t size, int flags), (key, size, flags))
FAILING(void*, shmat, reinterpret_cast<void*>(-1), ENOMEM, (int id, const void* at, int flags),
        (id, at, flags))
FAILING(int, shmctl, -1, EINVAL, (int id, int command, shmid_ds* status), (id, command, status))
FAILING(int, msgsnd, -1, ENOMEM, (int id, const void* text, size_t size, int flags), (id, text, size, flags))
FAILING(int, msgctl, -1, EPERM, (int id, int command, msqid_ds* status), (id, command, status))
FAILING(ssize_t, msgrcv, -1, ENOMEM, (int id, void* text, size_t size, long type, int flags),
        (id, text, size, type, flags))
FAILING(int, socketpair, -1, EMFILE, (int family, int type, int protocol, int* ends),
        (family, type, protocol, ends))
FAILING(ssize_t, sendmsg, -1, ENOBUFS, (int socket, const msghdr* message, int flags),
        (socket, message, flags))
FAILING(ssize_t, recvmsg, -1, ENOMEM, (int socket, msghdr* message, int flags), (socket, message, flags))
FAILING(int, memfd_create, -1, EMFILE, (const char* name, unsigned flags), (name, flags))
FAILING(int, ftruncate64, -1, EFBIG, (int file, off_t size), (file, size))
FAILING(int, ftruncate, -1, EFBIG, (int file, off_t size), (file, size))
FAILING(int, eventfd, -1, EMFILE, (unsigned count, int flags), (count, flags))
FAILING(int, pidfd_open, -1, EMFILE, (pid_t process, unsigned flags), (process, flags))
FAILING(char*, mkdtemp, nullptr, ENOSPC, (char* name), (name))

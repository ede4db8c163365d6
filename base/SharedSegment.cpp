// SPDX-License-Identifier: Apache-2.0
#include "base/SharedSegment.h"

#include <sys/ipc.h>
#include <sys/shm.h>

#include <cerrno>

namespace lectern {
namespace {

// The kernel hands identifiers out in a cycle, which right after boot starts at
// 0 and takes 64 steps; with many segments in use it is half as long again as
// their number, and never above the size of the kernel's table.
constexpr int MAX_ATTEMPTS = 32768;

} // namespace

// A segment with too low an identifier serves as a placeholder: made and removed, it
// moves the kernel's counter on. Others may make segments in between, so every
// identifier is looked at.
int makeSegment(int lowest, key_t key, size_t size, int permissions) {
    const int flags = IPC_CREAT | IPC_EXCL | permissions;
    for (int attempt = 0; attempt < MAX_ATTEMPTS; ++attempt) {
        int id = shmget(key, size, flags);
        if (id == -1 && errno == EEXIST) {
            id = shmget(IPC_PRIVATE, size, flags);
        }
        if (id == -1 || id >= lowest) {
            return id;
        }
        shmctl(id, IPC_RMID, nullptr);
    }
    errno = ENOSPC;
    return -1;
}

} // namespace lectern

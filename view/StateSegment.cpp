// SPDX-License-Identifier: Apache-2.0
#include "view/StateSegment.h"

#include <sys/ipc.h>
#include <sys/shm.h>

#include <cerrno>
#include <climits>
#include <cstdio>

namespace {

// The kernel hands identifiers out in a cycle, which right after boot starts at
// 0 and takes 64 steps; with many segments in use it is half as long again as
// their number, and never above the size of the kernel's table.
constexpr int MAX_ATTEMPTS = 32768;

constexpr int OPEN_FLAGS = IPC_CREAT | IPC_EXCL | 0666;

int prvMakeSegment(key_t key) {
    const int id = shmget(key, sizeof(StateRecord), OPEN_FLAGS);
    if (id == -1 && errno == EEXIST) {
        return shmget(IPC_PRIVATE, sizeof(StateRecord), OPEN_FLAGS);
    }
    return id;
}

// A segment that must not be used is its own placeholder: made and removed, it
// moves the kernel's counter on. Others may make segments in between, so every
// identifier is looked at. -1 after a line on standard error.
int prvMakeUsableSegment(key_t key) {
    for (int attempt = 0; attempt < MAX_ATTEMPTS; ++attempt) {
        const int id = prvMakeSegment(key);
        if (id == -1) {
            std::perror("shmget");
            return -1;
        }
        if (id >= StateSegment::FIRST_OWN_ID) {
            return id;
        }
        shmctl(id, IPC_RMID, nullptr);
    }
    std::fprintf(stderr, "no segment identifier of %d or more to be had\n", StateSegment::FIRST_OWN_ID);
    return -1;
}

} // namespace

StateSegment::~StateSegment() {
    if (mRecord == nullptr) {
        return;
    }
    if (mMade) {
        // Still attached, so the identifier cannot belong to another by now.
        shmctl(static_cast<int>(mId), IPC_RMID, nullptr);
    }
    shmdt(mRecord);
}

bool StateSegment::attach(unsigned int id) {
    if (id <= LAST_RESERVED_ID || id > static_cast<unsigned int>(INT_MAX)) {
        return false;
    }
    return map(static_cast<int>(id));
}

bool StateSegment::create(const char* path, int project) {
    const key_t key = ftok(path, project);
    const int id = prvMakeUsableSegment(key != -1 ? key : IPC_PRIVATE);
    if (id == -1) {
        return false;
    }
    if (!map(id)) {
        std::perror("shmat");
        shmctl(id, IPC_RMID, nullptr);
        return false;
    }
    mMade = true;
    return true;
}

bool StateSegment::map(int id) {
    void* address = shmat(id, nullptr, 0);
    if (address == reinterpret_cast<void*>(-1)) {
        return false;
    }
    // Asked for only now: an attached segment can't be replaced by another.
    shmid_ds status{};
    if (shmctl(id, IPC_STAT, &status) != 0 || status.shm_segsz < sizeof(StateRecord)) {
        shmdt(address);
        return false;
    }
    mRecord = static_cast<StateRecord*>(address);
    mId = static_cast<unsigned int>(id);
    return true;
}

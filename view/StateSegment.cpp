// SPDX-License-Identifier: Apache-2.0
#include "view/StateSegment.h"

#include <sys/ipc.h>
#include <sys/shm.h>

#include <cerrno>
#include <climits>
#include <cstdio>

namespace {

// The kernel assigns identifiers in a cycle. Right after boot the cycle starts at 0
// and has 64 steps. With many segments in use it has one and a half times their
// number, but at most the size of the kernel's table, which this number is.
constexpr int MAX_ATTEMPTS = 32768;

constexpr int OPEN_FLAGS = IPC_CREAT | IPC_EXCL | 0666;

int prvMakeSegment(key_t key) {
    const int id = shmget(key, sizeof(StateRecord), OPEN_FLAGS);
    if (id == -1 && errno == EEXIST) {
        return shmget(IPC_PRIVATE, sizeof(StateRecord), OPEN_FLAGS);
    }
    return id;
}

// Creates segments until one has a usable identifier. Removing an unusable one does
// not give its identifier back at once: the kernel's counter has moved on. Other
// processes may create segments in between, so every identifier is checked. Returns
// -1, after writing a line to standard error, on failure.
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
        // The segment is still attached, so its identifier cannot have been reused.
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
    // Checks the size after attaching: from then on, the identifier cannot refer to
    // another segment.
    shmid_ds status{};
    if (shmctl(id, IPC_STAT, &status) != 0 || status.shm_segsz < sizeof(StateRecord)) {
        shmdt(address);
        return false;
    }
    mRecord = static_cast<StateRecord*>(address);
    mId = static_cast<unsigned int>(id);
    return true;
}

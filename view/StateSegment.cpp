// SPDX-License-Identifier: Apache-2.0
#include "view/StateSegment.h"

#include "base/IpcOwner.h"
#include "base/SharedSegment.h"

#include <sys/ipc.h>
#include <sys/shm.h>
#include <syslog.h>

#include <climits>
#include <cstdio>

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
    shmid_ds status{};
    if (shmctl(static_cast<int>(id), IPC_STAT, &status) == 0 && !lectern::isOwnIpc(status.shm_perm)) {
        std::fprintf(stderr, "State segment %u belongs to user %u, so a new one is made.\n", id,
                     status.shm_perm.cuid);
        syslog(LOG_WARNING, "State segment %u belongs to user %u.", id, status.shm_perm.cuid);
        return false;
    }
    return map(static_cast<int>(id));
}

bool StateSegment::create(const char* path, int project) {
    const key_t key = ftok(path, project);
    const int id =
        lectern::makeSegment(FIRST_OWN_ID, key != -1 ? key : IPC_PRIVATE, sizeof(StateRecord), 0666);
    if (id == -1) {
        std::perror("shmget");
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
    // Checks the segment after attaching: from then on, the identifier cannot refer to
    // another one.
    shmid_ds status{};
    if (shmctl(id, IPC_STAT, &status) != 0 || status.shm_segsz != sizeof(StateRecord) ||
        !lectern::isOwnIpc(status.shm_perm)) {
        shmdt(address);
        return false;
    }
    mRecord = static_cast<StateRecord*>(address);
    mId = static_cast<unsigned int>(id);
    return true;
}

// SPDX-License-Identifier: Apache-2.0
#include <lectern/SharedMemory.h>

#include <sys/shm.h>

#include <cstdint>

namespace lectern {

Attachment::Attachment(int identifier) {
    void* address = shmat(identifier, nullptr, 0);
    if (reinterpret_cast<intptr_t>(address) != -1) {
        mAddress = address;
    }
}

Attachment::~Attachment() {
    if (mAddress != nullptr) {
        shmdt(mAddress);
    }
}

} // namespace lectern

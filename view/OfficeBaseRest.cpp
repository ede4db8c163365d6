// SPDX-License-Identifier: Apache-2.0
// The memory of a view that nobody uses.
#include "view/OfficeBase.h"

void OfficeBase::rest() {
    if (isResting()) {
        return;
    }
    const std::vector<CpPixmap*> all = pictures();
    mResting.resize(all.size());
    for (size_t i = 0; i < all.size(); i++) {
        if (all[i] != nullptr && all[i]->Pixels() != nullptr) {
            mResting[i].pack(all[i]->Pixels(), static_cast<size_t>(all[i]->Area()),
                             lectern::PackedPixels::Memory::PRIVATE);
        }
    }
    releaseModuleMemory();
}

uint64_t OfficeBase::pictureBytes() {
    uint64_t bytes = 0;
    for (const CpPixmap* picture : pictures()) {
        if (picture != nullptr && picture->Pixels() != nullptr) {
            bytes += static_cast<uint64_t>(picture->Area()) * sizeof *picture->Pixels();
        }
    }
    return bytes;
}

void OfficeBase::wake() {
    if (!isResting()) {
        return;
    }
    const std::vector<CpPixmap*> all = pictures();
    for (size_t i = 0; i < all.size(); i++) {
        if (!mResting[i].empty()) {
            mResting[i].unpack(all[i]->Pixels());
        }
    }
    mResting.clear();
}

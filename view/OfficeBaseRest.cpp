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

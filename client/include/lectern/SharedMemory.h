// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <utility>

#pragma GCC visibility push(default)

namespace lectern {

// An attached System V shared-memory segment, readable and writable. The destructor
// detaches it. Can be moved. Not thread-safe.
class Attachment {
public:
    Attachment() = default;
    // Attaches the segment with this identifier. On failure attached() is false and
    // errno holds the reason.
    explicit Attachment(int identifier);
    ~Attachment();
    Attachment(Attachment&& other) noexcept : mAddress(std::exchange(other.mAddress, nullptr)) {}
    Attachment& operator=(Attachment&& other) noexcept {
        std::swap(mAddress, other.mAddress);
        return *this;
    }

    bool attached() const { return mAddress != nullptr; }
    // Null when nothing is attached.
    void* address() const { return mAddress; }

private:
    void* mAddress = nullptr;
};

} // namespace lectern

#pragma GCC visibility pop

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <utility>

#pragma GCC visibility push(default)

namespace lectern {

// An attached System V segment; detached with the object.
class Attachment {
public:
    Attachment() = default;
    // Nothing is attached when the system refuses; see attached().
    explicit Attachment(int identifier);
    ~Attachment();
    Attachment(Attachment&& other) noexcept : mAddress(std::exchange(other.mAddress, nullptr)) {}
    Attachment& operator=(Attachment&& other) noexcept {
        std::swap(mAddress, other.mAddress);
        return *this;
    }

    bool attached() const { return mAddress != nullptr; }
    void* address() const { return mAddress; }

private:
    void* mAddress = nullptr;
};

} // namespace lectern

#pragma GCC visibility pop

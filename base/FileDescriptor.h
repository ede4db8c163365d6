// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <unistd.h>

#include <utility>

namespace lectern {

// Owns one file descriptor, or none (-1). Movable; closes it when destroyed.
class FileDescriptor {
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int descriptor) : mDescriptor(descriptor) {}
    FileDescriptor(FileDescriptor&& other) noexcept : mDescriptor(other.release()) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        if (this != &other) {
            reset();
            mDescriptor = other.release();
        }
        return *this;
    }
    ~FileDescriptor() { reset(); }

    explicit operator bool() const { return mDescriptor >= 0; }
    int get() const { return mDescriptor; }
    // Hands the descriptor over to the caller, who closes it.
    int release() { return std::exchange(mDescriptor, -1); }
    // Closes the descriptor.
    void reset() {
        if (mDescriptor >= 0) {
            close(release());
        }
    }

private:
    int mDescriptor = -1;
};

} // namespace lectern

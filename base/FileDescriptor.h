// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <unistd.h>

#include <utility>

namespace lectern {

// Owns one file descriptor, or none (-1), and closes it when destroyed. Movable.
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
    // Returns the descriptor and gives up ownership: the caller closes it.
    int release() { return std::exchange(mDescriptor, -1); }
    // Closes the descriptor, if there is one.
    void reset() {
        if (mDescriptor >= 0) {
            close(release());
        }
    }

private:
    int mDescriptor = -1;
};

} // namespace lectern

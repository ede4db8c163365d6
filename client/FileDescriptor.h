// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <unistd.h>

#include <utility>

namespace lectern {

// Owns a file descriptor; -1 is none.
class FileDescriptor {
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int descriptor) : mDescriptor(descriptor) {}
    ~FileDescriptor() { reset(); }
    FileDescriptor(FileDescriptor&& other) noexcept : mDescriptor(std::exchange(other.mDescriptor, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        if (this != &other) {
            reset();
            mDescriptor = std::exchange(other.mDescriptor, -1);
        }
        return *this;
    }

    bool valid() const { return mDescriptor >= 0; }
    int get() const { return mDescriptor; }
    void reset() {
        if (valid()) {
            close(std::exchange(mDescriptor, -1));
        }
    }

private:
    int mDescriptor = -1;
};

} // namespace lectern

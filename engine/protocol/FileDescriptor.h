// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <unistd.h>

#include <utility>

namespace lectern::engine {

// Owns one file descriptor, or none (-1).
class FileDescriptor {
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int fd) : mFd(fd) {}
    FileDescriptor(FileDescriptor&& other) noexcept : mFd(other.release()) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        if (this != &other) {
            close();
            mFd = other.release();
        }
        return *this;
    }
    ~FileDescriptor() { close(); }

    explicit operator bool() const { return mFd >= 0; }
    int get() const { return mFd; }
    int release() { return std::exchange(mFd, -1); }
    void close() {
        if (mFd >= 0) {
            ::close(mFd);
            mFd = -1;
        }
    }

private:
    int mFd = -1;
};

} // namespace lectern::engine

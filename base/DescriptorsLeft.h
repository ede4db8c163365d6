// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/FileDescriptor.h"

#include <sys/eventfd.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace lectern {

// Returns whether this process can open Count more file descriptors. GLib
// aborts the process when it gets none for a main context, and every
// synchronous call creates a main context.
template<std::size_t Count>
bool descriptorsLeft() {
    std::array<FileDescriptor, Count> opened;
    return std::all_of(opened.begin(), opened.end(), [](FileDescriptor& one) {
        one = FileDescriptor(eventfd(0, EFD_CLOEXEC));
        return static_cast<bool>(one);
    });
}

} // namespace lectern

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <linux/landlock.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace lectern::engine {

// The version of the kernel's rules for files; 0 or less when it has none. The service
// and its engines have the same kernel.
inline int landlockVersion() {
    return static_cast<int>(
        syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION));
}

} // namespace lectern::engine

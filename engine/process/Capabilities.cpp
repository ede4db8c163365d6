// SPDX-License-Identifier: Apache-2.0
#include "engine/process/Capabilities.h"

#include <linux/capability.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>

namespace lectern::engine {
namespace {

constexpr unsigned READ_EVERY_FILE = 1U << CAP_DAC_READ_SEARCH;

struct Capabilities {
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    std::array<__user_cap_data_struct, _LINUX_CAPABILITY_U32S_3> sets{};

    bool read() { return syscall(SYS_capget, &header, sets.data()) == 0; }
    bool write() { return syscall(SYS_capset, &header, sets.data()) == 0; }
};

} // namespace

bool mayReadEveryFile() {
    Capabilities own;
    return own.read() && (own.sets[0].permitted & READ_EVERY_FILE) != 0;
}

bool dropCapabilities() {
    Capabilities own;
    if (!own.read()) {
        return false;
    }
    const unsigned kept = own.sets[0].permitted & READ_EVERY_FILE;
    own.sets = {};
    own.sets[0].permitted = kept;
    own.sets[0].effective = kept;
    return own.write();
}

} // namespace lectern::engine

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sys/ipc.h>
#include <unistd.h>

namespace lectern {

// Whether a System V object belongs to this process's user. The owner can pass it on to
// any user, so the creator, who keeps control of it, must be the same user too.
inline bool isOwnIpc(const ipc_perm& permissions) {
    return permissions.uid == geteuid() && permissions.cuid == geteuid();
}

} // namespace lectern

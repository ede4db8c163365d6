// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace lectern {

// Moves the process into a new System V IPC namespace, so that a private
// service has its own queue and segments and the system removes them with the
// last process. When that needs a privilege, the process first enters a user
// namespace in which its user keeps his id.
//
// REQUIRES: the process has one thread. Returns true on success; false, with
// nothing changed, when the system does not allow it.
bool isolateIpc();

} // namespace lectern

// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace lectern {

// Moves the process into a System V IPC namespace of its own, so that a private
// service has a queue and segments to itself, and so that the system removes
// them all with the last process. Where that needs privileges, a user namespace
// in which the user stays who he is gives them.
//
// REQUIRES: the process has one thread. True when it is done; where the system
// does not allow it, false, and nothing has changed.
bool isolateIpc();

} // namespace lectern

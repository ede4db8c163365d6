// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace lectern::engine {

// Limits the fork server and the engines that it forks: 1.5 GiB of memory beyond its
// current use, files of 512 MiB, 1,024 descriptors, no core dumps, and a higher score for
// the kernel's out-of-memory killer. A limit that cannot be set is reported on standard
// error and not enforced.
void limitForkServer();

// Limits the threads of this process and all that it forks to 1,024. REQUIRES: the
// process is in a user namespace of its own. Outside, the limit would count all processes
// of the user.
void limitProcessesOfNamespace();

// Limits a forked engine: 1 GiB of memory beyond what it has inherited, 16 GiB of addresses
// beyond that, which bounds files that it maps, and an hour of processor time. An office
// suite with an ordinary document takes 60 to 300 MB. The shared surfaces do not count as
// memory, but as addresses; the service chooses their size.
void limitEngine();

} // namespace lectern::engine

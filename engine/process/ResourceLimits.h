// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace lectern::engine {

// Limits the fork server and the engines that it forks: 1.5 GiB of memory beyond its
// current use, files of 512 MiB, no core dumps, and a higher score for the kernel's
// out-of-memory killer. A limit that cannot be set is reported on standard error and
// not enforced.
void limitForkServer();

// Limits a forked engine: 1 GiB of memory beyond what it has inherited. An office suite
// with an ordinary document takes 60 to 300 MB. The shared surface does not count; the
// service chooses its size.
void limitEngine();

} // namespace lectern::engine

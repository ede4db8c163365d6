// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace lectern::engine {

// Limits this process: 1 GiB of memory beyond its current use, files of 512
// MiB, no core dumps, and a higher score for the kernel's out-of-memory killer.
// An office suite with an ordinary document takes 60 to 300 MB. The shared
// surface does not count; the service chooses its size. A limit that cannot be
// set is reported on standard error and not enforced.
void limitResources();

} // namespace lectern::engine

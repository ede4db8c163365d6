// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace lectern::engine {

// Bounds what this process may take from the machine: 1 GiB of memory beyond
// what it has now, files of 512 MiB, no core dumps; and it offers itself first
// when memory runs out. An office suite with an ordinary document takes 60 to
// 300 MB. The shared surface is not counted: its size is the service's choice.
// Failures go to standard error and are survived.
void limitResources();

} // namespace lectern::engine

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sys/types.h>

#include <cstddef>

namespace lectern {

// Makes a zeroed System V shared-memory segment whose identifier is `lowest` or
// more, under the key or, when another segment has that key, under none. size: in
// bytes; permissions: as of a file. Returns the identifier, which the caller removes,
// or -1 with errno set: ENOSPC also when no such identifier comes.
int makeSegment(int lowest, key_t key, size_t size, int permissions);

} // namespace lectern

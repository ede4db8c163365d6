// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/FileDescriptor.h"

// Opens a regular file, which a client has named, for writing. It is created or emptied.
// Returns none on failure, for null, and for anything but a regular file. Does not block on
// a FIFO.
lectern::FileDescriptor openForWriting(const char* path);

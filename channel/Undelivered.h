// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "channel/DocAdapterCommon.h"

#include <cstddef>
#include <vector>

// The index of the record to give up when there is no room for one more record to
// `addressee`. `waiting` holds the undelivered records, oldest first. The least
// important record is an "invalidated" (id 0); the most important are "opened" and
// "paint-done" (ids 8 and 9), because clients wait for them. Among equally
// important records, one to `addressee` is chosen first, because that client is
// about to get a newer one; then the oldest. REQUIRES: waiting is not empty.
size_t LeastMissed(const std::vector<ServerClientMessage>& waiting, long addressee);

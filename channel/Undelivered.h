// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "channel/DocAdapterCommon.h"

#include <cstddef>
#include <vector>

// Which of the waiting records to the client, oldest first, is missed least
// when there is no room for one more to `addressee`. Requests to paint again
// (id 0) go first, opened and paint-done (ids 8 and 9), which somebody waits
// for, last; among equals those of the same addressee, who gets newer word
// instead; then the oldest. REQUIRES: waiting is not empty.
size_t LeastMissed(const std::vector<ServerClientMessage>& waiting, long addressee);

// SPDX-License-Identifier: Apache-2.0
#include <lectern/WordCalls.h>

#include "client/lib/Calls.h"

namespace lectern::word {

Failure wideMode(const Bus& bus, int docid, bool on, const CallLimits& limits) {
    return command(bus, "/word", "wideMode", documentPayload(docid).add("wideMode", on), limits);
}

} // namespace lectern::word

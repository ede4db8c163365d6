// SPDX-License-Identifier: Apache-2.0
#include "client/lib/Calls.h"
#include <lectern/WordCalls.h>

namespace lectern::word {

Failure wideMode(const Bus& bus, int docid, bool on, const CallLimits& limits) {
    return command(bus, "/word", "wideMode", documentPayload(docid).add("wideMode", on), limits);
}

} // namespace lectern::word

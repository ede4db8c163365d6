// SPDX-License-Identifier: Apache-2.0
#include "client/lib/Calls.h"
#include <lectern/CommonCalls.h>

namespace lectern::common {

namespace {

constexpr char CATEGORY[] = "/common";

} // namespace

Result<std::string> getDocProperties(const Bus& bus, int docid, const CallLimits& limits) {
    return bus.call(CATEGORY, "getDocProperties", documentPayload(docid).text(), limits);
}

Result<int> search(const Bus& bus, int docid, const std::string& text, const CallLimits& limits) {
    return queryInteger(bus, CATEGORY, "Search", documentPayload(docid).add("search", text), "resultcount",
                        limits);
}

Failure nextResult(const Bus& bus, int docid, const CallLimits& limits) {
    return command(bus, CATEGORY, "nextResult", documentPayload(docid), limits);
}

Failure previousResult(const Bus& bus, int docid, const CallLimits& limits) {
    return command(bus, CATEGORY, "previousResult", documentPayload(docid), limits);
}

Failure closeSearch(const Bus& bus, int docid, const CallLimits& limits) {
    return command(bus, CATEGORY, "closeSearch", documentPayload(docid), limits);
}

Failure clearSelection(const Bus& bus, int docid, const CallLimits& limits) {
    return command(bus, CATEGORY, "clearSelection", documentPayload(docid), limits);
}

Result<std::string> getMimeInfo(const Bus& bus, int docid, const CallLimits& limits) {
    return bus.call(CATEGORY, "getMimeInfo", documentPayload(docid).text(), limits);
}

} // namespace lectern::common

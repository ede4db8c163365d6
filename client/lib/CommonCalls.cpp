// SPDX-License-Identifier: Apache-2.0
#include "client/lib/Calls.h"
#include <lectern/CommonCalls.h>

namespace lectern::common {

namespace {

constexpr char category[] = "/common";

} // namespace

Result<std::string> getDocProperties(const Bus& bus, int docid, const CallLimits& limits) {
    return bus.call(category, "getDocProperties", documentPayload(docid).text(), limits);
}

Result<int> search(const Bus& bus, int docid, const std::string& text, const CallLimits& limits) {
    return queryInteger(bus, category, "Search", documentPayload(docid).add("search", text), "resultcount",
                        limits);
}

Failure nextResult(const Bus& bus, int docid, const CallLimits& limits) {
    return command(bus, category, "nextResult", documentPayload(docid), limits);
}

Failure previousResult(const Bus& bus, int docid, const CallLimits& limits) {
    return command(bus, category, "previousResult", documentPayload(docid), limits);
}

Failure closeSearch(const Bus& bus, int docid, const CallLimits& limits) {
    return command(bus, category, "closeSearch", documentPayload(docid), limits);
}

Failure clearSelection(const Bus& bus, int docid, const CallLimits& limits) {
    return command(bus, category, "clearSelection", documentPayload(docid), limits);
}

Result<std::string> getMimeInfo(const Bus& bus, int docid, const CallLimits& limits) {
    return bus.call(category, "getMimeInfo", documentPayload(docid).text(), limits);
}

} // namespace lectern::common

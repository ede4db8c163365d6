// SPDX-License-Identifier: Apache-2.0
#include "client/lib/Calls.h"
#include <lectern/ExcelCalls.h>

namespace lectern::excel {

namespace {

constexpr char CATEGORY[] = "/excel";

} // namespace

Result<std::string> getSheetList(const Bus& bus, int docid, const CallLimits& limits) {
    return bus.call(CATEGORY, "getSheetList", documentPayload(docid).text(), limits);
}

Result<int> jumpToSheet(const Bus& bus, int docid, int sheet, const CallLimits& limits) {
    return queryInteger(bus, CATEGORY, "jumpToSheet", documentPayload(docid).add("sheet", sheet), "cursheet",
                        limits);
}

Result<int> getColumnCount(const Bus& bus, int docid, const CallLimits& limits) {
    return queryInteger(bus, CATEGORY, "getColumnCount", documentPayload(docid), "columncnt", limits);
}

Result<std::string> getLastComment(const Bus& bus, int docid, const CallLimits& limits) {
    return bus.call(CATEGORY, "getLastComment", documentPayload(docid).text(), limits);
}

Result<int> sortAscending(const Bus& bus, int docid, const CallLimits& limits) {
    return queryInteger(bus, CATEGORY, "sortAscending", documentPayload(docid), "column", limits);
}

Result<int> sortDescending(const Bus& bus, int docid, const CallLimits& limits) {
    return queryInteger(bus, CATEGORY, "sortDescending", documentPayload(docid), "column", limits);
}

Failure resizeMode(const Bus& bus, int docid, bool on, const CallLimits& limits) {
    return command(bus, CATEGORY, "resizeMode",
                   documentPayload(docid).add("mode", std::string(on ? "on" : "off")), limits);
}

Failure hideSelection(const Bus& bus, int docid, const CallLimits& limits) {
    return command(bus, CATEGORY, "hideSelection", documentPayload(docid), limits);
}

Failure unhideSelection(const Bus& bus, int docid, const CallLimits& limits) {
    return command(bus, CATEGORY, "unhideSelection", documentPayload(docid), limits);
}

Failure unhideAll(const Bus& bus, int docid, const CallLimits& limits) {
    return command(bus, CATEGORY, "unhideAll", documentPayload(docid), limits);
}

// The service expects the path under the key "column".
Failure copySelection(const Bus& bus, int docid, const std::string& path, const CallLimits& limits) {
    return command(bus, CATEGORY, "copySelection", documentPayload(docid).add("column", path), limits);
}

} // namespace lectern::excel

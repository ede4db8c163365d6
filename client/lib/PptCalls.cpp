// SPDX-License-Identifier: Apache-2.0
#include "client/lib/Calls.h"
#include <lectern/PptCalls.h>

namespace lectern::ppt {

namespace {

constexpr char CATEGORY[] = "/ppt";

} // namespace

Result<int> getSlideCount(const Bus& bus, int docid, const CallLimits& limits) {
    return queryInteger(bus, CATEGORY, "getSlideCount", documentPayload(docid), "slidecnt", limits);
}

Result<std::string> getSlideList(const Bus& bus, int docid, const CallLimits& limits) {
    return bus.call(CATEGORY, "getSlideList", documentPayload(docid).text(), limits);
}

Result<int> jumpToSlide(const Bus& bus, int docid, int slide, const CallLimits& limits) {
    return queryInteger(bus, CATEGORY, "jumpToSlide", documentPayload(docid).add("slide", slide),
                        "slideNumber", limits);
}

Result<std::string> getSlideNote(const Bus& bus, int docid, const CallLimits& limits) {
    return bus.call(CATEGORY, "getSlideNote", documentPayload(docid).text(), limits);
}

Failure fitWideMode(const Bus& bus, int docid, const std::optional<std::string>& orientation,
                    const CallLimits& limits) {
    JsonMembers payload = documentPayload(docid);
    if (orientation) {
        payload.add("orientation", *orientation);
    }
    return command(bus, CATEGORY, "fitWideMode", payload, limits);
}

} // namespace lectern::ppt

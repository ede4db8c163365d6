// SPDX-License-Identifier: Apache-2.0
#include "client/lib/Calls.h"
#include <lectern/PptCalls.h>

namespace lectern::ppt {

namespace {

constexpr char CATEGORY[] = "/ppt";

} // namespace

Call<int> getSlideCount() {
    return integerQuery(CATEGORY, "getSlideCount", "slidecnt");
}

Call<std::string> getSlideList() {
    return textQuery(CATEGORY, "getSlideList");
}

Call<int> jumpToSlide(int slide) {
    return integerQuery(CATEGORY, "jumpToSlide", "slideNumber", JsonMembers().add("slide", slide));
}

Call<std::string> getSlideNote() {
    return textQuery(CATEGORY, "getSlideNote");
}

Call<std::string> getNote() {
    return {{CATEGORY, "getSlideNote"}, [](const std::string& reply) -> Result<std::string> {
                if (reply.empty()) {
                    return std::string();
                }
                const std::optional<JsonMembers> members = JsonMembers::parse(reply);
                return required(members ? members->string("note") : std::nullopt);
            }};
}

Call<void> fitWideMode(const std::optional<std::string>& orientation) {
    JsonMembers arguments;
    if (orientation) {
        arguments.add("orientation", *orientation);
    }
    return command(CATEGORY, "fitWideMode", arguments);
}

} // namespace lectern::ppt

// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/DateText.h"

#include "base/GLibHolder.h"

#include <memory>

namespace lectern::viewer {

std::string dateText(const std::string& time) {
    using Date = std::unique_ptr<GDateTime, decltype(&g_date_time_unref)>;
    const std::unique_ptr<GTimeZone, decltype(&g_time_zone_unref)> local(g_time_zone_new_local(),
                                                                         &g_time_zone_unref);
    const Date parsed(g_date_time_new_from_iso8601(time.c_str(), local.get()), &g_date_time_unref);
    if (parsed == nullptr) {
        return time;
    }
    const Date shown(g_date_time_to_timezone(parsed.get(), local.get()), &g_date_time_unref);
    const GLibHolder<char> text(g_date_time_format(shown.get(), "%x %R"));
    return text != nullptr ? text.get() : time;
}

} // namespace lectern::viewer

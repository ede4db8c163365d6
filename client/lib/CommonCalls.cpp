// SPDX-License-Identifier: Apache-2.0
#include "client/lib/Calls.h"
#include <lectern/CommonCalls.h>

namespace lectern::common {

namespace {

constexpr char CATEGORY[] = "/common";

} // namespace

Call<std::string> getDocProperties() {
    return textQuery(CATEGORY, "getDocProperties");
}

Call<int> search(const std::string& text) {
    return integerQuery(CATEGORY, "Search", "resultcount", JsonMembers().add("search", text));
}

Call<void> nextResult() {
    return command(CATEGORY, "nextResult");
}

Call<void> previousResult() {
    return command(CATEGORY, "previousResult");
}

Call<void> closeSearch() {
    return command(CATEGORY, "closeSearch");
}

Call<void> clearSelection() {
    return command(CATEGORY, "clearSelection");
}

Call<std::string> getMimeInfo() {
    return textQuery(CATEGORY, "getMimeInfo");
}

} // namespace lectern::common

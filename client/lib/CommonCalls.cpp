// SPDX-License-Identifier: Apache-2.0
#include "client/lib/Calls.h"
#include <lectern/CommonCalls.h>

namespace lectern::common {

namespace {

constexpr char CATEGORY[] = "/common";

// The service returns the start of the Unix epoch for an unset date; west of Greenwich
// that is in 1969. Returns an empty text for it.
std::string knownDate(const std::string& date) {
    const bool unknown =
        date.find(", 1970,") != std::string::npos || date.find(", 1969,") != std::string::npos;
    return unknown ? "" : date;
}

DocumentProperties readProperties(const JsonMembers& reply) {
    const auto text = [&](const char* key) { return reply.string(key).value_or(""); };
    return {.name = text("name"),
            .author = text("author"),
            .description = text("description"),
            .created = knownDate(text("createdate")),
            .saved = knownDate(text("lastsave")),
            .words = reply.integer("wordcnt")};
}

} // namespace

Call<std::string> getDocProperties() {
    return textQuery(CATEGORY, "getDocProperties");
}

Call<DocumentProperties> getProperties() {
    return query<DocumentProperties>(CATEGORY, "getDocProperties", [](const JsonMembers& reply) {
        return Result<DocumentProperties>(readProperties(reply));
    });
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

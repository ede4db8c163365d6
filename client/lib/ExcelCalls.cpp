// SPDX-License-Identifier: Apache-2.0
#include "client/lib/Calls.h"
#include <lectern/ExcelCalls.h>

namespace lectern::excel {

namespace {

constexpr char CATEGORY[] = "/excel";

} // namespace

Call<std::string> getSheetList() {
    return textQuery(CATEGORY, "getSheetList");
}

Call<int> jumpToSheet(int sheet) {
    return integerQuery(CATEGORY, "jumpToSheet", "cursheet", JsonMembers().add("sheet", sheet));
}

Call<int> getColumnCount() {
    return integerQuery(CATEGORY, "getColumnCount", "columncnt");
}

Call<std::string> getLastComment() {
    return textQuery(CATEGORY, "getLastComment");
}

Call<int> sortAscending() {
    return integerQuery(CATEGORY, "sortAscending", "column");
}

Call<int> sortDescending() {
    return integerQuery(CATEGORY, "sortDescending", "column");
}

Call<void> resizeMode(bool on) {
    return command(CATEGORY, "resizeMode", JsonMembers().add("mode", std::string(on ? "on" : "off")));
}

Call<void> hideSelection() {
    return command(CATEGORY, "hideSelection");
}

Call<void> unhideSelection() {
    return command(CATEGORY, "unhideSelection");
}

Call<void> unhideAll() {
    return command(CATEGORY, "unhideAll");
}

// The service expects the path under the key "column".
Call<void> copySelection(const std::string& path) {
    return command(CATEGORY, "copySelection", JsonMembers().add("column", path));
}

} // namespace lectern::excel

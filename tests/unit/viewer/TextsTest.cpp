// SPDX-License-Identifier: Apache-2.0
// Words that the viewer makes of files, times and errors.
#include "client/viewer/Texts.h"

#include "base/GLibHolder.h"

#include <gmock/gmock.h>
#include <lectern-glib/lectern-glib.h>

#include <memory>
#include <set>

namespace {

using lectern::GLibHolder;
using namespace lectern::viewer;

std::string folder(const std::string& path) {
    const GLibHolder<GFile> file(g_file_new_for_path(path.c_str()));
    return folderOf(file.get());
}

std::string when(const char* then, const char* now) {
    GTimeZone* zone = g_time_zone_new_utc();
    GDateTime* thenDate = g_date_time_new_from_iso8601(then, zone);
    GDateTime* nowDate = g_date_time_new_from_iso8601(now, zone);
    std::string text = whenText(thenDate, nowDate);
    g_date_time_unref(thenDate);
    g_date_time_unref(nowDate);
    g_time_zone_unref(zone);
    return text;
}

Problem problem(GQuark domain, int code) {
    const GLibHolder<GError> error(g_error_new_literal(domain, code, "message"));
    return problemOf(*error);
}

TEST(FileTexts, NameAFolderAsPeopleKnowIt) {
    const std::string home = g_get_home_dir();
    EXPECT_EQ(folder(home + "/a.odt"), "~");
    EXPECT_EQ(folder(home + "/Papers/2026/a.odt"), "~/Papers/2026");
    EXPECT_EQ(folder("/srv/papers/a.odt"), "/srv/papers");
}

TEST(FileTexts, NameAFileWhoseNameIsNotUtf8) {
    const GLibHolder<GFile> file(g_file_new_for_path("/srv/caf\xe9.doc"));
    EXPECT_TRUE(g_utf8_validate(nameOf(file.get()).c_str(), -1, nullptr));
}

TEST(TimeTexts, AreTheShortestThatTellTheDay) {
    EXPECT_EQ(when("2026-03-09T08:05:00", "2026-03-09T23:59:00"), "08:05");
    EXPECT_EQ(when("2026-03-08T23:59:00", "2026-03-09T00:01:00"), "Yesterday");
    EXPECT_EQ(when("2026-01-31T12:00:00", "2026-03-09T00:01:00"), "January 31");
    EXPECT_EQ(when("2025-12-31T12:00:00", "2026-01-01T12:00:00"), "Yesterday");
    EXPECT_EQ(when("2025-12-30T12:00:00", "2026-01-01T12:00:00"), "December 30, 2025");
}

TEST(Problems, HaveATitleAndAdviceForEachCode) {
    std::set<std::string> titles;
    for (int code = LECTERN_DOCUMENT_ERROR_FAILED; code <= LECTERN_DOCUMENT_ERROR_CHANGED; ++code) {
        const Problem found = problem(LECTERN_DOCUMENT_ERROR, code);
        EXPECT_FALSE(found.advice.empty());
        titles.insert(found.title);
    }
    // Passwords have a page of their own; a document that takes too long has two codes.
    EXPECT_EQ(titles.size(), 12U);
    for (int code = LECTERN_SERVICE_ERROR_ARGUMENT; code <= LECTERN_SERVICE_ERROR_REFUSED; ++code) {
        EXPECT_FALSE(problem(LECTERN_SERVICE_ERROR, code).advice.empty());
    }
}

TEST(Problems, NameThePackagesThatTheEngineNeeds) {
    EXPECT_THAT(problem(LECTERN_DOCUMENT_ERROR, LECTERN_DOCUMENT_ERROR_NO_ENGINE).advice,
                testing::HasSubstr("LibreOffice"));
}

TEST(Problems, OfOtherLibrariesAreToldTooWithoutTheirCode) {
    EXPECT_EQ(problem(G_IO_ERROR, LECTERN_SERVICE_ERROR_BUS).title,
              problem(LECTERN_DOCUMENT_ERROR, LECTERN_DOCUMENT_ERROR_FAILED).title);
}

TEST(Problems, AskForAPasswordOnlyWhereOneHelps) {
    for (int code = LECTERN_DOCUMENT_ERROR_FAILED; code <= LECTERN_DOCUMENT_ERROR_CHANGED; ++code) {
        const GLibHolder<GError> error(g_error_new_literal(LECTERN_DOCUMENT_ERROR, code, "message"));
        EXPECT_EQ(asksForPassword(*error), code == LECTERN_DOCUMENT_ERROR_NEEDS_PASSWORD ||
                                               code == LECTERN_DOCUMENT_ERROR_WRONG_PASSWORD);
    }
    const GLibHolder<GError> other(
        g_error_new_literal(LECTERN_SERVICE_ERROR, LECTERN_DOCUMENT_ERROR_NEEDS_PASSWORD, "message"));
    EXPECT_FALSE(asksForPassword(*other));
}

} // namespace

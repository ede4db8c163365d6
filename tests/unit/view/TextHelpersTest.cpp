// SPDX-License-Identifier: Apache-2.0
#include "view/TextHelpers.h"

#include <glib.h>
#include <gtest/gtest.h>

#include <climits>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <string>

namespace {

class DateText : public testing::Test {
protected:
    void SetUp() override { setZone("UTC"); }

    static void setZone(const char* zone) {
        setenv("TZ", zone, 1);
        tzset();
    }
    static std::string text(long t) {
        const std::unique_ptr<char[]> characters(Time2String(t));
        return characters.get();
    }
    static long at(int year, int month, int day, int hour, int minute) {
        tm when{};
        when.tm_year = year - 1900;
        when.tm_mon = month - 1;
        when.tm_mday = day;
        when.tm_hour = hour;
        when.tm_min = minute;
        return timegm(&when);
    }
};

TEST_F(DateText, ShowsAnAfternoonByTheTwelveHourClock) {
    EXPECT_EQ(text(at(2010, 3, 1, 15, 7)), "Mar 1, 2010, 3:07pm");
}

TEST_F(DateText, ShowsMidnightAsTwelveInTheMorning) {
    EXPECT_EQ(text(at(2010, 3, 1, 0, 5)), "Mar 1, 2010, 12:05am");
}

TEST_F(DateText, ShowsNoonAsTwelveInTheAfternoon) {
    EXPECT_EQ(text(at(2010, 3, 1, 12, 0)), "Mar 1, 2010, 12:00pm");
    EXPECT_EQ(text(at(2010, 3, 1, 11, 59)), "Mar 1, 2010, 11:59am");
}

TEST_F(DateText, NamesEveryMonth) {
    const char* const names[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                 "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    for (int month = 1; month <= 12; ++month) {
        EXPECT_EQ(text(at(1999, month, 28, 9, 30)), std::string(names[month - 1]) + " 28, 1999, 9:30am");
    }
}

TEST_F(DateText, IsLocalTime) {
    setZone("EST5");
    EXPECT_EQ(text(at(2010, 3, 1, 0, 0)), "Feb 28, 2010, 7:00pm");
}

TEST_F(DateText, ReachesBackBeforeTheEpoch) {
    EXPECT_EQ(text(-60), "Dec 31, 1969, 11:59pm");
}

TEST_F(DateText, SurvivesTimesBeyondTheCalendar) {
    EXPECT_EQ(text(LONG_MAX), "Ukn 0, 1900, 12:00am");
    EXPECT_EQ(text(LONG_MIN), "Ukn 0, 1900, 12:00am");
    // The last year that fits into struct tm.
    EXPECT_EQ(text(67768036191676799), "Dec 31, 2147485547, 11:59pm");
}

const unsigned short WIDE_TEXT[] = {'d', 0xE9, 0x20AC, 0xD83D, 0xDE00, 0}; // dé€😀
const char* const NARROW_TEXT = "d\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80";
const unsigned short LONE_SURROGATE[] = {'a', 0xD83D, 'b', 0};

TEST(TextConversion, GoesBothWays) {
    char* narrow = ToUTF8(WIDE_TEXT);
    ASSERT_NE(narrow, nullptr);
    EXPECT_STREQ(narrow, NARROW_TEXT);
    unsigned short* wide = ToUTF16(narrow);
    ASSERT_NE(wide, nullptr);
    for (size_t i = 0; i < std::size(WIDE_TEXT); ++i) {
        EXPECT_EQ(wide[i], WIDE_TEXT[i]) << i;
    }
    g_free(narrow);
    g_free(wide);
}

TEST(TextConversion, GivesNullForBrokenText) {
    EXPECT_EQ(ToUTF8(LONE_SURROGATE), nullptr);
    EXPECT_EQ(ToUTF16("a\xFFz"), nullptr);
    EXPECT_EQ(ToUTF16("cut \xE2\x82"), nullptr);
}

TEST(TextConversion, GivesNullForNull) {
    EXPECT_EQ(ToUTF8(nullptr), nullptr);
    EXPECT_EQ(ToUTF16(nullptr), nullptr);
}

TEST(Utf8OrEmpty, IsTheTextOrNothing) {
    EXPECT_EQ(utf8OrEmpty(WIDE_TEXT), NARROW_TEXT);
    EXPECT_EQ(utf8OrEmpty(LONE_SURROGATE), "");
    EXPECT_EQ(utf8OrEmpty(nullptr), "");
}

TEST(Utf16TextGuard, HoldsTheText) {
    const Utf16Text text("ok");
    EXPECT_EQ(text.get()[0], 'o');
    EXPECT_EQ(text.get()[1], 'k');
    EXPECT_EQ(text.get()[2], 0);
}

TEST(Utf16TextGuard, IsEmptyForNullAndBrokenText) {
    EXPECT_EQ(*Utf16Text(nullptr).get(), 0);
    EXPECT_EQ(*Utf16Text("a\xFFz").get(), 0);
    EXPECT_EQ(*Utf16Text("").get(), 0);
}

} // namespace

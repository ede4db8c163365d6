// SPDX-License-Identifier: Apache-2.0
// The command's information about documents, compared with their files.
#include "tests/system/command/ServedCommandFixture.h"

namespace {

using testing::HasSubstr;
using testing::StartsWith;

class ListTest : public CommandTest {};

std::string numbered(const std::vector<std::string>& names) {
    std::string lines;
    for (size_t i = 0; i < names.size(); ++i) {
        lines += std::to_string(i + 1) + "  " + names[i] + "\n";
    }
    return lines;
}

TEST_F(ListTest, SheetsAreThoseOfTheWorkbookInBothFormats) {
    const std::vector<std::string> names = facts("sheets", sample("tour.xlsx"));
    ASSERT_GT(names.size(), 2U);
    EXPECT_EQ(done({"sheets", sample("tour.xlsx")}), numbered(names));
    EXPECT_EQ(done({"sheets", sample("tour.xls")}), numbered(names));
    EXPECT_THAT(
        done({"sheets", "--json", sample("tour.xlsx")}),
        StartsWith("{\"list\": [{\"data\":\"" + names[0] + "\", \"listitem\":\"1\", \"status\":\"images/"));
}

TEST_F(ListTest, SlidesAreThoseOfThePresentation) {
    const std::vector<std::string> titles = facts("titles", sample("tour.pptx"));
    const std::string listing = done({"slides", sample("tour.pptx")});
    ASSERT_EQ(std::count(listing.begin(), listing.end(), '\n'), static_cast<long>(titles.size()));
    for (size_t i = 0; i < titles.size(); ++i) {
        if (!titles[i].empty()) {
            EXPECT_THAT(listing, HasSubstr(std::to_string(i + 1) + "  " + titles[i] + "\n"));
        }
    }
}

TEST_F(ListTest, NotesAreThoseOfTheirSlides) {
    std::vector<std::string> notes = facts("notes", sample("tour.pptx"));
    ASSERT_GT(notes.size(), 2U);
    for (size_t i = 0; i < notes.size(); ++i) {
        const std::string number = std::to_string(i + 1);
        const Outcome outcome = lectern({"note", sample("tour.pptx"), "--slide", number});
        EXPECT_EQ(outcome.status, 0);
        if (notes[i].empty()) {
            EXPECT_EQ(outcome.output, "");
            EXPECT_EQ(outcome.errors, "lectern: slide " + number + " has no note\n");
        } else {
            std::replace(notes[i].begin(), notes[i].end(), '|', '\n');
            EXPECT_EQ(outcome.output, notes[i] + "\n");
            EXPECT_EQ(outcome.errors, "");
        }
    }
}

TEST_F(ListTest, InfoIsForPeopleAndForPrograms) {
    const std::string listing = done({"info", sample("tour.docx")});
    EXPECT_THAT(listing, HasSubstr("Kind:        word-processing document\n"));
    EXPECT_THAT(listing, HasSubstr("Name:        A Tour of the Harbour\n"));
    EXPECT_THAT(listing, HasSubstr("Last saved:  Feb 11, 2026"));
    EXPECT_THAT(done({"info", "--json", sample("tour.docx")}),
                StartsWith("{ \"name\": \"A Tour of the Harbour\","));
}

TEST_F(ListTest, ATextFileHasNoDates) {
    EXPECT_THAT(done({"info", sample("tour.txt")}), testing::Not(HasSubstr("19")));
}

TEST_F(ListTest, SearchCountsInTheSheetAskedFor) {
    EXPECT_EQ(done({"search", sample("tour.xlsx"), "January"}), "1 hit for 'January' in sheet 1\n");
    EXPECT_EQ(done({"search", sample("tour.xlsx"), "January", "--sheet", "2"}),
              "no hits for 'January' in sheet 2\n");
    EXPECT_EQ(done({"search", sample("tour.xlsx"), "Berth", "--sheet", "2", "--json"}),
              "{ \"resultcount\": 1 }\n");
}

} // namespace

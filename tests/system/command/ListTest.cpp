// SPDX-License-Identifier: Apache-2.0
// The command's information about documents, compared with their files.
#include "tests/system/command/ServedCommandFixture.h"

#include <filesystem>

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
    EXPECT_EQ(done({"search", sample("tour.xlsx"), "January", "--sheet", "1"}),
              "1 hit for 'January' in sheet 1\n");
    const Outcome none = lectern({"search", sample("tour.xlsx"), "January", "--sheet", "2"});
    EXPECT_EQ(none.output, "no hits for 'January' in sheet 2\n");
    EXPECT_EQ(none.status, 1);
    EXPECT_EQ(done({"search", sample("tour.xlsx"), "Berth", "--sheet", "2", "--json"}),
              "{ \"resultcount\": 1 }\n");
}

TEST_F(ListTest, SearchCountsInAllSheets) {
    EXPECT_EQ(done({"search", sample("tour.xlsx"), "b0"}), "7 hits for 'b0'\n  sheet 2, Moorings: 7 hits\n");
}

TEST_F(ListTest, SearchCountsTheHitsOnEachSlide) {
    EXPECT_EQ(done({"search", sample("tour.ppt"), "boat"}), "7 hits for 'boat'\n"
                                                            "  slide 1, The Harbour in Slides: 1 hit\n"
                                                            "  slide 2, What you will see: 4 hits\n"
                                                            "  slide 3, Who sails when: 2 hits\n");
    EXPECT_EQ(lectern({"search", sample("tour.ppt"), "submarine"}).status, 1);
}

TEST_F(ListTest, SearchCountsASlideWhoseNoteAloneHasTheText) {
    EXPECT_EQ(done({"search", "--classic", sample("tour.pptx"), "Then begin"}),
              "1 hit for 'Then begin'\n  slide 1, The Harbour in Slides: 1 hit\n");
    EXPECT_EQ(done({"search", "--classic", sample("tour.pptx"), "point at"}),
              "1 hit for 'point at'\n  slide 2, What you will see: 1 hit\n");
}

TEST_F(ListTest, DocumentsComeFromStandardInput) {
    const std::string script = "\"$0\" info - --type docx < \"$1\"";
    Subprocess shell({"sh", "-c", script, LECTERN_PROGRAM, sample("tour.docx")},
                     {{"DBUS_SESSION_BUS_ADDRESS", bus->address()}, {"TMPDIR", folder.path()}},
                     folder.path() + "/shell");
    EXPECT_EQ(shell.wait(std::chrono::seconds(120)), std::optional<int>(0)) << shell.errors();
    EXPECT_EQ(shell.output(), done({"info", sample("tour.docx")}));
    for (const auto& left : std::filesystem::directory_iterator(folder.path())) {
        EXPECT_THAT(left.path().filename().string(), testing::Not(StartsWith("lectern-input-")));
    }
}

} // namespace

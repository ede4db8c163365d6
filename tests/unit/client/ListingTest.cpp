// SPDX-License-Identifier: Apache-2.0
#include "client/command/Listing.h"

#include <gtest/gtest.h>

namespace {

using namespace lectern;

TEST(Listing, KeepsControlCharactersFromTheTerminal) {
    EXPECT_EQ(onOneLine("  a\tb\n\nc\x1b[2Jd\x7f "), "a b c [2Jd");
    EXPECT_EQ(onOneLine("Größe\xc2\x9b!"), "Größe !");
    EXPECT_EQ(onOneLine("\xff"), "\xef\xbf\xbd");
    EXPECT_EQ(onSeveralLines("a\tb\nc\x1b[2Jd\r\n"), "a\tb\nc[2Jd\n");
}

TEST(Listing, LabelsWhatIsKnown) {
    const std::string reply =
        R"({ "name": "N", "author": "A", "description": "D\nE", "lastsave": )"
        R"("Feb 11, 2026, 4:05pm", "createdate": "Jan 5, 2026, 8:30am", "wordcnt": 0 })";
    EXPECT_EQ(propertyListing(DocumentKind::WordProcessing, reply), "Kind:        word-processing document\n"
                                                                    "Name:        N\n"
                                                                    "Author:      A\n"
                                                                    "Description: D E\n"
                                                                    "Created:     Jan 5, 2026, 8:30am\n"
                                                                    "Last saved:  Feb 11, 2026, 4:05pm\n"
                                                                    "Words:       0\n");
}

TEST(Listing, LeavesOutWhatIsNotKnown) {
    const std::string reply = R"({ "name": "", "lastsave": "Jan 1, 1970, 12:00am", )"
                              R"("createdate": "Dec 31, 1969, 7:00pm" })";
    EXPECT_EQ(propertyListing(DocumentKind::Spreadsheet, reply), "Kind:        spreadsheet\n");
    EXPECT_EQ(propertyListing(DocumentKind::Presentation, ""), "Kind:        presentation\n");
}

TEST(Listing, AlignsTheNumbersOfParts) {
    PartList list;
    list.parts.resize(10, {"x", false});
    list.parts[9].title = "";
    EXPECT_EQ(partListing(list), " 1  x\n 2  x\n 3  x\n 4  x\n 5  x\n 6  x\n 7  x\n 8  x\n 9  x\n10\n");
    EXPECT_EQ(partListing({}), "");
}

} // namespace

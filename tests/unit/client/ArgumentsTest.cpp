// SPDX-License-Identifier: Apache-2.0
#include "client/command/Arguments.h"

#include <gmock/gmock.h>

#include "client/command/Values.h"

namespace {

using namespace lectern;
using testing::HasSubstr;

template<typename Arguments>
std::string misuse(const Parsed<Arguments>& parsed) {
    const auto* found = std::get_if<Misuse>(&parsed);
    return found == nullptr ? "" : found->text;
}

TEST(OpenArguments, HaveAPhonesSizeAndNoMovesUnlessGiven) {
    const auto parsed = parseOpen({"letter.docx", "-o", "letter.png"});
    const auto& arguments = std::get<OpenArguments>(parsed);
    EXPECT_EQ(arguments.file, "letter.docx");
    EXPECT_EQ(arguments.output, "letter.png");
    EXPECT_EQ(arguments.width, 480);
    EXPECT_EQ(arguments.height, 800);
    EXPECT_EQ(arguments.password, std::nullopt);
    EXPECT_EQ(arguments.zoom, 1.0);
    EXPECT_EQ(arguments.scroll, Point());
    EXPECT_FALSE(arguments.wide);
}

TEST(OpenArguments, TakeEveryOptionInAnyPlace) {
    const auto parsed = parseOpen({"--wide", "--size", "320x480", "a b.doc", "--zoom=1.5", "--scroll",
                                   "10,2000", "--password", "geheim ü", "--output", "out.png"});
    const auto& arguments = std::get<OpenArguments>(parsed);
    EXPECT_EQ(arguments.file, "a b.doc");
    EXPECT_EQ(arguments.output, "out.png");
    EXPECT_EQ(arguments.width, 320);
    EXPECT_EQ(arguments.height, 480);
    EXPECT_EQ(arguments.password, "geheim ü");
    EXPECT_EQ(arguments.zoom, 1.5);
    EXPECT_EQ(arguments.scroll, (Point{10, 2000}));
    EXPECT_TRUE(arguments.wide);
}

TEST(OpenArguments, TakeAnEmptyPasswordAsGiven) {
    const auto parsed = parseOpen({"a.doc", "-o", "b.png", "--password="});
    EXPECT_EQ(std::get<OpenArguments>(parsed).password, "");
}

TEST(OpenArguments, TakeAFileThatLooksLikeAnOptionAfterTwoDashes) {
    const auto parsed = parseOpen({"-o", "b.png", "--", "-letter.doc"});
    EXPECT_EQ(std::get<OpenArguments>(parsed).file, "-letter.doc");
}

TEST(OpenArguments, MustNameOneFileAndAPicture) {
    EXPECT_THAT(misuse(parseOpen({"-o", "b.png"})), HasSubstr("no FILE"));
    EXPECT_THAT(misuse(parseOpen({"a.doc", "b.doc", "-o", "b.png"})), HasSubstr("more than one"));
    EXPECT_THAT(misuse(parseOpen({"a.doc"})), HasSubstr("-o OUT.png"));
}

TEST(OpenArguments, RefuseWhatIsNoValueAndSayWhatIs) {
    EXPECT_THAT(misuse(parseOpen({"a.doc", "-o", "b.png", "--size", "big"})), HasSubstr("480x800"));
    EXPECT_THAT(misuse(parseOpen({"a.doc", "-o", "b.png", "--zoom", "0"})), HasSubstr("'0' is no zoom"));
    EXPECT_THAT(misuse(parseOpen({"a.doc", "-o", "b.png", "--scroll", "7"})), HasSubstr("'7' is no place"));
    EXPECT_THAT(misuse(parseOpen({"a.doc", "-o", "b.png", "--colour"})), HasSubstr("--colour"));
    EXPECT_NE(misuse(parseOpen({"a.doc", "-o"})), "");
}

TEST(HelpOption, ShowsEverySubcommandsOptions) {
    EXPECT_THAT(std::get<Help>(parseOpen({"--help"})).text, HasSubstr("--zoom=F"));
    EXPECT_THAT(std::get<Help>(parseInfo({"-h"})).text, HasSubstr("lectern info"));
    EXPECT_THAT(std::get<Help>(parseSearch({"--help"})).text, HasSubstr("lectern search"));
    EXPECT_THAT(std::get<Help>(parseServe({"--help"})).text, HasSubstr("lectern serve"));
}

TEST(InfoArguments, AreAFileAndPerhapsAPassword) {
    const auto parsed = parseInfo({"--password", "x", "a.doc"});
    EXPECT_EQ(std::get<InfoArguments>(parsed).file, "a.doc");
    EXPECT_EQ(std::get<InfoArguments>(parsed).password, "x");
    EXPECT_THAT(misuse(parseInfo({})), HasSubstr("no FILE"));
}

TEST(OpenArguments, SearchForATextAndGoToOneOfItsHits) {
    const auto parsed = parseOpen({"a.doc", "-o", "b.png", "--search", "Größe 1", "--hit=12"});
    EXPECT_EQ(std::get<OpenArguments>(parsed).search, "Größe 1");
    EXPECT_EQ(std::get<OpenArguments>(parsed).hit, 12);
    const auto first = parseOpen({"a.doc", "-o", "b.png", "--search="});
    EXPECT_EQ(std::get<OpenArguments>(first).search, "");
    EXPECT_EQ(std::get<OpenArguments>(first).hit, 1);
    EXPECT_EQ(misuse(parseOpen({"a.doc", "-o", "b.png", "--hit", "2"})), "--hit needs a --search");
    EXPECT_THAT(misuse(parseOpen({"a.doc", "-o", "b.png", "--search", "x", "--hit", "0"})),
                HasSubstr("'0' is no hit"));
}

TEST(SearchArguments, AreAFileATextAndPerhapsAPassword) {
    const auto parsed = parseSearch({"a.doc", "--password", "x", "two words"});
    EXPECT_EQ(std::get<SearchArguments>(parsed).file, "a.doc");
    EXPECT_EQ(std::get<SearchArguments>(parsed).text, "two words");
    EXPECT_EQ(std::get<SearchArguments>(parsed).password, "x");
    EXPECT_THAT(misuse(parseSearch({"a.doc"})), HasSubstr("a TEXT to look for"));
    EXPECT_THAT(misuse(parseSearch({"a.doc", "two", "words"})), HasSubstr("quote it"));
}

TEST(ServeArguments, AreNone) {
    EXPECT_TRUE(std::holds_alternative<ServeArguments>(parseServe({})));
    EXPECT_THAT(misuse(parseServe({"now"})), HasSubstr("no operands"));
}

TEST(Values, SizesAreTwoSidesWithinTheServicesLimits) {
    EXPECT_EQ(parseSize("1x16384"), std::pair(1, 16384));
    for (const char* word :
         {"", "x", "480", "480x", "x800", "0x1", "1x16385", "-1x1", "480x800 ", "480X800", "4.5x8"}) {
        EXPECT_EQ(parseSize(word), std::nullopt) << word;
    }
}

TEST(Values, PositionsAreTwoNumbersFromZero) {
    EXPECT_EQ(parsePosition("0,2147483647"), std::pair(0, 2147483647));
    for (const char* word : {"", ",", "1", "1,", "-1,0", "0,2147483648", "1, 2"}) {
        EXPECT_EQ(parsePosition(word), std::nullopt) << word;
    }
}

TEST(Values, CountsAreWholeNumbersFromOne) {
    EXPECT_EQ(parseCount("2147483647"), 2147483647);
    for (const char* word : {"", "0", "-1", "1.5", "2147483648", "3x"}) {
        EXPECT_EQ(parseCount(word), std::nullopt) << word;
    }
}

TEST(Values, FactorsAreFiniteAndAboveZero) {
    EXPECT_EQ(parseFactor("0.25"), 0.25);
    for (const char* word : {"", "0", "-1", "nan", "inf", "1e999", "1,5", "2x"}) {
        EXPECT_EQ(parseFactor(word), std::nullopt) << word;
    }
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
#include "client/command/Arguments.h"

#include "client/command/Values.h"

#include <gmock/gmock.h>

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
    EXPECT_THAT(misuse(parseOpen({"-o", "b.png"})), HasSubstr("FILE is missing"));
    EXPECT_THAT(misuse(parseOpen({"a.doc", "b.doc", "-o", "b.png"})),
                HasSubstr("'b.doc' is an unexpected argument"));
    EXPECT_THAT(misuse(parseOpen({"a.doc"})), HasSubstr("-o OUT.png"));
}

TEST(OpenArguments, RefuseWhatIsNoValueAndSayWhatIs) {
    EXPECT_THAT(misuse(parseOpen({"a.doc", "-o", "b.png", "--size", "big"})), HasSubstr("480x800"));
    EXPECT_THAT(misuse(parseOpen({"a.doc", "-o", "b.png", "--zoom", "0"})),
                HasSubstr("'0' is not a valid zoom"));
    EXPECT_THAT(misuse(parseOpen({"a.doc", "-o", "b.png", "--scroll", "7"})),
                HasSubstr("'7' is not a valid position"));
    EXPECT_THAT(misuse(parseOpen({"a.doc", "-o", "b.png", "--colour"})), HasSubstr("--colour"));
    EXPECT_NE(misuse(parseOpen({"a.doc", "-o"})), "");
}

TEST(HelpOption, ShowsASubcommandsOptions) {
    EXPECT_THAT(std::get<Help>(parseOpen({"--help"})).text, HasSubstr("--zoom=F"));
    EXPECT_THAT(std::get<Help>(parseInfo({"-h"})).text, HasSubstr("lectern info"));
    EXPECT_THAT(std::get<Help>(parseNote({"--help"})).text, HasSubstr("FILE --slide N"));
}

TEST(OpenArguments, ShowASheetOrASlideCountedFromOne) {
    EXPECT_EQ(std::get<OpenArguments>(parseOpen({"a.xls", "-o", "b.png", "--sheet", "3"})).sheet, 3);
    EXPECT_EQ(std::get<OpenArguments>(parseOpen({"a.ppt", "-o", "b.png", "--slide=12"})).slide, 12);
    EXPECT_THAT(misuse(parseOpen({"a.xls", "-o", "b.png", "--sheet", "0"})),
                HasSubstr("'0' is not a valid sheet number"));
    EXPECT_THAT(misuse(parseOpen({"a.ppt", "-o", "b.png", "--slide", "x"})),
                HasSubstr("'x' is not a valid slide number"));
    EXPECT_THAT(misuse(parseOpen({"a.xls", "-o", "b.png", "--sheet", "1", "--slide", "1"})),
                HasSubstr("--sheet and --slide"));
}

TEST(PrintArguments, AreAFileAndPerhapsAPasswordOrJson) {
    for (const auto parse : {parseInfo, parseSheets, parseSlides}) {
        const auto parsed = parse({"--password", "x", "a.doc", "--json"});
        EXPECT_EQ(std::get<PrintArguments>(parsed).file, "a.doc");
        EXPECT_EQ(std::get<PrintArguments>(parsed).password, "x");
        EXPECT_TRUE(std::get<PrintArguments>(parsed).json);
        EXPECT_FALSE(std::get<PrintArguments>(parse({"a.doc"})).json);
        EXPECT_THAT(misuse(parse({})), HasSubstr("FILE is missing"));
    }
}

TEST(NoteArguments, MustNameASlide) {
    const auto parsed = parseNote({"a.ppt", "--slide", "2", "-j"});
    EXPECT_EQ(std::get<NoteArguments>(parsed).print.file, "a.ppt");
    EXPECT_TRUE(std::get<NoteArguments>(parsed).print.json);
    EXPECT_EQ(std::get<NoteArguments>(parsed).slide, 2);
    EXPECT_THAT(misuse(parseNote({"a.ppt"})), HasSubstr("--slide N"));
    EXPECT_THAT(misuse(parseNote({"a.ppt", "--slide", "-1"})), HasSubstr("'-1' is not a valid slide number"));
}

TEST(OpenArguments, SearchForATextAndGoToOneOfItsHits) {
    const auto parsed = parseOpen({"a.doc", "-o", "b.png", "--search", "Größe 1", "--hit=12"});
    EXPECT_EQ(std::get<OpenArguments>(parsed).search, "Größe 1");
    EXPECT_EQ(std::get<OpenArguments>(parsed).hit, 12);
    const auto first = parseOpen({"a.doc", "-o", "b.png", "--search="});
    EXPECT_EQ(std::get<OpenArguments>(first).search, "");
    EXPECT_EQ(std::get<OpenArguments>(first).hit, 1);
    EXPECT_EQ(misuse(parseOpen({"a.doc", "-o", "b.png", "--hit", "2"})), "--hit needs --search");
    EXPECT_THAT(misuse(parseOpen({"a.doc", "-o", "b.png", "--search", "x", "--hit", "0"})),
                HasSubstr("'0' is not a valid hit number"));
}

TEST(DocumentType, BelongsToStandardInput) {
    const auto parsed = parseInfo({"-", "--type", "docx"});
    EXPECT_EQ(std::get<PrintArguments>(parsed).file, "-");
    EXPECT_EQ(std::get<PrintArguments>(parsed).type, "docx");
    EXPECT_EQ(std::get<OpenArguments>(parseOpen({"-", "-t", "xls", "-o", "-"})).type, "xls");
    EXPECT_EQ(std::get<PlayArguments>(parsePlay({"a.play", "-", "-t", "ppt", "-o", "b"})).type, "ppt");
    EXPECT_EQ(misuse(parseInfo({"a.docx", "--type", "docx"})), "--type works with FILE - only");
    EXPECT_THAT(misuse(parseInfo({"-"})), HasSubstr("the type of the document"));
    EXPECT_THAT(misuse(parseInfo({"-", "--type", ".docx"})), HasSubstr("'.docx' is not a known type"));
}

TEST(SearchArguments, AreAFileATextAndPerhapsASheet) {
    const auto parsed = parseSearch({"a.doc", "--password", "x", "two words", "--sheet", "4"});
    EXPECT_EQ(std::get<SearchArguments>(parsed).print.file, "a.doc");
    EXPECT_EQ(std::get<SearchArguments>(parsed).text, "two words");
    EXPECT_EQ(std::get<SearchArguments>(parsed).print.password, "x");
    EXPECT_EQ(std::get<SearchArguments>(parsed).sheet, 4);
    EXPECT_EQ(misuse(parseSearch({"a.doc"})), "TEXT is missing");
    EXPECT_THAT(misuse(parseSearch({"a.doc", "two", "words"})), HasSubstr("put quotes around"));
}

TEST(PlayArguments, AreAScriptAFileAndAFolder) {
    const auto parsed = parsePlay({"a.play", "b.doc", "-o", "frames", "--size", "320x480", "-p", "x"});
    const auto& arguments = std::get<PlayArguments>(parsed);
    EXPECT_EQ(arguments.script, "a.play");
    EXPECT_EQ(arguments.file, "b.doc");
    EXPECT_EQ(arguments.folder, "frames");
    EXPECT_EQ(arguments.width, 320);
    EXPECT_EQ(arguments.height, 480);
    EXPECT_EQ(arguments.password, "x");
    EXPECT_EQ(misuse(parsePlay({"a.play", "-o", "frames"})), "FILE is missing");
    EXPECT_THAT(misuse(parsePlay({"a.play", "b.doc"})), HasSubstr("-o FOLDER"));
}

TEST(CallArguments, AreACategoryAMethodAndAJsonObject) {
    const auto parsed = parseCall({"/common", "Search", R"({"docid": 0})"});
    EXPECT_EQ(std::get<CallArguments>(parsed).category, "/common");
    EXPECT_EQ(std::get<CallArguments>(parsed).method, "Search");
    EXPECT_EQ(std::get<CallArguments>(parsed).payload, R"({"docid": 0})");
    EXPECT_EQ(std::get<CallArguments>(parseCall({"ppt", "x", "{}"})).category, "/ppt");
}

TEST(CallArguments, MustBeSuchThatTheBusCanCarryThem) {
    for (const char* category : {"", "/", "a b", "/a/", "//"}) {
        EXPECT_THAT(misuse(parseCall({category, "x", "{}"})), HasSubstr("is not a valid category"))
            << category;
    }
    for (const char* method : {"", "a.b", "1st", "a b"}) {
        EXPECT_THAT(misuse(parseCall({"/common", method, "{}"})), HasSubstr("is not a valid method"))
            << method;
    }
    for (const char* payload : {"", "{", "7", "[]"}) {
        EXPECT_THAT(misuse(parseCall({"/common", "x", payload})), HasSubstr("is not a JSON object"))
            << payload;
    }
    EXPECT_EQ(misuse(parseCall({"/common", "x"})), "JSON is missing");
}

TEST(ServeArguments, AreNone) {
    EXPECT_TRUE(std::holds_alternative<ServeArguments>(parseServe({})));
    EXPECT_THAT(misuse(parseServe({"now"})), HasSubstr("'now' is an unexpected argument"));
}

TEST(ViewArguments, AreAnyNumberOfFiles) {
    EXPECT_TRUE(std::get<WindowArguments>(parseView({})).files.empty());
    EXPECT_EQ(std::get<WindowArguments>(parseView({"a b.doc", "--", "-c.xls"})).files,
              (std::vector<std::string>{"a b.doc", "-c.xls"}));
    EXPECT_THAT(misuse(parseView({"-"})), HasSubstr("does not read standard input"));
    EXPECT_THAT(misuse(parseView({"--big"})), HasSubstr("--big"));
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

TEST(Values, IntegersStayWithinTheirLimits) {
    EXPECT_EQ(parseInteger("-7", -7, 7), -7);
    for (const char* word : {"", "-8", "8", "1.0", "0x1", " 1"}) {
        EXPECT_EQ(parseInteger(word, -7, 7), std::nullopt) << word;
    }
}

TEST(Values, FactorsAreFiniteAndAboveZero) {
    EXPECT_EQ(parseFactor("0.25"), 0.25);
    for (const char* word : {"", "0", "-1", "nan", "inf", "1e999", "1,5", "2x"}) {
        EXPECT_EQ(parseFactor(word), std::nullopt) << word;
    }
}

} // namespace

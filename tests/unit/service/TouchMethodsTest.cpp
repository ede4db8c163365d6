// SPDX-License-Identifier: Apache-2.0
// The category "/touch" on a view that answers what a test tells: parameters, errors,
// and replies that are well-formed whatever the texts are.
#include "ServiceTest.h"
#include "service/BusCall.h"
#include "touch/TouchView.h"

#include <json-c/json.h>

#include <cmath>
#include <limits>
#include <utility>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr char NOT_TOUCH[] = R"({ "errorCode": "errWrongType", "errorText": "Not a touch view" })";

// Quotes, backslashes, control characters, other scripts, and a character beyond 16 bits.
const std::string HARD = "a \"b\" \\ \b\n\t\x01 größe \xE6\x96\x87 \xF0\x9F\x9A\xA2 </script>";

// Records the operations with their arguments and answers as told.
class TellingView : public RecordingView, public TouchView {
public:
    TellingView(std::vector<std::string>& trace, unsigned int dataStore)
        : RecordingView(trace, dataStore), mCalls(trace) {}

    void watchOpen(OpenWatch /*watch*/) override {}
    ViewPlace place() const override { return told.place; }
    void scrollTo(int x, int y) override { note("scrollTo " + std::to_string(x) + " " + std::to_string(y)); }
    void zoomTo(double zoom, const CpPoint& about) override {
        note("zoomTo " + std::to_string(zoom).substr(0, 4) + " " + at(about));
    }
    void resize(int /*width*/, int /*height*/) override {}
    CpPoint middle() const override { return {240, 400}; }
    std::string lastLink() const override { return told.text; }
    TouchResult search(const char* text, const SearchOptions& options, HitPlace& hit) override {
        note(std::string("search ") + text + (options.matchCase ? " case" : "") +
             (options.wholeWords ? " words" : ""));
        hit = told.hit;
        return told.result;
    }
    TouchResult stepToHit(int step, HitPlace& hit) override {
        note("step " + std::to_string(step));
        hit = told.hit;
        return told.result;
    }
    TouchResult select(SelectUnit unit, const CpPoint& point) override {
        note("select " + std::to_string(static_cast<int>(unit)) + " " + at(point));
        return told.result;
    }
    TouchResult moveSelectionEnd(SelectEnd end, const CpPoint& point) override {
        note("end " + std::to_string(static_cast<int>(end)) + " " + at(point));
        return told.result;
    }
    TouchResult selection(Selection& selection) override {
        selection = {told.text, {CpRect(1, 2, 4, 6)}};
        return told.result;
    }
    TouchResult visibleText(std::vector<TextLine>& lines) override {
        lines = {{told.text, CpRect(1, 2, 4, 6)}, {"", CpRect(0, 0, 0, 0)}};
        return told.result;
    }
    TouchResult outline(std::vector<OutlineEntry>& entries) override {
        entries = {{told.text, 1, 2}};
        return told.result;
    }
    TouchResult goTo(int entry) override {
        note("goTo " + std::to_string(entry));
        return told.result;
    }
    TouchResult cell(int column, int row, Cell& cell) override {
        note("cell " + std::to_string(column) + " " + std::to_string(row));
        cell = {1, 6, "B7", told.text, told.text, told.text, CpRect(1, 2, 4, 6)};
        return told.result;
    }
    TouchResult thumbnail(int part, uint32_t* pixels, int width, int height) override {
        note("thumbnail " + std::to_string(part));
        pixels[width * height - 1] = 0xFF00FF00;
        return told.result;
    }

    struct {
        TouchResult result = TouchResult::Ok;
        std::string text;
        HitPlace hit;
        ViewPlace place;
    } told;

private:
    static std::string at(const CpPoint& point) {
        return std::to_string(point.x) + "," + std::to_string(point.y);
    }
    void note(const std::string& call) { mCalls.push_back(call); }

    std::vector<std::string>& mCalls;
};

using Json = std::unique_ptr<json_object, decltype(&json_object_put)>;

class TouchMethodsTest : public ServiceTest {
protected:
    TellingView& addTouchView() {
        const auto docid = static_cast<int>(gDocuments.size());
        Documents record;
        record.view = std::make_unique<TellingView>(trace, static_cast<unsigned int>(addressOf(docid)));
        gDocuments.push_back(std::move(record));
        return static_cast<TellingView&>(*gDocuments.back().view);
    }
    std::string reply(const std::string& method, const std::string& more = "") {
        trace.clear();
        return call("/touch", method, R"({"docid": 0)" + more + "}").value_or("no reply");
    }
    static Json parsed(const std::string& text) {
        json_tokener* tokener = json_tokener_new();
        json_tokener_set_flags(tokener, JSON_TOKENER_STRICT);
        json_object* object = json_tokener_parse_ex(tokener, text.c_str(), static_cast<int>(text.size()) + 1);
        json_tokener_free(tokener);
        EXPECT_NE(object, nullptr) << text;
        return {object, json_object_put};
    }
    static std::string member(json_object* object, const char* key) {
        json_object* value = nullptr;
        EXPECT_NE(json_object_object_get_ex(object, key, &value), 0) << key;
        return json_object_get_string(value);
    }
    static json_object* first(json_object* object, const char* key) {
        json_object* list = nullptr;
        json_object_object_get_ex(object, key, &list);
        return json_object_array_get_idx(list, 0);
    }
    static std::string failure(const char* code, const char* text) {
        return formatErrorJsonObject(code, text);
    }

    // All methods with parameters that they take; those that a view can refuse.
    static std::vector<std::pair<std::string, std::string>> refusable() {
        return {{"search", R"(, "search": "b")"},
                {"nextResult", ""},
                {"previousResult", ""},
                {"select", R"(, "unit": "all")"},
                {"select", R"(, "end": "start", "x": 1, "y": 2)"},
                {"getSelection", ""},
                {"getText", ""},
                {"getOutline", ""},
                {"goTo", R"(, "entry": 1)"},
                {"getCell", ""}};
    }
};

TEST_F(TouchMethodsTest, ThePlaceHasEveryNumber) {
    ViewPlace& place = addTouchView().told.place;
    place.documentWidth = 480;
    place.documentHeight = 5'000'000'000;
    place.view = CpRect(-3, 20, 477, 820);
    place.zoom = 1.5;
    place.smallestZoom = 0.25;
    place.largestZoom = 8;
    place.fit = 1;
    place.part = 2;
    place.parts = 7;
    place.hit = 3;
    place.hits = 9;
    place.isMoving = true;
    EXPECT_EQ(
        reply("getView"),
        R"({ "documentWidth": 480, "documentHeight": 5000000000, "x": -3, "y": 20, "width": 480, )"
        R"("height": 800, "zoom": 1.5, "smallestZoom": 0.25, "largestZoom": 8.0, "fit": 1.0, "part": 2, )"
        R"("parts": 7, "hit": 3, "hits": 9, "moving": true })");
    EXPECT_THAT(trace, IsEmpty());
}

TEST_F(TouchMethodsTest, NumbersThatAreNoneStayWellFormed) {
    ViewPlace& place = addTouchView().told.place;
    place.zoom = std::numeric_limits<double>::max();
    place.fit = std::numeric_limits<double>::denorm_min();
    place.documentHeight = std::numeric_limits<long long>::max();
    parsed(reply("getView"));
}

TEST_F(TouchMethodsTest, ScrollsTakeAPoint) {
    addTouchView();
    EXPECT_EQ(reply("scrollTo", R"(, "x": -5, "y": "70")"), DONE);
    EXPECT_THAT(trace, ElementsAre("scrollTo -5 70"));
}

TEST_F(TouchMethodsTest, ZoomsAreAboutAPointOrTheCentre) {
    addTouchView().told.place.view = CpRect(100, 100, 580, 900);
    EXPECT_EQ(reply("zoomTo", R"(, "zoom": 2.5, "x": 10, "y": 20)"), DONE);
    EXPECT_THAT(trace, ElementsAre("zoomTo 2.50 10,20"));
    EXPECT_EQ(reply("zoomTo", R"(, "zoom": 2)"), DONE);
    EXPECT_THAT(trace, ElementsAre("zoomTo 2.00 240,400"));
}

TEST_F(TouchMethodsTest, ZoomsThatAreNoneAreRefused) {
    addTouchView();
    for (const char* zoom : {"0", "-1", "NaN", "Infinity", "-0.0"}) {
        EXPECT_EQ(reply("zoomTo", std::string(R"(, "zoom": )") + zoom),
                  failure(OUT_OF_RANGE, OUT_OF_RANGE_TEXT))
            << zoom;
        EXPECT_THAT(trace, IsEmpty());
    }
}

TEST_F(TouchMethodsTest, SearchesTakeOptionsAndAnswerTheHit) {
    addTouchView().told.hit = {2, 9, 1};
    EXPECT_EQ(reply("search", R"(, "search": "b \"c\"", "matchCase": true, "wholeWords": true)"),
              R"({ "hit": 2, "hits": 9, "part": 1 })");
    EXPECT_THAT(trace, ElementsAre("search b \"c\" case words"));
    reply("search", R"(, "search": "b")");
    EXPECT_THAT(trace, ElementsAre("search b"));
    EXPECT_EQ(reply("nextResult"), R"({ "hit": 2, "hits": 9, "part": 1 })");
    EXPECT_THAT(trace, ElementsAre("step 1"));
    reply("previousResult");
    EXPECT_THAT(trace, ElementsAre("step -1"));
}

TEST_F(TouchMethodsTest, SelectionsTakeAUnitOrAnEnd) {
    addTouchView();
    EXPECT_EQ(reply("select", R"(, "unit": "word", "x": 3, "y": 4)"), DONE);
    EXPECT_THAT(trace, ElementsAre("select 1 3,4"));
    reply("select", R"(, "unit": "line", "x": 3, "y": 4)");
    EXPECT_THAT(trace, ElementsAre("select 2 3,4"));
    reply("select", R"(, "unit": "all")");
    EXPECT_THAT(trace, ElementsAre("select 3 0,0"));
    reply("select", R"(, "unit": "none")");
    EXPECT_THAT(trace, ElementsAre("select 0 0,0"));
    reply("select", R"(, "end": "start", "x": 3, "y": 4)");
    EXPECT_THAT(trace, ElementsAre("end 0 3,4"));
    reply("select", R"(, "end": "end", "x": 3, "y": 4)");
    EXPECT_THAT(trace, ElementsAre("end 1 3,4"));
}

TEST_F(TouchMethodsTest, SelectionsWithoutTheirPointOrOfUnknownWordsAreRefused) {
    addTouchView();
    for (const char* more : {"", R"(, "unit": "word")", R"(, "unit": "line", "x": 1)", R"(, "end": "end")"}) {
        EXPECT_EQ(reply("select", more), NO_PARAMETER_TEXT) << more;
    }
    for (const char* more : {R"(, "unit": "page", "x": 1, "y": 2)", R"(, "end": "middle", "x": 1, "y": 2)"}) {
        EXPECT_EQ(reply("select", more), failure(OUT_OF_RANGE, OUT_OF_RANGE_TEXT)) << more;
    }
    EXPECT_THAT(trace, IsEmpty());
}

TEST_F(TouchMethodsTest, TextsOfDocumentsAreEscaped) {
    addTouchView().told.text = HARD;
    EXPECT_EQ(member(parsed(reply("getLink")).get(), "link"), HARD);
    const Json selection = parsed(reply("getSelection"));
    EXPECT_EQ(member(selection.get(), "text"), HARD);
    EXPECT_EQ(member(first(selection.get(), "rectangles"), "height"), "4");
    const Json text = parsed(reply("getText"));
    EXPECT_EQ(member(first(text.get(), "lines"), "text"), HARD);
    EXPECT_EQ(member(first(text.get(), "lines"), "width"), "3");
    const Json outline = parsed(reply("getOutline"));
    EXPECT_EQ(member(first(outline.get(), "entries"), "title"), HARD);
    EXPECT_EQ(member(first(outline.get(), "entries"), "part"), "2");
    const Json cell = parsed(reply("getCell"));
    for (const char* key : {"text", "formula", "comment"}) {
        EXPECT_EQ(member(cell.get(), key), HARD);
    }
}

TEST_F(TouchMethodsTest, RepliesHaveNoControlCharacters) {
    addTouchView().told.text = HARD;
    for (const char* method : {"getLink", "getSelection", "getText", "getOutline", "getCell"}) {
        for (const char byte : reply(method)) {
            EXPECT_TRUE(static_cast<unsigned char>(byte) >= 0x20) << method;
        }
    }
}

TEST_F(TouchMethodsTest, CellsAreAskedForByBothNumbersOrTheTappedOneIsMeant) {
    addTouchView();
    reply("getCell", R"(, "column": 3, "row": 4)");
    EXPECT_THAT(trace, ElementsAre("cell 3 4"));
    for (const char* more : {"", R"(, "column": 3)", R"(, "row": 4)"}) {
        reply("getCell", more);
        EXPECT_THAT(trace, ElementsAre("cell -1 -1")) << more;
    }
}

TEST_F(TouchMethodsTest, EntriesAreGoneTo) {
    addTouchView();
    EXPECT_EQ(reply("goTo", R"(, "entry": 4)"), DONE);
    EXPECT_THAT(trace, ElementsAre("goTo 4"));
    EXPECT_EQ(reply("goTo"), NO_PARAMETER_TEXT);
}

TEST_F(TouchMethodsTest, FailuresOfAViewHaveTheirErrors) {
    TellingView& view = addTouchView();
    const std::vector<std::pair<TouchResult, std::string>> failures = {
        {TouchResult::NothingThere, failure("errNothingThere", "nothing there")},
        {TouchResult::OutOfRange, failure(OUT_OF_RANGE, OUT_OF_RANGE_TEXT)},
        {TouchResult::NotSupported, failure("errNotSupported", "not supported for this document")},
        {TouchResult::Failed, failure("errFailed", "the document could not do it")}};
    for (const auto& [result, expected] : failures) {
        view.told.result = result;
        for (const auto& [method, more] : refusable()) {
            EXPECT_EQ(reply(method, more), expected) << method;
        }
    }
}

TEST_F(TouchMethodsTest, AnUnusableThumbnailSegmentIsOutOfRange) {
    addTouchView();
    EXPECT_EQ(
        reply("getThumbnail", R"(, "part": 0, "width": 4, "height": 4, "shmid": 999999999, "size": 64)"),
        failure(OUT_OF_RANGE, OUT_OF_RANGE_TEXT));
    EXPECT_THAT(trace, IsEmpty());
}

TEST_F(TouchMethodsTest, OtherViewsAndNumbersAreRefused) {
    addView();
    testing::internal::CaptureStderr();
    for (const auto& [method, more] : refusable()) {
        EXPECT_EQ(reply(method, more), NOT_TOUCH) << method;
        EXPECT_THAT(trace, IsEmpty());
    }
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("Not a touch view\n"));
    for (const auto& [method, more] : refusable()) {
        EXPECT_EQ(call("/touch", method, R"({"docid": 9)" + more + "}"), NO_DOCUMENT) << method;
    }
    EXPECT_EQ(call("/touch", "getView", "{}"), NO_DOCID_TEXT);
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
#include "client/lib/ViewCalls.h"
#include "tests/unit/client/CallsFixture.h"
#include <lectern/TouchCalls.h>

#include <gmock/gmock.h>

namespace {

using namespace lectern;
using testing::ElementsAre;

class TouchCalls : public CallsTest {};

TEST_F(TouchCalls, TheViewsPlaceHasAllNumbersOfTheReply) {
    mService.answer("/touch getView",
                    R"({"documentWidth": 480, "documentHeight": 5000000000, "x": 1, "y": -2, "width": 480,)"
                    R"( "height": 800, "zoom": 1.5, "smallestZoom": 0.25, "largestZoom": 8, "fit": 1.0,)"
                    R"( "part": 3, "parts": 7, "hit": 4, "hits": 9, "moving": true})");
    const auto place = ask(touch::getView(), 6);
    ASSERT_TRUE(place);
    EXPECT_EQ(payload().integer("docid"), 6);
    EXPECT_EQ(place->documentWidth, 480);
    EXPECT_EQ(place->documentHeight, 5'000'000'000);
    EXPECT_EQ(place->view, (touch::Rectangle{1, -2, 480, 800}));
    EXPECT_EQ(place->zoom, 1.5);
    EXPECT_EQ(place->smallestZoom, 0.25);
    EXPECT_EQ(place->largestZoom, 8.0);
    EXPECT_EQ(place->fit, 1.0);
    EXPECT_EQ(place->part, 3);
    EXPECT_EQ(place->parts, 7);
    EXPECT_EQ(place->hit, 4);
    EXPECT_EQ(place->hits, 9);
    EXPECT_TRUE(place->isMoving);
}

TEST_F(TouchCalls, MovesAndZoomsNameThePoint) {
    EXPECT_FALSE(ask(touch::scrollTo({30, 40})));
    EXPECT_EQ(place(), "/touch scrollTo");
    EXPECT_EQ(payload().integer("x"), 30);
    EXPECT_EQ(payload().integer("y"), 40);
    EXPECT_FALSE(ask(touch::zoomTo(2.5)));
    EXPECT_EQ(place(), "/touch zoomTo");
    EXPECT_EQ(payload().real("zoom"), 2.5);
    EXPECT_FALSE(payload().has("x")) << "about the view's centre";
    EXPECT_FALSE(ask(touch::zoomTo(2.0, Point{5, 6})));
    EXPECT_EQ(payload().real("zoom"), 2.0);
    EXPECT_EQ(payload().integer("x"), 5);
    EXPECT_EQ(payload().integer("y"), 6);
}

TEST_F(TouchCalls, ALinkIsAText) {
    mService.answer("/touch getLink", R"({"link": "https://a.example/?q=\"ü\""})");
    EXPECT_EQ(*ask(touch::getLink()), "https://a.example/?q=\"ü\"");
    mService.answer("/touch getLink", "{}");
    EXPECT_FALSE(ask(touch::getLink()));
}

TEST_F(TouchCalls, ASearchSendsItsOptionsAndNumbersItsHits) {
    mService.answer("/touch search", R"({"hit": 2, "hits": 9, "part": 1})");
    mService.answer("/touch nextResult", R"({"hit": 3, "hits": 9, "part": 1})");
    mService.answer("/touch previousResult", R"({"hit": 2, "hits": 9, "part": 1})");
    EXPECT_EQ(*ask(touch::search("boat", {.matchCase = true})), (touch::Hit{2, 9, 1}));
    EXPECT_EQ(payload().string("search"), "boat");
    EXPECT_EQ(payload().boolean("matchCase"), true);
    EXPECT_EQ(payload().boolean("wholeWords"), false);
    EXPECT_EQ(*ask(touch::nextResult()), (touch::Hit{3, 9, 1}));
    EXPECT_EQ(*ask(touch::previousResult()), (touch::Hit{2, 9, 1}));
    mService.answer("/touch nextResult", R"({"errorCode": "errNothingThere", "errorText": "nothing there"})");
    EXPECT_EQ(ask(touch::nextResult()).error().name, "errNothingThere");
}

TEST_F(TouchCalls, ASelectionIsMadeOfUnitsAndEnds) {
    using touch::SelectUnit;
    for (const auto& [unit, word] : {std::pair(SelectUnit::None, "none"),
                                     {SelectUnit::Word, "word"},
                                     {SelectUnit::Line, "line"},
                                     {SelectUnit::All, "all"}}) {
        EXPECT_FALSE(ask(touch::select(unit, {7, 8})));
        EXPECT_EQ(payload().string("unit"), word);
        EXPECT_EQ(payload().integer("x"), 7);
    }
    EXPECT_FALSE(ask(touch::moveSelectionEnd(touch::SelectEnd::Start, {1, 2})));
    EXPECT_EQ(place(), "/touch select");
    EXPECT_EQ(payload().string("end"), "start");
    EXPECT_FALSE(payload().has("unit"));
    EXPECT_FALSE(ask(touch::moveSelectionEnd(touch::SelectEnd::End, {1, 2})));
    EXPECT_EQ(payload().string("end"), "end");
    EXPECT_EQ(payload().integer("y"), 2);
}

TEST_F(TouchCalls, SelectionsTextsAndOutlinesAreLists) {
    mService.answer("/touch getSelection",
                    R"({"text": "a\nb", "rectangles": [{"x": 1, "y": 2, "width": 3, "height": 4}]})");
    const auto selection = ask(touch::getSelection());
    ASSERT_TRUE(selection);
    EXPECT_EQ(selection->text, "a\nb");
    EXPECT_THAT(selection->rectangles, ElementsAre(touch::Rectangle{1, 2, 3, 4}));
    mService.answer(
        "/touch getText",
        R"({"lines": [{"text": "One", "x": 1, "y": 2, "width": 3, "height": 4}, {"text": "Two"}]})");
    const auto lines = ask(touch::getText());
    ASSERT_TRUE(lines);
    ASSERT_EQ(lines->size(), 2U);
    EXPECT_EQ(lines->front().text, "One");
    EXPECT_EQ(lines->front().place, (touch::Rectangle{1, 2, 3, 4}));
    mService.answer("/touch getOutline", R"({"entries": [{"title": "A \"B\"", "level": 1, "part": 5}]})");
    const auto entries = ask(touch::getOutline());
    ASSERT_TRUE(entries);
    ASSERT_EQ(entries->size(), 1U);
    EXPECT_EQ(entries->front().title, "A \"B\"");
    EXPECT_EQ(entries->front().level, 1);
    EXPECT_EQ(entries->front().part, 5);
    mService.answer("/touch getOutline", R"({"entries": 3})");
    EXPECT_FALSE(ask(touch::getOutline()));
}

TEST_F(TouchCalls, AnEntryIsGoneTo) {
    EXPECT_FALSE(ask(touch::goTo(12)));
    EXPECT_EQ(place(), "/touch goTo");
    EXPECT_EQ(payload().integer("entry"), 12);
}

TEST_F(TouchCalls, ACellIsTheOneAskedForOrTheTappedOne) {
    mService.answer("/touch getCell",
                    R"({"column": 1, "row": 6, "address": "B7", "text": "12", "formula": "=A7*2",)"
                    R"( "comment": "late", "x": 5, "y": 6, "width": 60, "height": 20})");
    const auto cell = ask(touch::getCell());
    ASSERT_TRUE(cell);
    EXPECT_FALSE(payload().has("column"));
    EXPECT_EQ(cell->at.column, 1);
    EXPECT_EQ(cell->at.row, 6);
    EXPECT_EQ(cell->address, "B7");
    EXPECT_EQ(cell->text, "12");
    EXPECT_EQ(cell->formula, "=A7*2");
    EXPECT_EQ(cell->comment, "late");
    EXPECT_EQ(cell->place, (touch::Rectangle{5, 6, 60, 20}));
    ASSERT_TRUE(ask(touch::getCell(touch::CellAddress{3, 4})));
    EXPECT_EQ(payload().integer("column"), 3);
    EXPECT_EQ(payload().integer("row"), 4);
}

TEST_F(TouchCalls, AFrameIsNamedByItsSegmentAndItsSize) {
    const auto frame = FrameBuffer::create(30, 20);
    ASSERT_TRUE(frame);
    EXPECT_FALSE(ask(touch::getThumbnail(4, *frame)));
    EXPECT_EQ(place(), "/touch getThumbnail");
    EXPECT_EQ(payload().integer("part"), 4);
    EXPECT_FALSE(ask(touch::resize(*frame)));
    EXPECT_EQ(place(), "/touch resize");
    EXPECT_EQ(payload().integer("width"), 30);
    EXPECT_EQ(payload().integer("height"), 20);
    EXPECT_EQ(payload().identifier("shmid"), frame->identifier());
    EXPECT_EQ(payload().integer("size"), static_cast<int>(frame->size()));
}

TEST_F(TouchCalls, AnExportNamesItsFormatAndItsFile) {
    EXPECT_FALSE(ask(touch::exportTo(touch::ExportFormat::Pdf, "/tmp/größe.pdf")));
    EXPECT_EQ(place(), "/touch export");
    EXPECT_EQ(payload().string("format"), "pdf");
    EXPECT_EQ(payload().string("path"), "/tmp/größe.pdf");
    EXPECT_FALSE(ask(touch::exportTo(touch::ExportFormat::Text, "/tmp/a.txt")));
    EXPECT_EQ(payload().string("format"), "text");
}

TEST_F(TouchCalls, ACancelDoesNotWaitForItsReply) {
    mService.answer("/touch cancel", std::nullopt);
    EXPECT_FALSE(touch::cancel(mBus, 9));
    EXPECT_EQ(mService.waitForCall("/touch cancel"), R"({ "docid": 9 })");
}

TEST_F(TouchCalls, AClassicViewIsRefused) {
    mService.answer("/touch getView", R"({"errorCode": "errWrongType", "errorText": "Not a touch view"})");
    EXPECT_EQ(ask(touch::getView()).error().name, "errWrongType");
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
// Notifications of the service as signals, and input.
#include "channel/DocAdapterCommon.h"
#include "tests/unit/glib/DocumentFixture.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;

class Signals : public DocumentTest {
protected:
    const Document mDocument = opened();
};

TEST_F(Signals, RecordsOfTheServiceBecomeSignals) {
    const std::vector<std::pair<ClientMessageId, const char*>> records = {
        {_INVALIDATED, "invalidated"},         {_HYPERLINK, "link-tapped"},
        {_COMMENT_TAPPED, "comment-tapped"},   {_CELL_TAPPED, "cell-tapped"},
        {_COLUMN_SELECTED, "column-selected"}, {_TRACKS_SELECTED, "tracks-selected"},
        {_TRACK_RESIZED, "track-resized"},     {_CLICK_UNUSED, "click-unused"},
        {_OVERSCROLL, "overscroll"},           {_DOCUMENT_LOST, "lost"},
    };
    for (const auto& [record, signal] : records) {
        Emissions emissions(mDocument.get(), signal);
        mFake.view().notify(record, 0, 1);
        emissions.waitFor(1);
    }
}

TEST_F(Signals, ACellHasItsColumnAndRow) {
    std::pair<int, int> cell;
    const auto take = [](LecternDocument*, int column, int row, gpointer told) {
        *static_cast<std::pair<int, int>*>(told) = {column, row};
    };
    g_signal_connect(mDocument.get(), "cell-tapped", G_CALLBACK(+take), &cell);
    Emissions emissions(mDocument.get(), "cell-tapped");
    mFake.view().notify(_CELL_TAPPED, 4, 7);
    emissions.waitFor(1);
    EXPECT_EQ(cell, std::pair(4, 7));
}

TEST_F(Signals, ALostDocumentTellsWhy) {
    int code = 0;
    const auto take = [](LecternDocument*, GError* error, gpointer told) {
        *static_cast<int*>(told) = error->domain == LECTERN_DOCUMENT_ERROR ? error->code : -1;
    };
    g_signal_connect(mDocument.get(), "lost", G_CALLBACK(+take), &code);
    Emissions emissions(mDocument.get(), "lost");
    mFake.view().notify(_DOCUMENT_LOST, 0, 10);
    emissions.waitFor(1);
    EXPECT_EQ(code, LECTERN_DOCUMENT_ERROR_ENGINE_LOST);
}

TEST_F(Signals, ADocumentMayBeFreedInAHandler) {
    Document document = make("/other.docx");
    ASSERT_EQ(open(document), nullptr);
    GWeakRef weak;
    g_weak_ref_init(&weak, document.get());
    const auto release = [](Document* own) { own->reset(); };
    g_signal_connect_swapped(document.get(), "link-tapped", G_CALLBACK(+release), &document);
    mFake.view().notify(_HYPERLINK, 0, 0);
    iterateUntil([&] { return lectern::GLibHolder<GObject>(G_OBJECT(g_weak_ref_get(&weak))) == nullptr; });
    g_weak_ref_clear(&weak);
}

TEST_F(Signals, InputReachesTheServiceInItsOrder) {
    LecternDocument* document = mDocument.get();
    lectern_document_pen_down(document, 1, 2);
    lectern_document_pen_move(document, 3, 4);
    mFake.view().waitForTaken(2);
    lectern_document_pen_up(document, 5, 6);
    lectern_document_pinch(document, 7, 8, 1.5, LECTERN_PINCH_GIVEN_UP);
    lectern_document_scroll_by(document, 0, 30);
    mFake.view().waitForTaken(5);
    EXPECT_THAT(mFake.view().taken(), ElementsAre(_PEN_DOWN, _PEN_MOVE, _PEN_UP, _PINCH, _SCROLL_BY));
    EXPECT_EQ(mFake.view().takenOf(_PEN_UP)[0].x, 5);
    EXPECT_EQ(mFake.view().takenOf(_PINCH)[0].pinchPhase(), _PINCH_GIVEN_UP);
    EXPECT_EQ(mFake.view().takenOf(_SCROLL_BY)[0].y, 30);
}

TEST_F(Signals, InputAsksForAPaintThatFollowsIt) {
    Emissions invalidated(mDocument.get(), "invalidated");
    lectern_document_scroll_by(mDocument.get(), 0, 30);
    invalidated.waitFor(1);
    paint(mDocument);
    EXPECT_THAT(mFake.view().taken(), ElementsAre(_SCROLL_BY, _PAINT));
}

TEST_F(Signals, ClicksAndFlicksReachTheService) {
    lectern_document_click(mDocument.get(), 1, 2);
    EXPECT_EQ(sent("/events handleClick").integer("yCoord"), 2);
    lectern_document_double_click(mDocument.get(), 3, 4);
    EXPECT_EQ(sent("/events handleDoubleClick").integer("xCoord"), 3);
    lectern_document_flick(mDocument.get(), 0, -900);
    mFake.waitForCall("/events handleFlick");
}

TEST_F(Signals, InputBeforeTheOpenIsDropped) {
    const Document document = make();
    lectern_document_pen_down(document.get(), 1, 2);
    lectern_document_click(document.get(), 1, 2);
    EXPECT_THAT(mFake.view().taken(), ElementsAre());
}

} // namespace

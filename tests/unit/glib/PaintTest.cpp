// SPDX-License-Identifier: Apache-2.0
#include "tests/unit/glib/DocumentFixture.h"

namespace {

using lectern::GLibHolder;

class Paint : public DocumentTest {
protected:
    static uint32_t firstPixel(GBytes* frame) {
        return *static_cast<const uint32_t*>(g_bytes_get_data(frame, nullptr));
    }
    static void resize(const Document& document, int width, int height) {
        Result resized;
        lectern_document_resize_async(document.get(), width, height, nullptr, Result::take, &resized);
        EXPECT_TRUE(lectern_document_resize_finish(document.get(), resized.wait(), nullptr));
    }
};

TEST_F(Paint, ThereIsNoFrameBeforeIt) {
    const Document document = opened();
    int width = -1;
    int height = -1;
    EXPECT_EQ(lectern_document_get_frame(document.get(), &width, &height), nullptr);
    EXPECT_EQ(width, 0);
    EXPECT_EQ(height, 0);
}

TEST_F(Paint, TheFrameHasThePixelsOfTheService) {
    const Document document = opened();
    paint(document);
    int width = 0;
    int height = 0;
    GBytes* frame = lectern_document_get_frame(document.get(), &width, &height);
    EXPECT_EQ(width, 48);
    EXPECT_EQ(height, 80);
    EXPECT_EQ(g_bytes_get_size(frame), 48U * 80 * 4);
    EXPECT_EQ(firstPixel(frame), FakeView::COLOUR);
}

TEST_F(Paint, TellsWhatItHasChanged) {
    const Document document = opened();
    const LecternRectangle first = paint(document);
    EXPECT_EQ(first.width, 48);
    EXPECT_EQ(first.height, 80);
    const LecternRectangle second = paint(document);
    EXPECT_EQ(second.width, 0);
    EXPECT_EQ(second.height, 0);
}

TEST_F(Paint, PaintsIntoTheSameMemoryUntilAResize) {
    const Document document = opened();
    paint(document);
    GBytes* before = lectern_document_get_frame(document.get(), nullptr, nullptr);
    const GLibHolder<GBytes> kept(g_bytes_ref(before));
    paint(document);
    EXPECT_EQ(lectern_document_get_frame(document.get(), nullptr, nullptr), before);

    Emissions widths(document.get(), "notify::width");
    Emissions heights(document.get(), "notify::height");
    Emissions invalidated(document.get(), "invalidated");
    resize(document, 80, 48);
    EXPECT_EQ(lectern_document_get_width(document.get()), 80);
    EXPECT_EQ(lectern_document_get_height(document.get()), 48);
    EXPECT_EQ(widths.seen(), 1);
    EXPECT_EQ(heights.seen(), 1);
    EXPECT_EQ(invalidated.seen(), 1);
    EXPECT_EQ(sent("/touch resize").integer("width"), 80);
    int width = 0;
    lectern_document_get_frame(document.get(), &width, nullptr);
    EXPECT_EQ(width, 48) << "the last picture stays until the next one";
    const LecternRectangle damage = paint(document);
    EXPECT_EQ(damage.width, 80);
    EXPECT_NE(lectern_document_get_frame(document.get(), &width, nullptr), before);
    EXPECT_EQ(width, 80);
}

TEST_F(Paint, AFrameOutlivesItsDocument) {
    Document document = opened();
    paint(document);
    const GLibHolder<GBytes> frame(g_bytes_ref(lectern_document_get_frame(document.get(), nullptr, nullptr)));
    document.reset();
    EXPECT_EQ(firstPixel(frame.get()), FakeView::COLOUR);
}

TEST_F(Paint, AFailureIsAnErrorOfTheDocument) {
    const Document document = opened();
    mFake.view().renderResult = 1;
    Result painted;
    lectern_document_paint_async(document.get(), nullptr, Result::take, &painted);
    GLibHolder<GError> error;
    EXPECT_FALSE(lectern_document_paint_finish(document.get(), painted.wait(), nullptr, lectern::out(error)));
    EXPECT_TRUE(g_error_matches(error.get(), LECTERN_DOCUMENT_ERROR, LECTERN_DOCUMENT_ERROR_FAILED));
}

TEST_F(Paint, ThePlaceIsThatOfThePicture) {
    const Document document = opened();
    paint(document);
    Emissions places(document.get(), "notify::y");
    lectern_document_pen_down(document.get(), 10, 60);
    lectern_document_pen_up(document.get(), 10, 20);
    mFake.view().waitForTaken(3);
    EXPECT_EQ(lectern_document_get_y(document.get()), 0) << "not painted yet";
    paint(document);
    EXPECT_EQ(lectern_document_get_y(document.get()), 40);
    paint(document);
    EXPECT_EQ(places.seen(), 1) << "one notification for one change";
}

TEST_F(Paint, AsksForTheRestOfTheViewWhenThePictureChanges) {
    const Document document = opened();
    mFake.answer("/touch getView", R"({"documentWidth": 100, "documentHeight": 9, "zoom": 1.5, "parts": 1})");
    Emissions heights(document.get(), "notify::document-height");
    paint(document);
    heights.waitFor(1);
    EXPECT_EQ(lectern_document_get_document_height(document.get()), 9);
    paint(document); // changes nothing, so that nobody asks
    paint(document);
    sent("/touch getView", 2);
    const auto calls = mFake.calls();
    EXPECT_EQ(std::count_if(calls.begin(), calls.end(),
                            [](const auto& call) { return call.place == "/touch getView"; }),
              2);
    EXPECT_EQ(heights.seen(), 1);
}

} // namespace

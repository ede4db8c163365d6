// SPDX-License-Identifier: Apache-2.0
// The arguments and values of calls.
#include "tests/unit/glib/DocumentFixture.h"

namespace {

using lectern::GLibHolder;
using lectern::out;

class Calls : public DocumentTest {
protected:
    // Makes a call with its arguments; returns what its end returns.
    template<typename Async, typename Finish, typename... Arguments>
    auto call(Async async, Finish finish, Arguments... arguments) {
        Result result;
        async(mDocument.get(), arguments..., nullptr, Result::take, &result);
        return finish(mDocument.get(), result.wait(), static_cast<GError**>(out(mError)));
    }

    const Document mDocument = opened();
    GLibHolder<GError> mError;
};

TEST_F(Calls, MovesHaveTheirPlaceAndEndWithTheNewView) {
    mFake.answer("/touch getView",
                 R"({"documentWidth": 200, "documentHeight": 300, "zoom": 3.0, "part": 0, "parts": 1})");
    EXPECT_TRUE(call(lectern_document_scroll_to_async, lectern_document_scroll_to_finish, 5, 6));
    EXPECT_EQ(sent("/touch scrollTo").integer("y"), 6);
    EXPECT_TRUE(call(lectern_document_zoom_to_async, lectern_document_zoom_to_finish, 3.0, 7, 8));
    EXPECT_EQ(sent("/touch zoomTo").real("zoom"), 3.0);
    EXPECT_EQ(sent("/touch zoomTo").integer("x"), 7);
    EXPECT_EQ(lectern_document_get_zoom(mDocument.get()), 3.0);
    EXPECT_EQ(lectern_document_get_document_height(mDocument.get()), 300);
    EXPECT_TRUE(call(lectern_document_zoom_to_async, lectern_document_zoom_to_finish, 3.0, -1, -1));
    EXPECT_FALSE(sent("/touch zoomTo", 2).has("x")) << "about the centre";
    EXPECT_TRUE(call(lectern_document_go_to_async, lectern_document_go_to_finish, 4));
    EXPECT_EQ(sent("/touch goTo").integer("entry"), 4);
}

TEST_F(Calls, TextsHaveNoParts) {
    EXPECT_FALSE(call(lectern_document_go_to_part_async, lectern_document_go_to_part_finish, 1));
    EXPECT_TRUE(g_error_matches(mError.get(), LECTERN_SERVICE_ERROR, LECTERN_SERVICE_ERROR_WRONG_KIND));
}

TEST_F(Calls, PartsAreSheetsOrSlides) {
    mFake.answer("/excel jumpToSheet", R"({"cursheet": 2})");
    mFake.answer("/ppt jumpToSlide", R"({"slideNumber": 2})");
    for (const auto& [kind, place, key] :
         {std::tuple(1, "/excel jumpToSheet", "sheet"), std::tuple(3, "/ppt jumpToSlide", "slide")}) {
        mFake.documentKind(kind);
        const Document document = opened();
        Result result;
        lectern_document_go_to_part_async(document.get(), 2, nullptr, Result::take, &result);
        EXPECT_TRUE(lectern_document_go_to_part_finish(document.get(), result.wait(), nullptr));
        EXPECT_EQ(sent(place).integer(key), 2);
    }
}

TEST_F(Calls, SelectionsHaveTextAndRectangles) {
    EXPECT_TRUE(
        call(lectern_document_select_async, lectern_document_select_finish, LECTERN_SELECT_LINE, 5, 6));
    EXPECT_EQ(sent("/touch select").string("unit"), "line");
    EXPECT_TRUE(call(lectern_document_move_selection_end_async, lectern_document_move_selection_end_finish,
                     LECTERN_SELECT_END_END, 7, 8));
    EXPECT_EQ(sent("/touch select", 2).string("end"), "end");
    mFake.answer("/touch getSelection",
                 R"({"text": "word", "rectangles": [{"x": 1, "y": 2, "width": 3, "height": 4}, {"x": 5}]})");
    LecternSelection* selection =
        call(lectern_document_get_selection_async, lectern_document_get_selection_finish);
    ASSERT_NE(selection, nullptr);
    EXPECT_STREQ(selection->text, "word");
    ASSERT_EQ(selection->n_rectangles, 2U);
    EXPECT_EQ(selection->rectangles[0].height, 4);
    LecternSelection* copy = lectern_selection_copy(selection);
    lectern_selection_free(selection);
    EXPECT_STREQ(copy->text, "word");
    EXPECT_EQ(copy->rectangles[1].x, 5);
    lectern_selection_free(copy);
}

TEST_F(Calls, TextHasLinesWithPlaces) {
    mFake.answer("/touch getText",
                 R"({"lines": [{"text": "A line", "x": 1, "y": 2, "width": 3, "height": 4}]})");
    GPtrArray* lines = call(lectern_document_get_text_async, lectern_document_get_text_finish);
    ASSERT_EQ(lines->len, 1U);
    const auto* line = static_cast<LecternTextLine*>(g_ptr_array_index(lines, 0));
    EXPECT_STREQ(line->text, "A line");
    EXPECT_EQ(line->place.width, 3);
    g_ptr_array_unref(lines);
}

TEST_F(Calls, TheOutlineIsAListOfEntries) {
    mFake.answer("/touch getOutline", R"({"entries": [{"title": "A", "level": 0, "part": 0},
                                                      {"title": "B", "level": 1, "part": 2}]})");
    const GLibHolder<GListModel> entries(
        call(lectern_document_get_outline_async, lectern_document_get_outline_finish));
    ASSERT_EQ(g_list_model_get_n_items(entries.get()), 2U);
    const GLibHolder<LecternOutlineEntry> entry(
        LECTERN_OUTLINE_ENTRY(g_list_model_get_item(entries.get(), 1)));
    EXPECT_STREQ(lectern_outline_entry_get_title(entry.get()), "B");
    EXPECT_EQ(lectern_outline_entry_get_level(entry.get()), 1);
    EXPECT_EQ(lectern_outline_entry_get_part(entry.get()), 2);
    EXPECT_EQ(lectern_outline_entry_get_number(entry.get()), 1);
}

TEST_F(Calls, CellsHaveAllTheirTexts) {
    mFake.answer(
        "/touch getCell",
        R"({"column": 1, "row": 6, "address": "B7", "text": "12", "formula": "=A7*2", "comment": "twice",
                     "x": 0, "y": 0, "width": 60, "height": 20})");
    LecternCell* cell = call(lectern_document_get_cell_async, lectern_document_get_cell_finish, 1, 6);
    EXPECT_EQ(sent("/touch getCell").integer("row"), 6);
    LecternCell* copy = lectern_cell_copy(cell);
    lectern_cell_free(cell);
    EXPECT_STREQ(copy->address, "B7");
    EXPECT_STREQ(copy->formula, "=A7*2");
    EXPECT_STREQ(copy->comment, "twice");
    EXPECT_EQ(copy->place.width, 60);
    lectern_cell_free(copy);
    const GLibHolder<char> comment(
        call(lectern_document_get_comment_async, lectern_document_get_comment_finish));
    EXPECT_STREQ(comment.get(), "twice");
    EXPECT_FALSE(sent("/touch getCell", 2).has("row")) << "the cell that was tapped last";
}

TEST_F(Calls, PropertiesHaveValues) {
    mFake.answer("/common getDocProperties", R"({"name": "T", "author": "A", "wordcnt": 7})");
    LecternProperties* properties =
        call(lectern_document_get_properties_async, lectern_document_get_properties_finish);
    LecternProperties* copy = lectern_properties_copy(properties);
    lectern_properties_free(properties);
    EXPECT_STREQ(copy->title, "T");
    EXPECT_STREQ(copy->author, "A");
    EXPECT_STREQ(copy->created, "");
    EXPECT_EQ(copy->n_words, 7);
    lectern_properties_free(copy);
}

TEST_F(Calls, ANoteIsItsWords) {
    mFake.answer("/ppt getSlideNote", R"({"note": "Smile."})");
    const GLibHolder<char> note(call(lectern_document_get_note_async, lectern_document_get_note_finish));
    EXPECT_STREQ(note.get(), "Smile.");
}

TEST_F(Calls, AThumbnailHasAPictureOfItsOwn) {
    const GLibHolder<GBytes> picture(
        call(lectern_document_get_thumbnail_async, lectern_document_get_thumbnail_finish, 2, 10, 20));
    EXPECT_EQ(g_bytes_get_size(picture.get()), 10U * 20 * 4);
    EXPECT_EQ(sent("/touch getThumbnail").integer("part"), 2);
    EXPECT_TRUE(sent("/touch getThumbnail").has("shmid"));
    EXPECT_EQ(call(lectern_document_get_thumbnail_async, lectern_document_get_thumbnail_finish, 2, 0, 20),
              nullptr);
    EXPECT_TRUE(g_error_matches(mError.get(), LECTERN_SERVICE_ERROR, LECTERN_SERVICE_ERROR_ARGUMENT));
}

TEST_F(Calls, ExportsGoToLocalFiles) {
    const GLibHolder<GFile> file(g_file_new_for_path("/tmp/a.pdf"));
    EXPECT_TRUE(
        call(lectern_document_export_async, lectern_document_export_finish, LECTERN_EXPORT_PDF, file.get()));
    EXPECT_EQ(sent("/touch export").string("path"), "/tmp/a.pdf");
    EXPECT_EQ(sent("/touch export").string("format"), "pdf");
    const GLibHolder<GFile> elsewhere(g_file_new_for_uri("https://host/a.pdf"));
    EXPECT_FALSE(call(lectern_document_export_async, lectern_document_export_finish, LECTERN_EXPORT_TEXT,
                      elsewhere.get()));
    EXPECT_TRUE(g_error_matches(mError.get(), LECTERN_SERVICE_ERROR, LECTERN_SERVICE_ERROR_ARGUMENT));
}

TEST_F(Calls, ASheetThatCannotBeSortedIsAnError) {
    mFake.answer("/excel sortAscending", R"({"column": 3})");
    mFake.answer("/excel sortDescending", R"({"column": -1})");
    EXPECT_TRUE(call(lectern_document_sort_async, lectern_document_sort_finish, FALSE));
    EXPECT_FALSE(call(lectern_document_sort_async, lectern_document_sort_finish, TRUE));
    EXPECT_TRUE(g_error_matches(mError.get(), LECTERN_SERVICE_ERROR, LECTERN_SERVICE_ERROR_FAILED));
}

TEST_F(Calls, TheOthersReachTheirMethods) {
    EXPECT_TRUE(call(lectern_document_set_resize_mode_async, lectern_document_set_resize_mode_finish, TRUE));
    EXPECT_EQ(sent("/excel resizeMode").string("mode"), "on");
    EXPECT_TRUE(call(lectern_document_hide_selection_async, lectern_document_hide_selection_finish));
    mFake.waitForCall("/excel hideSelection");
    EXPECT_TRUE(call(lectern_document_unhide_selection_async, lectern_document_unhide_selection_finish));
    mFake.waitForCall("/excel unhideSelection");
    EXPECT_TRUE(call(lectern_document_unhide_all_async, lectern_document_unhide_all_finish));
    mFake.waitForCall("/excel unhideAll");
    EXPECT_TRUE(call(lectern_document_turn_async, lectern_document_turn_finish, LECTERN_ORIENTATION_DOWN));
    EXPECT_EQ(sent("/ppt fitWideMode").string("orientation"), "down");
    EXPECT_TRUE(call(lectern_document_set_wide_mode_async, lectern_document_set_wide_mode_finish, TRUE));
    mFake.waitForCall("/word wideMode");
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
#include "client/glib/Returned.h"

#include "client/glib/OutlineEntry.h"

namespace lectern {

namespace {

template<typename Value>
Value* allocate() {
    return g_new0(Value, 1);
}

template<typename Value, void (*release)(Value*)>
void freeValue(gpointer value) {
    release(static_cast<Value*>(value));
}

} // namespace

LecternRectangle toRectangle(const touch::Rectangle& rectangle) {
    return {rectangle.x, rectangle.y, rectangle.width, rectangle.height};
}

Returned returned(const std::string& text) {
    return {g_strdup(text.c_str()), g_free};
}

Returned returned(const touch::Selection& selection) {
    auto* value = allocate<LecternSelection>();
    value->text = g_strdup(selection.text.c_str());
    value->n_rectangles = selection.rectangles.size();
    value->rectangles = g_new(LecternRectangle, value->n_rectangles);
    for (size_t i = 0; i < value->n_rectangles; ++i) {
        value->rectangles[i] = toRectangle(selection.rectangles[i]);
    }
    return {value, freeValue<LecternSelection, lectern_selection_free>};
}

Returned returned(const std::vector<touch::TextLine>& lines) {
    GPtrArray* array = g_ptr_array_new_with_free_func(freeValue<LecternTextLine, lectern_text_line_free>);
    for (const touch::TextLine& line : lines) {
        auto* value = allocate<LecternTextLine>();
        value->text = g_strdup(line.text.c_str());
        value->place = toRectangle(line.place);
        g_ptr_array_add(array, value);
    }
    return {array, freeValue<GPtrArray, g_ptr_array_unref>};
}

Returned returned(const std::vector<touch::OutlineEntry>& entries) {
    GListStore* store = g_list_store_new(LECTERN_TYPE_OUTLINE_ENTRY);
    int number = 0;
    for (const touch::OutlineEntry& entry : entries) {
        const GLibHolder<LecternOutlineEntry> made(newOutlineEntry(entry, number++));
        g_list_store_append(store, made.get());
    }
    return {store, g_object_unref};
}

Returned returned(const touch::Cell& cell) {
    auto* value = allocate<LecternCell>();
    value->column = cell.at.column;
    value->row = cell.at.row;
    value->address = g_strdup(cell.address.c_str());
    value->text = g_strdup(cell.text.c_str());
    value->formula = g_strdup(cell.formula.c_str());
    value->comment = g_strdup(cell.comment.c_str());
    value->place = toRectangle(cell.place);
    return {value, freeValue<LecternCell, lectern_cell_free>};
}

Returned returned(const common::DocumentProperties& properties) {
    auto* value = allocate<LecternProperties>();
    value->title = g_strdup(properties.name.c_str());
    value->author = g_strdup(properties.author.c_str());
    value->description = g_strdup(properties.description.c_str());
    value->created = g_strdup(properties.created.c_str());
    value->saved = g_strdup(properties.saved.c_str());
    value->n_words = properties.words.value_or(-1);
    return {value, freeValue<LecternProperties, lectern_properties_free>};
}

Returned returned(GLibHolder<GBytes> bytes) {
    return {bytes.release(), freeValue<GBytes, g_bytes_unref>};
}

} // namespace lectern

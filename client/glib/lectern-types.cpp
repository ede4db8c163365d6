// SPDX-License-Identifier: Apache-2.0
// The types of the values that calls take and return.
#include <lectern-glib/lectern-types.h>

#include <initializer_list>

G_DEFINE_ENUM_TYPE(LecternDocumentKind, lectern_document_kind,
                   G_DEFINE_ENUM_VALUE(LECTERN_DOCUMENT_KIND_UNKNOWN, "unknown"),
                   G_DEFINE_ENUM_VALUE(LECTERN_DOCUMENT_KIND_SPREADSHEET, "spreadsheet"),
                   G_DEFINE_ENUM_VALUE(LECTERN_DOCUMENT_KIND_TEXT, "text"),
                   G_DEFINE_ENUM_VALUE(LECTERN_DOCUMENT_KIND_PRESENTATION, "presentation"))
G_DEFINE_FLAGS_TYPE(LecternSearchFlags, lectern_search_flags,
                    G_DEFINE_ENUM_VALUE(LECTERN_SEARCH_NONE, "none"),
                    G_DEFINE_ENUM_VALUE(LECTERN_SEARCH_MATCH_CASE, "match-case"),
                    G_DEFINE_ENUM_VALUE(LECTERN_SEARCH_WHOLE_WORDS, "whole-words"))
G_DEFINE_ENUM_TYPE(LecternSelectUnit, lectern_select_unit, G_DEFINE_ENUM_VALUE(LECTERN_SELECT_NONE, "none"),
                   G_DEFINE_ENUM_VALUE(LECTERN_SELECT_WORD, "word"),
                   G_DEFINE_ENUM_VALUE(LECTERN_SELECT_LINE, "line"),
                   G_DEFINE_ENUM_VALUE(LECTERN_SELECT_ALL, "all"))
G_DEFINE_ENUM_TYPE(LecternSelectEnd, lectern_select_end,
                   G_DEFINE_ENUM_VALUE(LECTERN_SELECT_END_START, "start"),
                   G_DEFINE_ENUM_VALUE(LECTERN_SELECT_END_END, "end"))
G_DEFINE_ENUM_TYPE(LecternPinchPhase, lectern_pinch_phase,
                   G_DEFINE_ENUM_VALUE(LECTERN_PINCH_BEGINS, "begins"),
                   G_DEFINE_ENUM_VALUE(LECTERN_PINCH_MOVES, "moves"),
                   G_DEFINE_ENUM_VALUE(LECTERN_PINCH_ENDS, "ends"),
                   G_DEFINE_ENUM_VALUE(LECTERN_PINCH_GIVEN_UP, "given-up"))
G_DEFINE_ENUM_TYPE(LecternExportFormat, lectern_export_format, G_DEFINE_ENUM_VALUE(LECTERN_EXPORT_PDF, "pdf"),
                   G_DEFINE_ENUM_VALUE(LECTERN_EXPORT_TEXT, "text"))
G_DEFINE_ENUM_TYPE(LecternOrientation, lectern_orientation,
                   G_DEFINE_ENUM_VALUE(LECTERN_ORIENTATION_UPRIGHT, "upright"),
                   G_DEFINE_ENUM_VALUE(LECTERN_ORIENTATION_LEFT, "left"),
                   G_DEFINE_ENUM_VALUE(LECTERN_ORIENTATION_RIGHT, "right"),
                   G_DEFINE_ENUM_VALUE(LECTERN_ORIENTATION_DOWN, "down"))

G_DEFINE_BOXED_TYPE(LecternRectangle, lectern_rectangle, lectern_rectangle_copy, lectern_rectangle_free)
G_DEFINE_BOXED_TYPE(LecternTextLine, lectern_text_line, lectern_text_line_copy, lectern_text_line_free)
G_DEFINE_BOXED_TYPE(LecternSelection, lectern_selection, lectern_selection_copy, lectern_selection_free)
G_DEFINE_BOXED_TYPE(LecternCell, lectern_cell, lectern_cell_copy, lectern_cell_free)
G_DEFINE_BOXED_TYPE(LecternProperties, lectern_properties, lectern_properties_copy, lectern_properties_free)

namespace {

// A copy of a value whose texts are replaced with copies.
template<typename Value>
Value* copyOf(const Value* value, std::initializer_list<char * Value::*> texts) {
    auto* copy = static_cast<Value*>(g_memdup2(value, sizeof(Value)));
    for (char* Value::*text : texts) {
        copy->*text = g_strdup(value->*text);
    }
    return copy;
}

template<typename Value>
void release(Value* value, std::initializer_list<char * Value::*> texts) {
    if (value == nullptr) {
        return;
    }
    for (char* Value::*text : texts) {
        g_free(value->*text);
    }
    g_free(value);
}

constexpr std::initializer_list<char* LecternCell::*> CELL_TEXTS = {
    &LecternCell::address, &LecternCell::text, &LecternCell::formula, &LecternCell::comment};
constexpr std::initializer_list<char* LecternProperties::*> PROPERTIES_TEXTS = {
    &LecternProperties::title, &LecternProperties::author, &LecternProperties::description,
    &LecternProperties::created, &LecternProperties::saved};

} // namespace

/**
 * lectern_rectangle_copy:
 * @self: a rectangle
 *
 * Copies it.
 *
 * Returns: (transfer full): a copy of it
 */
LecternRectangle* lectern_rectangle_copy(const LecternRectangle* self) {
    return copyOf(self, {});
}

/**
 * lectern_rectangle_free:
 * @self: (transfer full) (nullable): a rectangle
 *
 * Frees it.
 */
void lectern_rectangle_free(LecternRectangle* self) {
    release(self, {});
}

/**
 * lectern_text_line_copy:
 * @self: a line
 *
 * Copies it.
 *
 * Returns: (transfer full): a copy of it
 */
LecternTextLine* lectern_text_line_copy(const LecternTextLine* self) {
    return copyOf(self, {&LecternTextLine::text});
}

/**
 * lectern_text_line_free:
 * @self: (transfer full) (nullable): a line
 *
 * Frees it.
 */
void lectern_text_line_free(LecternTextLine* self) {
    release(self, {&LecternTextLine::text});
}

/**
 * lectern_selection_copy:
 * @self: a selection
 *
 * Copies it.
 *
 * Returns: (transfer full): a copy of it
 */
LecternSelection* lectern_selection_copy(const LecternSelection* self) {
    LecternSelection* copy = copyOf(self, {&LecternSelection::text});
    copy->rectangles = static_cast<LecternRectangle*>(
        g_memdup2(self->rectangles, self->n_rectangles * sizeof(LecternRectangle)));
    return copy;
}

/**
 * lectern_selection_get_rectangle:
 * @self: a selection
 * @number: a rectangle, from 0 and below `n_rectangles`
 * @rectangle: (out caller-allocates): where a part of the selection stands
 *
 * Reads one of the rectangles, for languages that cannot read an array of structures.
 */
void lectern_selection_get_rectangle(const LecternSelection* self, gsize number,
                                     LecternRectangle* rectangle) {
    g_return_if_fail(self != nullptr && number < self->n_rectangles && rectangle != nullptr);
    *rectangle = self->rectangles[number];
}

/**
 * lectern_selection_free:
 * @self: (transfer full) (nullable): a selection
 *
 * Frees it.
 */
void lectern_selection_free(LecternSelection* self) {
    if (self != nullptr) {
        g_free(self->rectangles);
    }
    release(self, {&LecternSelection::text});
}

/**
 * lectern_cell_copy:
 * @self: a cell
 *
 * Copies it.
 *
 * Returns: (transfer full): a copy of it
 */
LecternCell* lectern_cell_copy(const LecternCell* self) {
    return copyOf(self, CELL_TEXTS);
}

/**
 * lectern_cell_free:
 * @self: (transfer full) (nullable): a cell
 *
 * Frees it.
 */
void lectern_cell_free(LecternCell* self) {
    release(self, CELL_TEXTS);
}

/**
 * lectern_properties_copy:
 * @self: properties
 *
 * Copies them.
 *
 * Returns: (transfer full): a copy of them
 */
LecternProperties* lectern_properties_copy(const LecternProperties* self) {
    return copyOf(self, PROPERTIES_TEXTS);
}

/**
 * lectern_properties_free:
 * @self: (transfer full) (nullable): properties
 *
 * Frees them.
 */
void lectern_properties_free(LecternProperties* self) {
    release(self, PROPERTIES_TEXTS);
}

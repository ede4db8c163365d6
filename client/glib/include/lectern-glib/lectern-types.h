/* SPDX-License-Identifier: Apache-2.0 */
/* The values that calls take and return. Sheets, slides, columns, rows, hits and
 * entries count from 0; texts are UTF-8; points and rectangles are pixels of the view
 * from its top left corner, unless a comment says otherwise. */
#pragma once

#include <gio/gio.h>
#include <lectern-glib/lectern-version.h>

G_BEGIN_DECLS

/**
 * LecternDocumentKind:
 * @LECTERN_DOCUMENT_KIND_UNKNOWN: the contents tell
 * @LECTERN_DOCUMENT_KIND_SPREADSHEET: a spreadsheet
 * @LECTERN_DOCUMENT_KIND_TEXT: a word-processing document
 * @LECTERN_DOCUMENT_KIND_PRESENTATION: a presentation
 *
 * The kind of a document.
 */
typedef enum {
    LECTERN_DOCUMENT_KIND_UNKNOWN,
    LECTERN_DOCUMENT_KIND_SPREADSHEET,
    LECTERN_DOCUMENT_KIND_TEXT,
    LECTERN_DOCUMENT_KIND_PRESENTATION,
} LecternDocumentKind;

#define LECTERN_TYPE_DOCUMENT_KIND (lectern_document_kind_get_type())
LECTERN_EXPORT
GType lectern_document_kind_get_type(void);

/**
 * LecternSearchFlags:
 * @LECTERN_SEARCH_NONE: any case, parts of words too
 * @LECTERN_SEARCH_MATCH_CASE: capitals and small letters differ
 * @LECTERN_SEARCH_WHOLE_WORDS: whole words only
 *
 * How a search compares.
 */
typedef enum {
    LECTERN_SEARCH_NONE = 0,
    LECTERN_SEARCH_MATCH_CASE = 1 << 0,
    LECTERN_SEARCH_WHOLE_WORDS = 1 << 1,
} LecternSearchFlags;

#define LECTERN_TYPE_SEARCH_FLAGS (lectern_search_flags_get_type())
LECTERN_EXPORT
GType lectern_search_flags_get_type(void);

/**
 * LecternSelectUnit:
 * @LECTERN_SELECT_NONE: nothing: ends the selection
 * @LECTERN_SELECT_WORD: the word or cell at the point
 * @LECTERN_SELECT_LINE: the line or row at the point
 * @LECTERN_SELECT_ALL: all of the text, sheet or slide
 *
 * How much a selection takes.
 */
typedef enum {
    LECTERN_SELECT_NONE,
    LECTERN_SELECT_WORD,
    LECTERN_SELECT_LINE,
    LECTERN_SELECT_ALL,
} LecternSelectUnit;

#define LECTERN_TYPE_SELECT_UNIT (lectern_select_unit_get_type())
LECTERN_EXPORT
GType lectern_select_unit_get_type(void);

/**
 * LecternSelectEnd:
 * @LECTERN_SELECT_END_START: where the selection starts
 * @LECTERN_SELECT_END_END: where it ends
 *
 * The two ends of a selection.
 */
typedef enum {
    LECTERN_SELECT_END_START,
    LECTERN_SELECT_END_END,
} LecternSelectEnd;

#define LECTERN_TYPE_SELECT_END (lectern_select_end_get_type())
LECTERN_EXPORT
GType lectern_select_end_get_type(void);

/**
 * LecternPinchPhase:
 * @LECTERN_PINCH_BEGINS: the second finger is down
 * @LECTERN_PINCH_MOVES: the fingers move
 * @LECTERN_PINCH_ENDS: a finger is up: the view keeps the zoom
 * @LECTERN_PINCH_GIVEN_UP: the view returns to its zoom before
 *
 * The steps of a pinch.
 */
typedef enum {
    LECTERN_PINCH_BEGINS,
    LECTERN_PINCH_MOVES,
    LECTERN_PINCH_ENDS,
    LECTERN_PINCH_GIVEN_UP,
} LecternPinchPhase;

#define LECTERN_TYPE_PINCH_PHASE (lectern_pinch_phase_get_type())
LECTERN_EXPORT
GType lectern_pinch_phase_get_type(void);

/**
 * LecternExportFormat:
 * @LECTERN_EXPORT_PDF: the printed pages
 * @LECTERN_EXPORT_TEXT: the text in UTF-8
 *
 * The format of an exported file.
 */
typedef enum {
    LECTERN_EXPORT_PDF,
    LECTERN_EXPORT_TEXT,
} LecternExportFormat;

#define LECTERN_TYPE_EXPORT_FORMAT (lectern_export_format_get_type())
LECTERN_EXPORT
GType lectern_export_format_get_type(void);

/**
 * LecternOrientation:
 * @LECTERN_ORIENTATION_UPRIGHT: as it is held for reading
 * @LECTERN_ORIENTATION_LEFT: on its left side
 * @LECTERN_ORIENTATION_RIGHT: on its right side
 * @LECTERN_ORIENTATION_DOWN: upside down
 *
 * How a device is held whose system does not turn the picture itself.
 */
typedef enum {
    LECTERN_ORIENTATION_UPRIGHT,
    LECTERN_ORIENTATION_LEFT,
    LECTERN_ORIENTATION_RIGHT,
    LECTERN_ORIENTATION_DOWN,
} LecternOrientation;

#define LECTERN_TYPE_ORIENTATION (lectern_orientation_get_type())
LECTERN_EXPORT
GType lectern_orientation_get_type(void);

/**
 * LecternRectangle:
 * @x: the left edge
 * @y: the upper edge
 * @width: 0 or more
 * @height: 0 or more
 *
 * Pixels of the view, unless the user of it says otherwise.
 */
typedef struct {
    int x;
    int y;
    int width;
    int height;
} LecternRectangle;

#define LECTERN_TYPE_RECTANGLE (lectern_rectangle_get_type())
LECTERN_EXPORT
GType lectern_rectangle_get_type(void);
LECTERN_EXPORT
LecternRectangle* lectern_rectangle_copy(const LecternRectangle* self);
LECTERN_EXPORT
void lectern_rectangle_free(LecternRectangle* self);

/**
 * LecternTextLine:
 * @text: the words of the line, cell or box
 * @place: where it stands in the view
 *
 * A line of the text on the screen.
 */
typedef struct {
    char* text;
    LecternRectangle place;
} LecternTextLine;

#define LECTERN_TYPE_TEXT_LINE (lectern_text_line_get_type())
LECTERN_EXPORT
GType lectern_text_line_get_type(void);
LECTERN_EXPORT
LecternTextLine* lectern_text_line_copy(const LecternTextLine* self);
LECTERN_EXPORT
void lectern_text_line_free(LecternTextLine* self);

/**
 * LecternSelection:
 * @text: what is selected; tabs and line feeds separate cells
 * @rectangles: (array length=n_rectangles): where it stands in the view, in reading
 *   order; the first one begins where the selection starts
 * @n_rectangles: their number
 *
 * What is selected.
 */
typedef struct {
    char* text;
    LecternRectangle* rectangles;
    gsize n_rectangles;
} LecternSelection;

#define LECTERN_TYPE_SELECTION (lectern_selection_get_type())
LECTERN_EXPORT
GType lectern_selection_get_type(void);
LECTERN_EXPORT
LecternSelection* lectern_selection_copy(const LecternSelection* self);
LECTERN_EXPORT
void lectern_selection_get_rectangle(const LecternSelection* self, gsize number, LecternRectangle* rectangle);
LECTERN_EXPORT
void lectern_selection_free(LecternSelection* self);

/**
 * LecternCell:
 * @column: its column
 * @row: its row
 * @address: its name, such as "B7"
 * @text: its text as shown
 * @formula: its formula; empty for a cell without one
 * @comment: its comment; empty for a cell without one
 * @place: where it stands in the view
 *
 * A cell of a spreadsheet.
 */
typedef struct {
    int column;
    int row;
    char* address;
    char* text;
    char* formula;
    char* comment;
    LecternRectangle place;
} LecternCell;

#define LECTERN_TYPE_CELL (lectern_cell_get_type())
LECTERN_EXPORT
GType lectern_cell_get_type(void);
LECTERN_EXPORT
LecternCell* lectern_cell_copy(const LecternCell* self);
LECTERN_EXPORT
void lectern_cell_free(LecternCell* self);

/**
 * LecternProperties:
 * @title: the title, or the file's name
 * @author: who wrote it
 * @description: its description
 * @created: when it was made, as the document says it
 * @saved: when it was last saved, as the document says it
 * @n_words: its words; -1 for documents that are not texts
 *
 * What a document says of itself; texts it does not have are empty.
 */
typedef struct {
    char* title;
    char* author;
    char* description;
    char* created;
    char* saved;
    int n_words;
} LecternProperties;

#define LECTERN_TYPE_PROPERTIES (lectern_properties_get_type())
LECTERN_EXPORT
GType lectern_properties_get_type(void);
LECTERN_EXPORT
LecternProperties* lectern_properties_copy(const LecternProperties* self);
LECTERN_EXPORT
void lectern_properties_free(LecternProperties* self);

/* A heading, sheet or slide. An object, so that list views can show it. */
#define LECTERN_TYPE_OUTLINE_ENTRY (lectern_outline_entry_get_type())
LECTERN_EXPORT
G_DECLARE_FINAL_TYPE(LecternOutlineEntry, lectern_outline_entry, LECTERN, OUTLINE_ENTRY, GObject)

LECTERN_EXPORT
const char* lectern_outline_entry_get_title(LecternOutlineEntry* self);
LECTERN_EXPORT
int lectern_outline_entry_get_level(LecternOutlineEntry* self);
LECTERN_EXPORT
int lectern_outline_entry_get_part(LecternOutlineEntry* self);
LECTERN_EXPORT
int lectern_outline_entry_get_number(LecternOutlineEntry* self);

G_END_DECLS

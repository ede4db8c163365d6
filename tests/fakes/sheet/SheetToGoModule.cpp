// SPDX-License-Identifier: Apache-2.0
// The exported functions of the fake sheet module: each records the call, takes
// its scripted result, and calls the document.
#include "modules/SheetToGoModule.h"

#include "modules/TouchSheetFunctions.h"
#include "tests/fakes/module/FakeModule.h"
#include "tests/fakes/sheet/FakeSheetDocument.h"

extern "C" LECTERN_MODULE_EXPORT FakeSheetControl* fake_sheet_control();

FakeSheetControl* fake_sheet_control() {
    static FakeSheetControl control; // destroyed when the module is unloaded
    return &control;
}

FakeCalls& fake::calls() {
    return *fake_sheet_control();
}

namespace {

using fake::entered;
using fake::unsupported;

FakeSheetControl& control() {
    return *fake_sheet_control();
}

FakeSheetDocument* document(void* doc) {
    return static_cast<FakeSheetDocument*>(doc);
}

// As fake::entered(), for a call with a sheet, which must exist.
template<typename... Arguments>
int32_t enteredSheet(const void* doc, const char* name, int32_t sheet, Arguments... arguments) {
    const int32_t code = entered(doc, name, sheet, arguments...);
    return code == MODULE_OK && !FakeSheetDocument::has(sheet) ? static_cast<int32_t>(MODULE_BAD_ARGUMENT)
                                                               : code;
}

int32_t setBuffer(FakeSheetDocument::Buffer& buffer, uint32_t* pixels, int32_t width, int32_t height) {
    if (pixels == nullptr || width < 1 || height < 1) {
        return MODULE_BAD_ARGUMENT;
    }
    buffer = {pixels, width, height};
    return MODULE_OK;
}

} // namespace

int32_t stg_open_file(const uint16_t* path, const uint16_t* password, const uint16_t* font_dir,
                      const uint16_t* temp_dir, void** doc) {
    if (const int32_t code = fake::opening(__func__, doc, path, password, font_dir, temp_dir)) {
        return code;
    }
    return fake::opened(doc, new FakeSheetDocument);
}

int32_t stg_close_file(void** doc) {
    return fake::close<FakeSheetDocument>(__func__, doc);
}

int32_t stg_get_sheet_count(void* doc, int32_t* count) {
    if (const int32_t code = entered(doc, __func__)) {
        return code;
    }
    *count = static_cast<int32_t>(control().sheets.size());
    return MODULE_OK;
}

int32_t stg_get_column_count(void* doc, int32_t sheet, int32_t* count) {
    if (const int32_t code = enteredSheet(doc, __func__, sheet)) {
        return code;
    }
    *count = control().sheets[static_cast<size_t>(sheet)].columns;
    return MODULE_OK;
}

int32_t stg_get_sheet_dimensions(void* doc, int32_t sheet, int32_t* width, int32_t* height) {
    if (const int32_t code = enteredSheet(doc, __func__, sheet)) {
        return code;
    }
    *width = document(doc)->sheetWidth(sheet);
    *height = document(doc)->sheetHeight(sheet);
    return MODULE_OK;
}

int32_t stg_get_sheet_title(void* doc, int32_t sheet, uint16_t* text, int32_t capacity, int32_t* length) {
    if (const int32_t code = enteredSheet(doc, __func__, sheet, capacity)) {
        return code;
    }
    return fake::giveText(control().sheets[static_cast<size_t>(sheet)].title, text, capacity, length);
}

int32_t stg_set_dpi(void* doc, int32_t dpi) {
    if (const int32_t code = entered(doc, __func__, dpi)) {
        return code;
    }
    if (dpi < 1) {
        return MODULE_BAD_ARGUMENT;
    }
    document(doc)->setDpi(dpi);
    return MODULE_OK;
}

int32_t stg_set_offscreen_buffer(void* doc, int32_t view, uint32_t* pixels, int32_t width, int32_t height) {
    if (const int32_t code = entered(doc, __func__, view, width, height)) {
        return code;
    }
    return setBuffer(document(doc)->cells, pixels, width, height);
}

int32_t stg_set_row_offscreen_buffer(void* doc, int32_t view, uint32_t* pixels, int32_t width,
                                     int32_t height) {
    if (const int32_t code = entered(doc, __func__, view, width, height)) {
        return code;
    }
    return setBuffer(document(doc)->rowHeaders, pixels, width, height);
}

int32_t stg_set_column_offscreen_buffer(void* doc, int32_t view, uint32_t* pixels, int32_t width,
                                        int32_t height) {
    if (const int32_t code = entered(doc, __func__, view, width, height)) {
        return code;
    }
    return setBuffer(document(doc)->columnHeaders, pixels, width, height);
}

int32_t stg_render_sheet(void* doc, int32_t sheet, int32_t x, int32_t y) {
    if (const int32_t code = enteredSheet(doc, __func__, sheet, x, y)) {
        return code;
    }
    document(doc)->render(sheet, x, y);
    return MODULE_OK;
}

int32_t stg_cell_bounds(void* doc, int32_t sheet, int32_t x, int32_t y, int32_t* left, int32_t* top,
                        int32_t* width, int32_t* height) {
    if (const int32_t code = enteredSheet(doc, __func__, sheet, x, y)) {
        return code;
    }
    const FakeSheetDocument& d = *document(doc);
    module_rect r = {0, 0, d.scaled(control().rowHeaderWidth), d.scaled(control().columnHeaderHeight)};
    if (x != -1 || y != -1) {
        r = d.bounds(d.cellAt(sheet, x, y));
    }
    *left = r.x;
    *top = r.y;
    *width = r.width;
    *height = r.height;
    return MODULE_OK;
}

int32_t stg_get_cell_reference_at_location(void* doc, int32_t sheet, int32_t x, int32_t y, int32_t* column,
                                           int32_t* row) {
    if (const int32_t code = enteredSheet(doc, __func__, sheet, x, y)) {
        return code;
    }
    const FakeSheetDocument::Cell cell = document(doc)->cellAt(sheet, x, y);
    *column = cell.column;
    *row = cell.row;
    return MODULE_OK;
}

int32_t stg_get_comment_marks_rects(void* doc, int32_t sheet, const stg_region** marks, int32_t* count) {
    if (const int32_t code = enteredSheet(doc, __func__, sheet)) {
        return code;
    }
    document(doc)->fetchMarks();
    return fake::giveArray(control(), document(doc)->marks, marks, count);
}

int32_t stg_get_comment(void* doc, int32_t sheet, int32_t x, int32_t y, uint16_t* text, int32_t capacity,
                        int32_t first, int32_t* length) {
    if (text != nullptr) {
        text[0] = 0;
    }
    *length = 0;
    if (const int32_t code = enteredSheet(doc, __func__, sheet, x, y, capacity, first)) {
        return code;
    }
    const FakeSheetDocument::Cell cell = document(doc)->cellAt(sheet, x, y);
    const auto comment = control().comments.find({cell.column, cell.row});
    if (comment == control().comments.end()) {
        return MODULE_NOTHING_THERE;
    }
    return fake::giveText(comment->second, text, capacity, length);
}

int32_t stg_set_highlight_color(void* doc, const uint8_t rgb[3]) {
    return fake::setHighlightColor(doc, __func__, rgb);
}

int32_t stg_find(void* doc, const uint16_t* text, int32_t first_sheet, int32_t first_y, int32_t last_sheet,
                 int32_t last_y) {
    if (const int32_t code = entered(doc, __func__, text, first_sheet, first_y, last_sheet, last_y)) {
        return code;
    }
    document(doc)->searched = true;
    document(doc)->searchedSheet = first_sheet;
    return MODULE_OK;
}

int32_t stg_get_found_regions(void* doc, int32_t* count, const stg_region** regions) {
    *regions = nullptr;
    *count = 0;
    if (const int32_t code = entered(doc, __func__)) {
        return code;
    }
    document(doc)->fetchFound();
    return fake::giveArray(control(), document(doc)->found, regions, count);
}

int32_t stg_stop_find(void* doc) {
    if (const int32_t code = entered(doc, __func__)) {
        return code;
    }
    document(doc)->searched = false;
    document(doc)->found.clear();
    return MODULE_OK;
}

int32_t stg_copy_selection(void* doc, uint16_t* text, int32_t capacity, int32_t first, int32_t* length) {
    if (const int32_t code = entered(doc, __func__, capacity, first)) {
        return code;
    }
    return fake::giveText(control().selection, text, capacity, length);
}

int32_t stg_select_column(void* doc, int32_t sheet, int32_t first_x, int32_t last_x, int32_t* count) {
    if (const int32_t code = enteredSheet(doc, __func__, sheet, first_x, last_x)) {
        return code;
    }
    const FakeSheetDocument& d = *document(doc);
    *count = d.cellAt(sheet, last_x, 0).column - d.cellAt(sheet, first_x, 0).column + 1;
    return MODULE_OK;
}

int32_t stg_select_row(void* doc, int32_t sheet, int32_t first_y, int32_t last_y, int32_t* count) {
    if (const int32_t code = enteredSheet(doc, __func__, sheet, first_y, last_y)) {
        return code;
    }
    const FakeSheetDocument& d = *document(doc);
    *count = d.cellAt(sheet, 0, last_y).row - d.cellAt(sheet, 0, first_y).row + 1;
    return MODULE_OK;
}

// Commands.

int32_t stg_clear_selection(void* doc) {
    return entered(doc, __func__);
}

int32_t stg_release_memory(void* doc) {
    return entered(doc, __func__);
}

int32_t stg_select_area(void* doc, int32_t sheet, int32_t left, int32_t top, int32_t width, int32_t height) {
    return enteredSheet(doc, __func__, sheet, left, top, width, height);
}

int32_t stg_resize_column(void* doc, int32_t sheet, int32_t x, int32_t change) {
    return enteredSheet(doc, __func__, sheet, x, change);
}

int32_t stg_resize_row(void* doc, int32_t sheet, int32_t y, int32_t change) {
    return enteredSheet(doc, __func__, sheet, y, change);
}

int32_t stg_hide_columns(void* doc, int32_t sheet, int32_t first_x, int32_t last_x) {
    return enteredSheet(doc, __func__, sheet, first_x, last_x);
}

int32_t stg_hide_rows(void* doc, int32_t sheet, int32_t first_y, int32_t last_y) {
    return enteredSheet(doc, __func__, sheet, first_y, last_y);
}

int32_t stg_unhide_columns(void* doc, int32_t sheet, int32_t first_x, int32_t last_x) {
    return enteredSheet(doc, __func__, sheet, first_x, last_x);
}

int32_t stg_unhide_rows(void* doc, int32_t sheet, int32_t first_y, int32_t last_y) {
    return enteredSheet(doc, __func__, sheet, first_y, last_y);
}

int32_t stg_unhide_all_columns(void* doc, int32_t sheet) {
    return enteredSheet(doc, __func__, sheet);
}

int32_t stg_unhide_all_rows(void* doc, int32_t sheet) {
    return enteredSheet(doc, __func__, sheet);
}

int32_t stg_sort_ascending(void* doc, int32_t sheet, int32_t column) {
    return enteredSheet(doc, __func__, sheet, column);
}

int32_t stg_sort_descending(void* doc, int32_t sheet, int32_t column) {
    return enteredSheet(doc, __func__, sheet, column);
}

int32_t stg_get_document_name(void* doc, uint16_t* text, int32_t capacity_bytes, int32_t* length) {
    return fake::giveProperty(doc, __func__, control().name, text, capacity_bytes, length);
}

int32_t stg_get_document_author(void* doc, uint16_t* text, int32_t capacity_bytes, int32_t* length) {
    return fake::giveProperty(doc, __func__, control().author, text, capacity_bytes, length);
}

int32_t stg_get_document_description(void* doc, uint16_t* text, int32_t capacity_bytes, int32_t* length) {
    return fake::giveProperty(doc, __func__, control().description, text, capacity_bytes, length);
}

int32_t stg_get_document_creation_date(void* doc, time_t* time) {
    return fake::giveTime(doc, __func__, control().created, time);
}

int32_t stg_get_document_last_saved_date(void* doc, time_t* time) {
    return fake::giveTime(doc, __func__, control().lastSaved, time);
}

// Optional functions.

int32_t stg_get_cell(void* doc, int32_t sheet, int32_t column, int32_t row, stg_cell* cell) {
    if (const int32_t code = enteredSheet(doc, __func__, sheet, column, row)) {
        return code;
    }
    const FakeSheet& size = control().sheets[static_cast<size_t>(sheet)];
    if (column < 0 || row < 0 || column >= size.columns || row >= size.rows) {
        return MODULE_BAD_ARGUMENT;
    }
    *cell = document(doc)->contents({column, row});
    return MODULE_OK;
}

int32_t stg_get_cells(void* doc, int32_t sheet, int32_t x, int32_t y, int32_t width, int32_t height,
                      const stg_cell** cells, int32_t* count) {
    *cells = nullptr;
    *count = 0;
    if (const int32_t code = enteredSheet(doc, __func__, sheet, x, y, width, height)) {
        return code;
    }
    FakeSheetDocument& d = *document(doc);
    const FakeSheetDocument::Cell first = d.cellAt(sheet, x, y);
    const FakeSheetDocument::Cell last = d.cellAt(sheet, x + width - 1, y + height - 1);
    d.cellsFound.clear();
    for (int32_t row = first.row; row <= last.row; ++row) {
        for (int32_t column = first.column; column <= last.column; ++column) {
            const stg_cell cell = d.contents({column, row});
            if (cell.column == column && cell.row == row && *cell.text != 0) {
                d.cellsFound.push_back(cell);
            }
        }
    }
    return fake::giveArray(control(), d.cellsFound, cells, count);
}

int32_t stg_get_tap_area(void* doc, int32_t sheet, int32_t x, int32_t y, module_rect* area) {
    if (const int32_t code = enteredSheet(doc, __func__, sheet, x, y)) {
        return code;
    }
    *area = control().drawing.value_or(document(doc)->contents(document(doc)->cellAt(sheet, x, y)).place);
    return MODULE_OK;
}

int32_t stg_set_find_options(void* doc, int32_t flags) {
    return entered(doc, __func__, flags);
}

// Only the loader needs the remaining functions; a call is recorded and fails.

int32_t stg_autofit_column(void* /*doc*/, int32_t /*sheet*/, int32_t /*x*/) {
    return unsupported(__func__);
}

int32_t stg_get_version(uint16_t* /*text*/, int32_t /*capacity*/, int32_t* /*length*/) {
    return unsupported(__func__);
}

int32_t stg_select_cell(void* /*doc*/, int32_t /*sheet*/, int32_t /*x*/, int32_t /*y*/) {
    return unsupported(__func__);
}

// SPDX-License-Identifier: Apache-2.0
// Calls for spreadsheets.
#include "client/glib/DocumentProperties.h"
#include "client/glib/Task.h"
#include <lectern/ExcelCalls.h>

namespace {

// The cell that was tapped last, if a number is negative.
std::optional<lectern::touch::CellAddress> addressOf(int column, int row) {
    return column < 0 || row < 0 ? std::nullopt : std::optional(lectern::touch::CellAddress{column, row});
}

// Ends a sort, whose answer is the column, or -1.
void endSort(lectern::Task& task, int column) {
    if (column < 0) {
        task.fail(
            {lectern::Error::Kind::Refused, "the sheet cannot be sorted; select a column", 0, "errFailed"});
    } else {
        task.succeed();
    }
}

} // namespace

/**
 * lectern_document_get_cell_async:
 * @self: a document
 * @column: from 0; below 0 for the cell that was tapped last
 * @row: the same
 * @cancellable: (nullable): cancels the call
 * @callback: (scope async): called when the call has ended
 * @user_data: data for the callback
 *
 * Asks for a cell of the shown sheet.
 */
void lectern_document_get_cell_async(LecternDocument* self, int column, int row, GCancellable* cancellable,
                                     GAsyncReadyCallback callback, gpointer user_data) {
    g_return_if_fail(LECTERN_IS_DOCUMENT(self));
    lectern::ask(self, {lectern_document_get_cell_async, cancellable, callback, user_data},
                 lectern::touch::getCell(addressOf(column, row)));
}

/**
 * lectern_document_get_cell_finish:
 * @self: a document
 * @result: the result that the callback received
 * @error: return location for an error
 *
 * Ends [method@Document.get_cell_async].
 *
 * Returns: (transfer full): the cell, or %NULL on error
 */
LecternCell* lectern_document_get_cell_finish(LecternDocument* self, GAsyncResult* result, GError** error) {
    return lectern::finishValue<LecternCell>(self, result, error, lectern_document_get_cell_async);
}

/**
 * lectern_document_get_comment_async:
 * @self: a document
 * @cancellable: (nullable): cancels the call
 * @callback: (scope async): called when the call has ended
 * @user_data: data for the callback
 *
 * Asks for the comment of the cell that was tapped last.
 */
void lectern_document_get_comment_async(LecternDocument* self, GCancellable* cancellable,
                                        GAsyncReadyCallback callback, gpointer user_data) {
    g_return_if_fail(LECTERN_IS_DOCUMENT(self));
    lectern::ask(self, {lectern_document_get_comment_async, cancellable, callback, user_data},
                 lectern::touch::getCell(), [](lectern::Task& task, const lectern::touch::Cell& cell) {
                     task.succeed(lectern::returned(cell.comment));
                 });
}

/**
 * lectern_document_get_comment_finish:
 * @self: a document
 * @result: the result that the callback received
 * @error: return location for an error
 *
 * Ends [method@Document.get_comment_async].
 *
 * Returns: (transfer full): the comment, which may be empty, or %NULL on error
 */
char* lectern_document_get_comment_finish(LecternDocument* self, GAsyncResult* result, GError** error) {
    return lectern::finishValue<char>(self, result, error, lectern_document_get_comment_async);
}

/**
 * lectern_document_sort_async:
 * @self: a document
 * @descending: whether the largest value comes first
 * @cancellable: (nullable): cancels the call
 * @callback: (scope async): called when the call has ended
 * @user_data: data for the callback
 *
 * Sorts the shown sheet by the selected column. The file does not change.
 */
void lectern_document_sort_async(LecternDocument* self, gboolean descending, GCancellable* cancellable,
                                 GAsyncReadyCallback callback, gpointer user_data) {
    g_return_if_fail(LECTERN_IS_DOCUMENT(self));
    lectern::ask(self, {lectern_document_sort_async, cancellable, callback, user_data},
                 descending != FALSE ? lectern::excel::sortDescending() : lectern::excel::sortAscending(),
                 endSort);
}

/**
 * lectern_document_sort_finish:
 * @self: a document
 * @result: the result that the callback received
 * @error: return location for an error
 *
 * Ends [method@Document.sort_async].
 *
 * Returns: %TRUE on success
 */
gboolean lectern_document_sort_finish(LecternDocument* self, GAsyncResult* result, GError** error) {
    return lectern::finish(self, result, error, lectern_document_sort_async);
}

/**
 * lectern_document_set_resize_mode_async:
 * @self: a document
 * @on: whether drags in the headers resize
 * @cancellable: (nullable): cancels the call
 * @callback: (scope async): called when the call has ended
 * @user_data: data for the callback
 *
 * Lets drags in the headers resize columns and rows, or select them, as at the start.
 */
void lectern_document_set_resize_mode_async(LecternDocument* self, gboolean on, GCancellable* cancellable,
                                            GAsyncReadyCallback callback, gpointer user_data) {
    g_return_if_fail(LECTERN_IS_DOCUMENT(self));
    lectern::ask(self, {lectern_document_set_resize_mode_async, cancellable, callback, user_data},
                 lectern::excel::resizeMode(on != FALSE));
}

/**
 * lectern_document_set_resize_mode_finish:
 * @self: a document
 * @result: the result that the callback received
 * @error: return location for an error
 *
 * Ends [method@Document.set_resize_mode_async].
 *
 * Returns: %TRUE on success
 */
gboolean lectern_document_set_resize_mode_finish(LecternDocument* self, GAsyncResult* result,
                                                 GError** error) {
    return lectern::finish(self, result, error, lectern_document_set_resize_mode_async);
}

/**
 * lectern_document_hide_selection_async:
 * @self: a document
 * @cancellable: (nullable): cancels the call
 * @callback: (scope async): called when the call has ended
 * @user_data: data for the callback
 *
 * Hides the selected columns or rows.
 */
void lectern_document_hide_selection_async(LecternDocument* self, GCancellable* cancellable,
                                           GAsyncReadyCallback callback, gpointer user_data) {
    g_return_if_fail(LECTERN_IS_DOCUMENT(self));
    lectern::ask(self, {lectern_document_hide_selection_async, cancellable, callback, user_data},
                 lectern::excel::hideSelection());
}

/**
 * lectern_document_hide_selection_finish:
 * @self: a document
 * @result: the result that the callback received
 * @error: return location for an error
 *
 * Ends [method@Document.hide_selection_async].
 *
 * Returns: %TRUE on success
 */
gboolean lectern_document_hide_selection_finish(LecternDocument* self, GAsyncResult* result, GError** error) {
    return lectern::finish(self, result, error, lectern_document_hide_selection_async);
}

/**
 * lectern_document_unhide_selection_async:
 * @self: a document
 * @cancellable: (nullable): cancels the call
 * @callback: (scope async): called when the call has ended
 * @user_data: data for the callback
 *
 * Shows the hidden columns or rows among the selected ones.
 */
void lectern_document_unhide_selection_async(LecternDocument* self, GCancellable* cancellable,
                                             GAsyncReadyCallback callback, gpointer user_data) {
    g_return_if_fail(LECTERN_IS_DOCUMENT(self));
    lectern::ask(self, {lectern_document_unhide_selection_async, cancellable, callback, user_data},
                 lectern::excel::unhideSelection());
}

/**
 * lectern_document_unhide_selection_finish:
 * @self: a document
 * @result: the result that the callback received
 * @error: return location for an error
 *
 * Ends [method@Document.unhide_selection_async].
 *
 * Returns: %TRUE on success
 */
gboolean lectern_document_unhide_selection_finish(LecternDocument* self, GAsyncResult* result,
                                                  GError** error) {
    return lectern::finish(self, result, error, lectern_document_unhide_selection_async);
}

/**
 * lectern_document_unhide_all_async:
 * @self: a document
 * @cancellable: (nullable): cancels the call
 * @callback: (scope async): called when the call has ended
 * @user_data: data for the callback
 *
 * Shows all hidden columns and rows of the sheet.
 */
void lectern_document_unhide_all_async(LecternDocument* self, GCancellable* cancellable,
                                       GAsyncReadyCallback callback, gpointer user_data) {
    g_return_if_fail(LECTERN_IS_DOCUMENT(self));
    lectern::ask(self, {lectern_document_unhide_all_async, cancellable, callback, user_data},
                 lectern::excel::unhideAll());
}

/**
 * lectern_document_unhide_all_finish:
 * @self: a document
 * @result: the result that the callback received
 * @error: return location for an error
 *
 * Ends [method@Document.unhide_all_async].
 *
 * Returns: %TRUE on success
 */
gboolean lectern_document_unhide_all_finish(LecternDocument* self, GAsyncResult* result, GError** error) {
    return lectern::finish(self, result, error, lectern_document_unhide_all_async);
}

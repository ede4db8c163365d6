/* SPDX-License-Identifier: Apache-2.0 */
#pragma once

#include <gio/gio.h>
#include <lectern-glib/lectern-error.h>
#include <lectern-glib/lectern-service.h>
#include <lectern-glib/lectern-types.h>
#include <lectern-glib/lectern-version.h>

G_BEGIN_DECLS

/* An open document and its view. lectern-document.cpp describes the properties, the
 * signals and the threads.
 *
 * Calls with _async never block; their callbacks come in the thread-default main
 * context in which the call was made. Calls of one document are made in the order in
 * which they were asked for. A cancelled call may still take effect. */
#define LECTERN_TYPE_DOCUMENT (lectern_document_get_type())
LECTERN_EXPORT
G_DECLARE_FINAL_TYPE(LecternDocument, lectern_document, LECTERN, DOCUMENT, GObject)

LECTERN_EXPORT
LecternDocument* lectern_document_new(LecternService* service, GFile* file);

/* What is known of the document, as of the last paint. All have a property of the same
 * name, with notifications. */
LECTERN_EXPORT
LecternService* lectern_document_get_service(LecternDocument* self);
LECTERN_EXPORT
GFile* lectern_document_get_file(LecternDocument* self);
LECTERN_EXPORT
LecternDocumentKind lectern_document_get_kind(LecternDocument* self);
LECTERN_EXPORT
const char* lectern_document_get_title(LecternDocument* self);
LECTERN_EXPORT
double lectern_document_get_dpi(LecternDocument* self);
LECTERN_EXPORT
int lectern_document_get_width(LecternDocument* self);
LECTERN_EXPORT
int lectern_document_get_height(LecternDocument* self);
LECTERN_EXPORT
gint64 lectern_document_get_document_width(LecternDocument* self);
LECTERN_EXPORT
gint64 lectern_document_get_document_height(LecternDocument* self);
LECTERN_EXPORT
int lectern_document_get_visible_width(LecternDocument* self);
LECTERN_EXPORT
int lectern_document_get_visible_height(LecternDocument* self);
LECTERN_EXPORT
int lectern_document_get_x(LecternDocument* self);
LECTERN_EXPORT
int lectern_document_get_y(LecternDocument* self);
LECTERN_EXPORT
double lectern_document_get_zoom(LecternDocument* self);
LECTERN_EXPORT
double lectern_document_get_smallest_zoom(LecternDocument* self);
LECTERN_EXPORT
double lectern_document_get_largest_zoom(LecternDocument* self);
LECTERN_EXPORT
double lectern_document_get_fit_zoom(LecternDocument* self);
LECTERN_EXPORT
int lectern_document_get_part(LecternDocument* self);
LECTERN_EXPORT
int lectern_document_get_n_parts(LecternDocument* self);
LECTERN_EXPORT
int lectern_document_get_hit(LecternDocument* self);
LECTERN_EXPORT
int lectern_document_get_n_hits(LecternDocument* self);
LECTERN_EXPORT
gboolean lectern_document_get_searching(LecternDocument* self);
LECTERN_EXPORT
gboolean lectern_document_get_moving(LecternDocument* self);
LECTERN_EXPORT
int lectern_document_get_progress(LecternDocument* self);
LECTERN_EXPORT
gboolean lectern_document_get_opening(LecternDocument* self);
LECTERN_EXPORT
gboolean lectern_document_get_opened(LecternDocument* self);
LECTERN_EXPORT
gboolean lectern_document_get_gone(LecternDocument* self);

/* The picture of the last paint. */
LECTERN_EXPORT
GBytes* lectern_document_get_frame(LecternDocument* self, int* width, int* height);

/* Input; never blocks and has no reply. The signal "invalidated" tells of its effect. */
LECTERN_EXPORT
void lectern_document_pen_down(LecternDocument* self, int x, int y);
LECTERN_EXPORT
void lectern_document_pen_move(LecternDocument* self, int x, int y);
LECTERN_EXPORT
void lectern_document_pen_up(LecternDocument* self, int x, int y);
LECTERN_EXPORT
void lectern_document_flick(LecternDocument* self, int velocity_x, int velocity_y);
LECTERN_EXPORT
void lectern_document_click(LecternDocument* self, int x, int y);
LECTERN_EXPORT
void lectern_document_double_click(LecternDocument* self, int x, int y);
LECTERN_EXPORT
void lectern_document_pinch(LecternDocument* self, int x, int y, double factor, LecternPinchPhase phase);
LECTERN_EXPORT
void lectern_document_scroll_by(LecternDocument* self, int x, int y);

/* Life */

LECTERN_EXPORT
void lectern_document_open_async(LecternDocument* self, const char* password, GCancellable* cancellable,
                                 GAsyncReadyCallback callback, gpointer user_data);
LECTERN_EXPORT
gboolean lectern_document_open_finish(LecternDocument* self, GAsyncResult* result, GError** error);

LECTERN_EXPORT
void lectern_document_reopen_async(LecternDocument* self, GCancellable* cancellable,
                                   GAsyncReadyCallback callback, gpointer user_data);
LECTERN_EXPORT
gboolean lectern_document_reopen_finish(LecternDocument* self, GAsyncResult* result, GError** error);

LECTERN_EXPORT
void lectern_document_paint_async(LecternDocument* self, GCancellable* cancellable,
                                  GAsyncReadyCallback callback, gpointer user_data);
LECTERN_EXPORT
gboolean lectern_document_paint_finish(LecternDocument* self, GAsyncResult* result, LecternRectangle* damage,
                                       GError** error);

LECTERN_EXPORT
void lectern_document_resize_async(LecternDocument* self, int width, int height, GCancellable* cancellable,
                                   GAsyncReadyCallback callback, gpointer user_data);
LECTERN_EXPORT
gboolean lectern_document_resize_finish(LecternDocument* self, GAsyncResult* result, GError** error);

/* Place */

LECTERN_EXPORT
void lectern_document_scroll_to_async(LecternDocument* self, int x, int y, GCancellable* cancellable,
                                      GAsyncReadyCallback callback, gpointer user_data);
LECTERN_EXPORT
gboolean lectern_document_scroll_to_finish(LecternDocument* self, GAsyncResult* result, GError** error);

LECTERN_EXPORT
void lectern_document_zoom_to_async(LecternDocument* self, double zoom, int x, int y,
                                    GCancellable* cancellable, GAsyncReadyCallback callback,
                                    gpointer user_data);
LECTERN_EXPORT
gboolean lectern_document_zoom_to_finish(LecternDocument* self, GAsyncResult* result, GError** error);

/* Search */

LECTERN_EXPORT
void lectern_document_search_async(LecternDocument* self, const char* text, LecternSearchFlags flags,
                                   GCancellable* cancellable, GAsyncReadyCallback callback,
                                   gpointer user_data);
LECTERN_EXPORT
gboolean lectern_document_search_finish(LecternDocument* self, GAsyncResult* result, GError** error);

LECTERN_EXPORT
void lectern_document_next_hit_async(LecternDocument* self, GCancellable* cancellable,
                                     GAsyncReadyCallback callback, gpointer user_data);
LECTERN_EXPORT
gboolean lectern_document_next_hit_finish(LecternDocument* self, GAsyncResult* result, GError** error);

LECTERN_EXPORT
void lectern_document_previous_hit_async(LecternDocument* self, GCancellable* cancellable,
                                         GAsyncReadyCallback callback, gpointer user_data);
LECTERN_EXPORT
gboolean lectern_document_previous_hit_finish(LecternDocument* self, GAsyncResult* result, GError** error);

LECTERN_EXPORT
void lectern_document_close_search_async(LecternDocument* self, GCancellable* cancellable,
                                         GAsyncReadyCallback callback, gpointer user_data);
LECTERN_EXPORT
gboolean lectern_document_close_search_finish(LecternDocument* self, GAsyncResult* result, GError** error);

/* Selection */

LECTERN_EXPORT
void lectern_document_select_async(LecternDocument* self, LecternSelectUnit unit, int x, int y,
                                   GCancellable* cancellable, GAsyncReadyCallback callback,
                                   gpointer user_data);
LECTERN_EXPORT
gboolean lectern_document_select_finish(LecternDocument* self, GAsyncResult* result, GError** error);

LECTERN_EXPORT
void lectern_document_move_selection_end_async(LecternDocument* self, LecternSelectEnd end, int x, int y,
                                               GCancellable* cancellable, GAsyncReadyCallback callback,
                                               gpointer user_data);
LECTERN_EXPORT
gboolean lectern_document_move_selection_end_finish(LecternDocument* self, GAsyncResult* result,
                                                    GError** error);

LECTERN_EXPORT
void lectern_document_get_selection_async(LecternDocument* self, GCancellable* cancellable,
                                          GAsyncReadyCallback callback, gpointer user_data);
LECTERN_EXPORT
LecternSelection* lectern_document_get_selection_finish(LecternDocument* self, GAsyncResult* result,
                                                        GError** error);

/* Contents */

LECTERN_EXPORT
void lectern_document_get_text_async(LecternDocument* self, GCancellable* cancellable,
                                     GAsyncReadyCallback callback, gpointer user_data);
LECTERN_EXPORT
GPtrArray* lectern_document_get_text_finish(LecternDocument* self, GAsyncResult* result, GError** error);

LECTERN_EXPORT
void lectern_document_get_link_async(LecternDocument* self, GCancellable* cancellable,
                                     GAsyncReadyCallback callback, gpointer user_data);
LECTERN_EXPORT
char* lectern_document_get_link_finish(LecternDocument* self, GAsyncResult* result, GError** error);

LECTERN_EXPORT
void lectern_document_get_outline_async(LecternDocument* self, GCancellable* cancellable,
                                        GAsyncReadyCallback callback, gpointer user_data);
LECTERN_EXPORT
GListModel* lectern_document_get_outline_finish(LecternDocument* self, GAsyncResult* result, GError** error);

LECTERN_EXPORT
void lectern_document_go_to_async(LecternDocument* self, int entry, GCancellable* cancellable,
                                  GAsyncReadyCallback callback, gpointer user_data);
LECTERN_EXPORT
gboolean lectern_document_go_to_finish(LecternDocument* self, GAsyncResult* result, GError** error);

LECTERN_EXPORT
void lectern_document_go_to_part_async(LecternDocument* self, int part, GCancellable* cancellable,
                                       GAsyncReadyCallback callback, gpointer user_data);
LECTERN_EXPORT
gboolean lectern_document_go_to_part_finish(LecternDocument* self, GAsyncResult* result, GError** error);

LECTERN_EXPORT
void lectern_document_get_thumbnail_async(LecternDocument* self, int part, int width, int height,
                                          GCancellable* cancellable, GAsyncReadyCallback callback,
                                          gpointer user_data);
LECTERN_EXPORT
GBytes* lectern_document_get_thumbnail_finish(LecternDocument* self, GAsyncResult* result, GError** error);

LECTERN_EXPORT
void lectern_document_get_properties_async(LecternDocument* self, GCancellable* cancellable,
                                           GAsyncReadyCallback callback, gpointer user_data);
LECTERN_EXPORT
LecternProperties* lectern_document_get_properties_finish(LecternDocument* self, GAsyncResult* result,
                                                          GError** error);

LECTERN_EXPORT
void lectern_document_export_async(LecternDocument* self, LecternExportFormat format, GFile* target,
                                   GCancellable* cancellable, GAsyncReadyCallback callback,
                                   gpointer user_data);
LECTERN_EXPORT
gboolean lectern_document_export_finish(LecternDocument* self, GAsyncResult* result, GError** error);

/* Spreadsheets */

LECTERN_EXPORT
void lectern_document_get_cell_async(LecternDocument* self, int column, int row, GCancellable* cancellable,
                                     GAsyncReadyCallback callback, gpointer user_data);
LECTERN_EXPORT
LecternCell* lectern_document_get_cell_finish(LecternDocument* self, GAsyncResult* result, GError** error);

LECTERN_EXPORT
void lectern_document_get_comment_async(LecternDocument* self, GCancellable* cancellable,
                                        GAsyncReadyCallback callback, gpointer user_data);
LECTERN_EXPORT
char* lectern_document_get_comment_finish(LecternDocument* self, GAsyncResult* result, GError** error);

LECTERN_EXPORT
void lectern_document_sort_async(LecternDocument* self, gboolean descending, GCancellable* cancellable,
                                 GAsyncReadyCallback callback, gpointer user_data);
LECTERN_EXPORT
gboolean lectern_document_sort_finish(LecternDocument* self, GAsyncResult* result, GError** error);

LECTERN_EXPORT
void lectern_document_set_resize_mode_async(LecternDocument* self, gboolean on, GCancellable* cancellable,
                                            GAsyncReadyCallback callback, gpointer user_data);
LECTERN_EXPORT
gboolean lectern_document_set_resize_mode_finish(LecternDocument* self, GAsyncResult* result, GError** error);

LECTERN_EXPORT
void lectern_document_hide_selection_async(LecternDocument* self, GCancellable* cancellable,
                                           GAsyncReadyCallback callback, gpointer user_data);
LECTERN_EXPORT
gboolean lectern_document_hide_selection_finish(LecternDocument* self, GAsyncResult* result, GError** error);

LECTERN_EXPORT
void lectern_document_unhide_selection_async(LecternDocument* self, GCancellable* cancellable,
                                             GAsyncReadyCallback callback, gpointer user_data);
LECTERN_EXPORT
gboolean lectern_document_unhide_selection_finish(LecternDocument* self, GAsyncResult* result,
                                                  GError** error);

LECTERN_EXPORT
void lectern_document_unhide_all_async(LecternDocument* self, GCancellable* cancellable,
                                       GAsyncReadyCallback callback, gpointer user_data);
LECTERN_EXPORT
gboolean lectern_document_unhide_all_finish(LecternDocument* self, GAsyncResult* result, GError** error);

/* Presentations and texts */

LECTERN_EXPORT
void lectern_document_get_note_async(LecternDocument* self, GCancellable* cancellable,
                                     GAsyncReadyCallback callback, gpointer user_data);
LECTERN_EXPORT
char* lectern_document_get_note_finish(LecternDocument* self, GAsyncResult* result, GError** error);

LECTERN_EXPORT
void lectern_document_turn_async(LecternDocument* self, LecternOrientation orientation,
                                 GCancellable* cancellable, GAsyncReadyCallback callback, gpointer user_data);
LECTERN_EXPORT
gboolean lectern_document_turn_finish(LecternDocument* self, GAsyncResult* result, GError** error);

LECTERN_EXPORT
void lectern_document_set_wide_mode_async(LecternDocument* self, gboolean on, GCancellable* cancellable,
                                          GAsyncReadyCallback callback, gpointer user_data);
LECTERN_EXPORT
gboolean lectern_document_set_wide_mode_finish(LecternDocument* self, GAsyncResult* result, GError** error);

G_END_DECLS

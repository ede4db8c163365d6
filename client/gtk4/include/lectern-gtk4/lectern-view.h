/* SPDX-License-Identifier: Apache-2.0 */
#pragma once

#include <gtk/gtk.h>
#include <lectern-glib/lectern-glib.h>

G_BEGIN_DECLS

/* A widget that shows a document and takes its input. lectern-view.cpp describes its
 * properties, signals and actions. Put it into a scrolled window for scrollbars. It
 * belongs to GTK's thread. */
#define LECTERN_TYPE_VIEW (lectern_view_get_type())
LECTERN_EXPORT
G_DECLARE_FINAL_TYPE(LecternView, lectern_view, LECTERN, VIEW, GtkWidget)

LECTERN_EXPORT
GtkWidget* lectern_view_new(void);

LECTERN_EXPORT
LecternDocument* lectern_view_get_document(LecternView* self);
LECTERN_EXPORT
void lectern_view_set_document(LecternView* self, LecternDocument* document);

LECTERN_EXPORT
gboolean lectern_view_get_night(LecternView* self);
LECTERN_EXPORT
void lectern_view_set_night(LecternView* self, gboolean night);

LECTERN_EXPORT
gboolean lectern_view_get_presenting(LecternView* self);
LECTERN_EXPORT
void lectern_view_set_presenting(LecternView* self, gboolean presenting);

LECTERN_EXPORT
double lectern_view_get_dpi(LecternView* self);
LECTERN_EXPORT
void lectern_view_set_dpi(LecternView* self, double dpi);

LECTERN_EXPORT
gboolean lectern_view_get_has_selection(LecternView* self);
LECTERN_EXPORT
void lectern_view_copy(LecternView* self);
LECTERN_EXPORT
void lectern_view_select_all(LecternView* self);
LECTERN_EXPORT
void lectern_view_clear_selection(LecternView* self);

LECTERN_EXPORT
void lectern_view_zoom_in(LecternView* self);
LECTERN_EXPORT
void lectern_view_zoom_out(LecternView* self);
LECTERN_EXPORT
void lectern_view_zoom_to_fit(LecternView* self);
LECTERN_EXPORT
void lectern_view_zoom_to_width(LecternView* self);

LECTERN_EXPORT
double lectern_view_get_scale(LecternView* self);

G_END_DECLS

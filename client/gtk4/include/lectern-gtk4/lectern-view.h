/* SPDX-License-Identifier: Apache-2.0 */
#pragma once

#include <gtk/gtk.h>
#include <lectern-glib/lectern-glib.h>

G_BEGIN_DECLS

/* A widget that shows a document and takes its input. lectern-view.cpp describes its
 * properties, signals and actions. Put it into a scrolled window for scrollbars. */
#define LECTERN_TYPE_VIEW (lectern_view_get_type())
LECTERN_EXPORT
G_DECLARE_FINAL_TYPE(LecternView, lectern_view, LECTERN, VIEW, GtkWidget)

LECTERN_EXPORT
GtkWidget* lectern_view_new(void);

/* The document, already open or not yet: the view gives it its own size and the
 * screen's dpi, paints it, and opens it again when the service has stopped. */
LECTERN_EXPORT
LecternDocument* lectern_view_get_document(LecternView* self);
LECTERN_EXPORT
void lectern_view_set_document(LecternView* self, LecternDocument* document);

/* Light letters on a dark page: the lightness of the picture is inverted and its hues
 * stay. */
LECTERN_EXPORT
gboolean lectern_view_get_night(LecternView* self);
LECTERN_EXPORT
void lectern_view_set_night(LecternView* self, gboolean night);

/* TRUE: no selecting, no context menu, and a tap on a free place turns to the next
 * slide. */
LECTERN_EXPORT
gboolean lectern_view_get_presenting(LecternView* self);
LECTERN_EXPORT
void lectern_view_set_presenting(LecternView* self, gboolean presenting);

/* What the selection of the view has; FALSE after the selection was cleared. */
LECTERN_EXPORT
gboolean lectern_view_get_has_selection(LecternView* self);
LECTERN_EXPORT
void lectern_view_copy(LecternView* self);
LECTERN_EXPORT
void lectern_view_select_all(LecternView* self);
LECTERN_EXPORT
void lectern_view_clear_selection(LecternView* self);

/* Zooms about the view's centre; the limits of the document hold. */
LECTERN_EXPORT
void lectern_view_zoom_in(LecternView* self);
LECTERN_EXPORT
void lectern_view_zoom_out(LecternView* self);
LECTERN_EXPORT
void lectern_view_zoom_to_fit(LecternView* self);
LECTERN_EXPORT
void lectern_view_zoom_to_width(LecternView* self);

/* Device pixels of the picture for one pixel of the widget, such as 2.0. */
LECTERN_EXPORT
double lectern_view_get_scale(LecternView* self);

G_END_DECLS

// SPDX-License-Identifier: Apache-2.0
// The functions of the view for C and, by introspection, for other languages.
#include "client/gtk4/ViewObject.h"

using lectern::gtk4::ViewZoom;

/**
 * lectern_view_new:
 *
 * Makes a view without a document.
 *
 * Returns: a new view
 */
GtkWidget* lectern_view_new(void) {
    return GTK_WIDGET(g_object_new(LECTERN_TYPE_VIEW, nullptr));
}

/**
 * lectern_view_get_document: (attributes org.gtk.Method.get_property=document)
 * @self: a view
 *
 * Gets the document that the view shows.
 *
 * Returns: (transfer none) (nullable): its document
 */
LecternDocument* lectern_view_get_document(LecternView* self) {
    g_return_val_if_fail(LECTERN_IS_VIEW(self), nullptr);
    return self->view->document();
}

/**
 * lectern_view_set_document: (attributes org.gtk.Method.set_property=document)
 * @self: a view
 * @document: (nullable): a document, open or not
 *
 * Shows a document. Set it before [method@Lectern.Document.open_async], which then lays
 * it out for the size of the view.
 */
void lectern_view_set_document(LecternView* self, LecternDocument* document) {
    g_return_if_fail(LECTERN_IS_VIEW(self));
    g_return_if_fail(document == nullptr || LECTERN_IS_DOCUMENT(document));
    if (self->view->setDocument(document)) {
        g_object_notify(G_OBJECT(self), "document");
    }
}

/**
 * lectern_view_get_night: (attributes org.gtk.Method.get_property=night)
 * @self: a view
 *
 * Tells the colours of the view.
 *
 * Returns: whether it shows light letters on a dark page
 */
gboolean lectern_view_get_night(LecternView* self) {
    g_return_val_if_fail(LECTERN_IS_VIEW(self), FALSE);
    return self->view->isNight();
}

/**
 * lectern_view_set_night: (attributes org.gtk.Method.set_property=night)
 * @self: a view
 * @night: whether to show light letters on a dark page
 *
 * Changes the colours of the view.
 */
void lectern_view_set_night(LecternView* self, gboolean night) {
    g_return_if_fail(LECTERN_IS_VIEW(self));
    if (self->view->isNight() != (night != FALSE)) {
        self->view->setNight(night != FALSE);
        g_object_notify(G_OBJECT(self), "night");
    }
}

/**
 * lectern_view_get_presenting: (attributes org.gtk.Method.get_property=presenting)
 * @self: a view
 *
 * Tells whether the view presents slides.
 *
 * Returns: whether taps turn slides
 */
gboolean lectern_view_get_presenting(LecternView* self) {
    g_return_val_if_fail(LECTERN_IS_VIEW(self), FALSE);
    return self->view->context().isPresenting();
}

/**
 * lectern_view_set_presenting: (attributes org.gtk.Method.set_property=presenting)
 * @self: a view
 * @presenting: whether taps turn slides, and nothing is selected
 *
 * Begins or ends a presentation.
 */
void lectern_view_set_presenting(LecternView* self, gboolean presenting) {
    g_return_if_fail(LECTERN_IS_VIEW(self));
    if (self->view->context().isPresenting() != (presenting != FALSE)) {
        self->view->context().setPresenting(presenting != FALSE);
        lectern_view_clear_selection(self);
        g_object_notify(G_OBJECT(self), "presenting");
    }
}

/**
 * lectern_view_get_dpi: (attributes org.gtk.Method.get_property=dpi)
 * @self: a view
 *
 * Gets the resolution for documents that are opened later.
 *
 * Returns: device pixels for one inch of the screen; 0 for those of the monitor
 */
double lectern_view_get_dpi(LecternView* self) {
    g_return_val_if_fail(LECTERN_IS_VIEW(self), 0);
    return self->view->context().wantedDpi();
}

/**
 * lectern_view_set_dpi: (attributes org.gtk.Method.set_property=dpi)
 * @self: a view
 * @dpi: device pixels for one inch of the screen, 36 to 1200; 0 for those of the monitor
 *
 * Sets the resolution for documents that are opened later.
 */
void lectern_view_set_dpi(LecternView* self, double dpi) {
    g_return_if_fail(LECTERN_IS_VIEW(self));
    g_return_if_fail(dpi >= 0 && dpi <= 1200);
    if (self->view->context().wantedDpi() < dpi || self->view->context().wantedDpi() > dpi) {
        self->view->context().setDpi(dpi);
        self->view->screenChanged();
        g_object_notify(G_OBJECT(self), "dpi");
    }
}

/**
 * lectern_view_get_has_selection: (attributes org.gtk.Method.get_property=has-selection)
 * @self: a view
 *
 * Tells whether [method@View.copy] has something to copy.
 *
 * Returns: whether there is something to copy
 */
gboolean lectern_view_get_has_selection(LecternView* self) {
    g_return_val_if_fail(LECTERN_IS_VIEW(self), FALSE);
    return self->view->hasSelection();
}

/**
 * lectern_view_copy:
 * @self: a view
 *
 * Copies what is selected, or the cell that was tapped last, into the clipboard. The
 * text is there a moment later.
 */
void lectern_view_copy(LecternView* self) {
    g_return_if_fail(LECTERN_IS_VIEW(self));
    self->view->copy();
}

/**
 * lectern_view_select_all:
 * @self: a view
 *
 * Selects all of the text, the sheet or the slide.
 */
void lectern_view_select_all(LecternView* self) {
    g_return_if_fail(LECTERN_IS_VIEW(self));
    self->view->selectAll();
}

/**
 * lectern_view_clear_selection:
 * @self: a view
 *
 * Ends the selection.
 */
void lectern_view_clear_selection(LecternView* self) {
    g_return_if_fail(LECTERN_IS_VIEW(self));
    self->view->clearSelection();
}

/**
 * lectern_view_zoom_in:
 * @self: a view
 *
 * Zooms about the middle of the view, as far as the document allows.
 */
void lectern_view_zoom_in(LecternView* self) {
    g_return_if_fail(LECTERN_IS_VIEW(self));
    self->view->zoom().by(ViewZoom::STEP);
}

/**
 * lectern_view_zoom_out:
 * @self: a view
 *
 * Zooms about the middle of the view, as far as the document allows.
 */
void lectern_view_zoom_out(LecternView* self) {
    g_return_if_fail(LECTERN_IS_VIEW(self));
    self->view->zoom().by(1 / ViewZoom::STEP);
}

/**
 * lectern_view_zoom_to_fit:
 * @self: a view
 *
 * Shows a text or sheet at its own size, and a slide whole.
 */
void lectern_view_zoom_to_fit(LecternView* self) {
    g_return_if_fail(LECTERN_IS_VIEW(self));
    self->view->zoom().toFit();
}

/**
 * lectern_view_zoom_to_width:
 * @self: a view
 *
 * Makes a sheet or slide as wide as the view, as far as the document allows.
 */
void lectern_view_zoom_to_width(LecternView* self) {
    g_return_if_fail(LECTERN_IS_VIEW(self));
    self->view->zoom().toWidth();
}

/**
 * lectern_view_get_scale: (attributes org.gtk.Method.get_property=scale)
 * @self: a view
 *
 * Gets the scale of the view's screen.
 *
 * Returns: device pixels of the picture for one pixel of the widget
 */
double lectern_view_get_scale(LecternView* self) {
    g_return_val_if_fail(LECTERN_IS_VIEW(self), 1);
    return self->view->context().grid().scale();
}

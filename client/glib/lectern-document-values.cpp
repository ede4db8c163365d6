// SPDX-License-Identifier: Apache-2.0
// The properties of documents and the functions that return them. All change only in the
// document's main context.
#include "client/glib/DocumentObject.h"

namespace {

// What the functions return for something that is no document.
const lectern::DocumentValues NO_VALUES;

const lectern::DocumentValues& valuesOf(LecternDocument* self) {
    g_return_val_if_fail(LECTERN_IS_DOCUMENT(self), NO_VALUES);
    return self->members->values;
}

} // namespace

/**
 * LecternDocument:dpi: (getter get_dpi)
 *
 * The dots per inch of the screen, 36 to 1200: at a zoom of 1, text of 12 points is a
 * sixth of an inch high. To be set before the open.
 */
/**
 * lectern_document_get_dpi: (get-property dpi)
 * @self: a document
 *
 * Returns: the dots per inch of the screen, 36 to 1200
 */
double lectern_document_get_dpi(LecternDocument* self) {
    return valuesOf(self).dpi;
}

/**
 * LecternDocument:width: (getter get_width)
 *
 * The width of the view in pixels, 1 to 16384. To be set before the open;
 * [method@Document.resize_async] changes it later.
 */
/**
 * lectern_document_get_width: (get-property width)
 * @self: a document
 *
 * Returns: the width of the view in pixels, 1 to 16384
 */
int lectern_document_get_width(LecternDocument* self) {
    return valuesOf(self).width;
}

/**
 * LecternDocument:height: (getter get_height)
 *
 * The height of the view in pixels, 1 to 16384. To be set before the open;
 * [method@Document.resize_async] changes it later.
 */
/**
 * lectern_document_get_height: (get-property height)
 * @self: a document
 *
 * Returns: the height of the view in pixels, 1 to 16384
 */
int lectern_document_get_height(LecternDocument* self) {
    return valuesOf(self).height;
}

/**
 * LecternDocument:document-width: (getter get_document_width)
 *
 * The width of the document at the current zoom, in pixels.
 */
/**
 * lectern_document_get_document_width: (get-property document-width)
 * @self: a document
 *
 * Returns: the width of the document at the current zoom, in pixels
 */
gint64 lectern_document_get_document_width(LecternDocument* self) {
    return valuesOf(self).documentWidth;
}

/**
 * LecternDocument:document-height: (getter get_document_height)
 *
 * The height of the document at the current zoom, in pixels. That of a text is an
 * estimate until it is laid out to its end.
 */
/**
 * lectern_document_get_document_height: (get-property document-height)
 * @self: a document
 *
 * Returns: the height of the document at the current zoom, in pixels
 */
gint64 lectern_document_get_document_height(LecternDocument* self) {
    return valuesOf(self).documentHeight;
}

/**
 * LecternDocument:visible-width: (getter get_visible_width)
 *
 * The width of the part of the document that the view shows, in pixels. On sheets the
 * headers take some of the view.
 */
/**
 * lectern_document_get_visible_width: (get-property visible-width)
 * @self: a document
 *
 * Returns: the width of the part of the document that the view shows, in pixels
 */
int lectern_document_get_visible_width(LecternDocument* self) {
    return valuesOf(self).visibleWidth;
}

/**
 * LecternDocument:visible-height: (getter get_visible_height)
 *
 * The height of the part of the document that the view shows, in pixels. On sheets the
 * headers take some of the view.
 */
/**
 * lectern_document_get_visible_height: (get-property visible-height)
 * @self: a document
 *
 * Returns: the height of the part of the document that the view shows, in pixels
 */
int lectern_document_get_visible_height(LecternDocument* self) {
    return valuesOf(self).visibleHeight;
}

/**
 * LecternDocument:x: (getter get_x)
 *
 * The left edge of the view in the document, in pixels at the current zoom.
 */
/**
 * lectern_document_get_x: (get-property x)
 * @self: a document
 *
 * Returns: the left edge of the view in the document, in pixels at the current zoom
 */
int lectern_document_get_x(LecternDocument* self) {
    return valuesOf(self).x;
}

/**
 * LecternDocument:y: (getter get_y)
 *
 * The upper edge of the view in the document, in pixels at the current zoom.
 */
/**
 * lectern_document_get_y: (get-property y)
 * @self: a document
 *
 * Returns: the upper edge of the view in the document, in pixels at the current zoom
 */
int lectern_document_get_y(LecternDocument* self) {
    return valuesOf(self).y;
}

/**
 * LecternDocument:zoom: (getter get_zoom)
 *
 * The zoom. 1 shows text of 12 points as a sixth of an inch.
 */
/**
 * lectern_document_get_zoom: (get-property zoom)
 * @self: a document
 *
 * Returns: the zoom
 */
double lectern_document_get_zoom(LecternDocument* self) {
    return valuesOf(self).zoom;
}

/**
 * LecternDocument:smallest-zoom: (getter get_smallest_zoom)
 *
 * The smallest zoom of the document.
 */
/**
 * lectern_document_get_smallest_zoom: (get-property smallest-zoom)
 * @self: a document
 *
 * Returns: the smallest zoom of the document
 */
double lectern_document_get_smallest_zoom(LecternDocument* self) {
    return valuesOf(self).smallestZoom;
}

/**
 * LecternDocument:largest-zoom: (getter get_largest_zoom)
 *
 * The largest zoom of the document.
 */
/**
 * lectern_document_get_largest_zoom: (get-property largest-zoom)
 * @self: a document
 *
 * Returns: the largest zoom of the document
 */
double lectern_document_get_largest_zoom(LecternDocument* self) {
    return valuesOf(self).largestZoom;
}

/**
 * LecternDocument:fit-zoom: (getter get_fit_zoom)
 *
 * The zoom to which a double tap returns.
 */
/**
 * lectern_document_get_fit_zoom: (get-property fit-zoom)
 * @self: a document
 *
 * Returns: the zoom to which a double tap returns
 */
double lectern_document_get_fit_zoom(LecternDocument* self) {
    return valuesOf(self).fitZoom;
}

/**
 * LecternDocument:part: (getter get_part)
 *
 * The shown sheet or slide, from 0; 0 for texts.
 */
/**
 * lectern_document_get_part: (get-property part)
 * @self: a document
 *
 * Returns: the shown sheet or slide, from 0
 */
int lectern_document_get_part(LecternDocument* self) {
    return valuesOf(self).part;
}

/**
 * LecternDocument:n-parts: (getter get_n_parts)
 *
 * The number of sheets or slides; 1 for texts.
 */
/**
 * lectern_document_get_n_parts: (get-property n-parts)
 * @self: a document
 *
 * Returns: the number of sheets or slides
 */
int lectern_document_get_n_parts(LecternDocument* self) {
    return valuesOf(self).nParts;
}

/**
 * LecternDocument:hit: (getter get_hit)
 *
 * The current hit of the search, from 0; -1 without one.
 */
/**
 * lectern_document_get_hit: (get-property hit)
 * @self: a document
 *
 * Returns: the current hit of the search, from 0
 */
int lectern_document_get_hit(LecternDocument* self) {
    return valuesOf(self).hit;
}

/**
 * LecternDocument:n-hits: (getter get_n_hits)
 *
 * The number of hits in the whole document.
 */
/**
 * lectern_document_get_n_hits: (get-property n-hits)
 * @self: a document
 *
 * Returns: the number of hits in the whole document
 */
int lectern_document_get_n_hits(LecternDocument* self) {
    return valuesOf(self).nHits;
}

/**
 * LecternDocument:searching: (getter get_searching)
 *
 * Whether a search, or a step to another hit, is under way.
 */
/**
 * lectern_document_get_searching: (get-property searching)
 * @self: a document
 *
 * Returns: whether a search, or a step to another hit, is under way
 */
gboolean lectern_document_get_searching(LecternDocument* self) {
    return valuesOf(self).searching ? TRUE : FALSE;
}

/**
 * LecternDocument:moving: (getter get_moving)
 *
 * Whether the view glides after a flick.
 */
/**
 * lectern_document_get_moving: (get-property moving)
 * @self: a document
 *
 * Returns: whether the view glides after a flick
 */
gboolean lectern_document_get_moving(LecternDocument* self) {
    return valuesOf(self).moving ? TRUE : FALSE;
}

/**
 * LecternDocument:progress: (getter get_progress)
 *
 * How much of an open or reopen is done, in percent. Not every kind of document tells it
 * before the end.
 */
/**
 * lectern_document_get_progress: (get-property progress)
 * @self: a document
 *
 * Returns: how much of an open or reopen is done, in percent
 */
int lectern_document_get_progress(LecternDocument* self) {
    return valuesOf(self).progress;
}

/**
 * LecternDocument:opening: (getter get_opening)
 *
 * Whether an open is under way.
 */
/**
 * lectern_document_get_opening: (get-property opening)
 * @self: a document
 *
 * Returns: whether an open is under way
 */
gboolean lectern_document_get_opening(LecternDocument* self) {
    return valuesOf(self).opening ? TRUE : FALSE;
}

/**
 * LecternDocument:opened: (getter get_opened)
 *
 * Whether the document has been opened. Stays %TRUE when the service stops.
 */
/**
 * lectern_document_get_opened: (get-property opened)
 * @self: a document
 *
 * Returns: whether the document has been opened
 */
gboolean lectern_document_get_opened(LecternDocument* self) {
    return valuesOf(self).opened ? TRUE : FALSE;
}

/**
 * LecternDocument:gone: (getter get_gone)
 *
 * Whether the service has stopped: calls then fail with %LECTERN_SERVICE_ERROR_GONE
 * until [method@Document.reopen_async] has succeeded.
 */
/**
 * lectern_document_get_gone: (get-property gone)
 * @self: a document
 *
 * Returns: whether the service has stopped
 */
gboolean lectern_document_get_gone(LecternDocument* self) {
    return valuesOf(self).gone ? TRUE : FALSE;
}

/**
 * LecternDocument:service: (getter get_service)
 *
 * The connection to the service.
 */
/**
 * lectern_document_get_service: (get-property service)
 * @self: a document
 *
 * Returns: (transfer none): the connection to the service
 */
LecternService* lectern_document_get_service(LecternDocument* self) {
    g_return_val_if_fail(LECTERN_IS_DOCUMENT(self), nullptr);
    return self->members->service.get();
}

/**
 * LecternDocument:file: (getter get_file)
 *
 * The file.
 */
/**
 * lectern_document_get_file: (get-property file)
 * @self: a document
 *
 * Returns: (transfer none): the file
 */
GFile* lectern_document_get_file(LecternDocument* self) {
    g_return_val_if_fail(LECTERN_IS_DOCUMENT(self), nullptr);
    return self->members->file.get();
}

/**
 * LecternDocument:kind: (getter get_kind)
 *
 * The kind of the document. Before the open, another kind than
 * %LECTERN_DOCUMENT_KIND_UNKNOWN overrides what the contents tell.
 */
/**
 * lectern_document_get_kind: (get-property kind)
 * @self: a document
 *
 * Returns: the kind of the document
 */
LecternDocumentKind lectern_document_get_kind(LecternDocument* self) {
    return valuesOf(self).kind;
}

/**
 * LecternDocument:title: (getter get_title)
 *
 * The title that the document says of itself, or the file's name: before the open, and
 * for documents without a title.
 */
/**
 * lectern_document_get_title: (get-property title)
 * @self: a document
 *
 * Returns: (transfer none): the title, or the file's name
 */
const char* lectern_document_get_title(LecternDocument* self) {
    return valuesOf(self).title.c_str();
}

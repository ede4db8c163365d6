// SPDX-License-Identifier: Apache-2.0
// What is known of the view: its place, its zoom, and the search in it.
#include "client/glib/DocumentObject.h"

/**
 * LecternDocument:document-width: (getter get_document_width)
 *
 * The width of the document at the current zoom, in pixels.
 */

/**
 * lectern_document_get_document_width: (get-property document-width)
 * @self: a document
 *
 * Reads [property@Document:document-width].
 *
 * Returns: the width of the document at the current zoom, in pixels
 */
gint64 lectern_document_get_document_width(LecternDocument* self) {
    return lectern::valuesOf(self).documentWidth;
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
 * Reads [property@Document:document-height].
 *
 * Returns: the height of the document at the current zoom, in pixels
 */
gint64 lectern_document_get_document_height(LecternDocument* self) {
    return lectern::valuesOf(self).documentHeight;
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
 * Reads [property@Document:visible-width].
 *
 * Returns: the width of the part of the document that the view shows, in pixels
 */
int lectern_document_get_visible_width(LecternDocument* self) {
    return lectern::valuesOf(self).visibleWidth;
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
 * Reads [property@Document:visible-height].
 *
 * Returns: the height of the part of the document that the view shows, in pixels
 */
int lectern_document_get_visible_height(LecternDocument* self) {
    return lectern::valuesOf(self).visibleHeight;
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
 * Reads [property@Document:x].
 *
 * Returns: the left edge of the view in the document, in pixels at the current zoom
 */
int lectern_document_get_x(LecternDocument* self) {
    return lectern::valuesOf(self).x;
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
 * Reads [property@Document:y].
 *
 * Returns: the upper edge of the view in the document, in pixels at the current zoom
 */
int lectern_document_get_y(LecternDocument* self) {
    return lectern::valuesOf(self).y;
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
 * Reads [property@Document:zoom].
 *
 * Returns: the zoom
 */
double lectern_document_get_zoom(LecternDocument* self) {
    return lectern::valuesOf(self).zoom;
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
 * Reads [property@Document:smallest-zoom].
 *
 * Returns: the smallest zoom of the document
 */
double lectern_document_get_smallest_zoom(LecternDocument* self) {
    return lectern::valuesOf(self).smallestZoom;
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
 * Reads [property@Document:largest-zoom].
 *
 * Returns: the largest zoom of the document
 */
double lectern_document_get_largest_zoom(LecternDocument* self) {
    return lectern::valuesOf(self).largestZoom;
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
 * Reads [property@Document:fit-zoom].
 *
 * Returns: the zoom to which a double tap returns
 */
double lectern_document_get_fit_zoom(LecternDocument* self) {
    return lectern::valuesOf(self).fitZoom;
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
 * Reads [property@Document:part].
 *
 * Returns: the shown sheet or slide, from 0
 */
int lectern_document_get_part(LecternDocument* self) {
    return lectern::valuesOf(self).part;
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
 * Reads [property@Document:n-parts].
 *
 * Returns: the number of sheets or slides
 */
int lectern_document_get_n_parts(LecternDocument* self) {
    return lectern::valuesOf(self).nParts;
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
 * Reads [property@Document:hit].
 *
 * Returns: the current hit of the search, from 0
 */
int lectern_document_get_hit(LecternDocument* self) {
    return lectern::valuesOf(self).hit;
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
 * Reads [property@Document:n-hits].
 *
 * Returns: the number of hits in the whole document
 */
int lectern_document_get_n_hits(LecternDocument* self) {
    return lectern::valuesOf(self).nHits;
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
 * Reads [property@Document:searching].
 *
 * Returns: whether a search, or a step to another hit, is under way
 */
gboolean lectern_document_get_searching(LecternDocument* self) {
    return lectern::valuesOf(self).searching ? TRUE : FALSE;
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
 * Reads [property@Document:moving].
 *
 * Returns: whether the view glides after a flick
 */
gboolean lectern_document_get_moving(LecternDocument* self) {
    return lectern::valuesOf(self).moving ? TRUE : FALSE;
}

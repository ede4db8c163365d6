// SPDX-License-Identifier: Apache-2.0
// What a document is given before the open, and how the open went.
#include "client/glib/DocumentObject.h"

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
 * Reads [property@Document:dpi].
 *
 * Returns: the dots per inch of the screen, 36 to 1200
 */
double lectern_document_get_dpi(LecternDocument* self) {
    return lectern::valuesOf(self).dpi;
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
 * Reads [property@Document:width].
 *
 * Returns: the width of the view in pixels, 1 to 16384
 */
int lectern_document_get_width(LecternDocument* self) {
    return lectern::valuesOf(self).width;
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
 * Reads [property@Document:height].
 *
 * Returns: the height of the view in pixels, 1 to 16384
 */
int lectern_document_get_height(LecternDocument* self) {
    return lectern::valuesOf(self).height;
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
 * Reads [property@Document:progress].
 *
 * Returns: how much of an open or reopen is done, in percent
 */
int lectern_document_get_progress(LecternDocument* self) {
    return lectern::valuesOf(self).progress;
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
 * Reads [property@Document:opening].
 *
 * Returns: whether an open is under way
 */
gboolean lectern_document_get_opening(LecternDocument* self) {
    return lectern::valuesOf(self).opening ? TRUE : FALSE;
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
 * Reads [property@Document:opened].
 *
 * Returns: whether the document has been opened
 */
gboolean lectern_document_get_opened(LecternDocument* self) {
    return lectern::valuesOf(self).opened ? TRUE : FALSE;
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
 * Reads [property@Document:gone].
 *
 * Returns: whether the service has stopped
 */
gboolean lectern_document_get_gone(LecternDocument* self) {
    return lectern::valuesOf(self).gone ? TRUE : FALSE;
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
 * Reads [property@Document:service].
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
 * Reads [property@Document:file].
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
 * Reads [property@Document:kind].
 *
 * Returns: the kind of the document
 */
LecternDocumentKind lectern_document_get_kind(LecternDocument* self) {
    return lectern::valuesOf(self).kind;
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
 * Reads [property@Document:title].
 *
 * Returns: (transfer none): the title, or the file's name
 */
const char* lectern_document_get_title(LecternDocument* self) {
    return lectern::valuesOf(self).title.c_str();
}

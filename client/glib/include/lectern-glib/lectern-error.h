/* SPDX-License-Identifier: Apache-2.0 */
#pragma once

#include <lectern-glib/lectern-version.h>

G_BEGIN_DECLS

/**
 * LECTERN_SERVICE_ERROR:
 *
 * The domain of the errors of calls. A cancelled call fails with
 * %G_IO_ERROR_CANCELLED in the domain %G_IO_ERROR.
 */
#define LECTERN_SERVICE_ERROR (lectern_service_error_quark())

/**
 * LecternServiceError:
 * @LECTERN_SERVICE_ERROR_ARGUMENT: an invalid argument
 * @LECTERN_SERVICE_ERROR_SYSTEM: a system call failed, or memory is missing
 * @LECTERN_SERVICE_ERROR_BUS: no service, no connection or no valid reply
 * @LECTERN_SERVICE_ERROR_TIMED_OUT: no reply in time
 * @LECTERN_SERVICE_ERROR_GONE: the service has stopped; open the document again
 *   with [method@Document.reopen_async]
 * @LECTERN_SERVICE_ERROR_NOT_OPEN: the document is still being opened
 * @LECTERN_SERVICE_ERROR_WRONG_KIND: not for this kind of document
 * @LECTERN_SERVICE_ERROR_OUT_OF_RANGE: a number that the document does not have
 * @LECTERN_SERVICE_ERROR_NOTHING_THERE: no hit, text or cell at the place
 * @LECTERN_SERVICE_ERROR_NOT_SUPPORTED: the rendering module does not support it
 * @LECTERN_SERVICE_ERROR_NOT_WRITABLE: the file cannot be written
 * @LECTERN_SERVICE_ERROR_FAILED: the rendering module failed
 * @LECTERN_SERVICE_ERROR_REFUSED: the service refused the call for another reason
 *
 * Why a call failed. The message is an English sentence without its full stop.
 */
typedef enum {
    LECTERN_SERVICE_ERROR_ARGUMENT,
    LECTERN_SERVICE_ERROR_SYSTEM,
    LECTERN_SERVICE_ERROR_BUS,
    LECTERN_SERVICE_ERROR_TIMED_OUT,
    LECTERN_SERVICE_ERROR_GONE,
    LECTERN_SERVICE_ERROR_NOT_OPEN,
    LECTERN_SERVICE_ERROR_WRONG_KIND,
    LECTERN_SERVICE_ERROR_OUT_OF_RANGE,
    LECTERN_SERVICE_ERROR_NOTHING_THERE,
    LECTERN_SERVICE_ERROR_NOT_SUPPORTED,
    LECTERN_SERVICE_ERROR_NOT_WRITABLE,
    LECTERN_SERVICE_ERROR_FAILED,
    LECTERN_SERVICE_ERROR_REFUSED,
} LecternServiceError;

#define LECTERN_TYPE_SERVICE_ERROR (lectern_service_error_get_type())
LECTERN_EXPORT
GType lectern_service_error_get_type(void);

LECTERN_EXPORT
GQuark lectern_service_error_quark(void);

/**
 * LECTERN_DOCUMENT_ERROR:
 *
 * The domain of the errors of documents that do not open, cannot be painted, or are
 * lost.
 */
#define LECTERN_DOCUMENT_ERROR (lectern_document_error_quark())

/**
 * LecternDocumentError:
 * @LECTERN_DOCUMENT_ERROR_FAILED: the rendering module failed, or reported a code
 *   that this library does not know
 * @LECTERN_DOCUMENT_ERROR_NOT_FOUND: no file of that name
 * @LECTERN_DOCUMENT_ERROR_NOT_A_FILE: a folder or a device
 * @LECTERN_DOCUMENT_ERROR_NOT_READABLE: no permission, or reading failed
 * @LECTERN_DOCUMENT_ERROR_DAMAGED: the contents are not a document
 * @LECTERN_DOCUMENT_ERROR_WRONG_KIND: the contents are a document of another kind
 * @LECTERN_DOCUMENT_ERROR_NEEDS_PASSWORD: protected, and no password was given
 * @LECTERN_DOCUMENT_ERROR_WRONG_PASSWORD: protected, and the password is wrong
 * @LECTERN_DOCUMENT_ERROR_TIMED_OUT: its layout takes too long
 * @LECTERN_DOCUMENT_ERROR_ENGINE_LOST: the rendering engine crashed on it
 * @LECTERN_DOCUMENT_ERROR_NO_ENGINE: the rendering engine cannot be started
 * @LECTERN_DOCUMENT_ERROR_NOT_SUPPORTED: not supported for this document
 * @LECTERN_DOCUMENT_ERROR_TOO_LARGE: it needs more memory than a document may use
 * @LECTERN_DOCUMENT_ERROR_TOO_COMPLEX: its layout would take too long
 * @LECTERN_DOCUMENT_ERROR_CHANGED: the file has changed since it was opened
 *
 * What is wrong with a document. The message is an English sentence without its full
 * stop.
 */
typedef enum {
    LECTERN_DOCUMENT_ERROR_FAILED,
    LECTERN_DOCUMENT_ERROR_NOT_FOUND,
    LECTERN_DOCUMENT_ERROR_NOT_A_FILE,
    LECTERN_DOCUMENT_ERROR_NOT_READABLE,
    LECTERN_DOCUMENT_ERROR_DAMAGED,
    LECTERN_DOCUMENT_ERROR_WRONG_KIND,
    LECTERN_DOCUMENT_ERROR_NEEDS_PASSWORD,
    LECTERN_DOCUMENT_ERROR_WRONG_PASSWORD,
    LECTERN_DOCUMENT_ERROR_TIMED_OUT,
    LECTERN_DOCUMENT_ERROR_ENGINE_LOST,
    LECTERN_DOCUMENT_ERROR_NO_ENGINE,
    LECTERN_DOCUMENT_ERROR_NOT_SUPPORTED,
    LECTERN_DOCUMENT_ERROR_TOO_LARGE,
    LECTERN_DOCUMENT_ERROR_TOO_COMPLEX,
    LECTERN_DOCUMENT_ERROR_CHANGED,
} LecternDocumentError;

#define LECTERN_TYPE_DOCUMENT_ERROR (lectern_document_error_get_type())
LECTERN_EXPORT
GType lectern_document_error_get_type(void);

LECTERN_EXPORT
GQuark lectern_document_error_quark(void);

G_END_DECLS

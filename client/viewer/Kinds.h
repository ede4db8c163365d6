// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern-glib/lectern-glib.h>

namespace lectern::viewer {

// Null is no document, so of no kind.
inline bool isOfKind(LecternDocument* document, LecternDocumentKind kind) {
    return document != nullptr && lectern_document_get_kind(document) == kind;
}
inline bool isText(LecternDocument* document) {
    return isOfKind(document, LECTERN_DOCUMENT_KIND_TEXT);
}
inline bool isSpreadsheet(LecternDocument* document) {
    return isOfKind(document, LECTERN_DOCUMENT_KIND_SPREADSHEET);
}
inline bool isPresentation(LecternDocument* document) {
    return isOfKind(document, LECTERN_DOCUMENT_KIND_PRESENTATION);
}

} // namespace lectern::viewer

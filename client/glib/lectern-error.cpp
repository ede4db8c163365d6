// SPDX-License-Identifier: Apache-2.0
#include "client/glib/include/lectern-glib/lectern-error.h"

#include "client/glib/Error.h"
#include "modules/ModuleResults.h"

#include <map>
#include <string>

G_DEFINE_ENUM_TYPE(LecternServiceError, lectern_service_error,
                   G_DEFINE_ENUM_VALUE(LECTERN_SERVICE_ERROR_ARGUMENT, "argument"),
                   G_DEFINE_ENUM_VALUE(LECTERN_SERVICE_ERROR_SYSTEM, "system"),
                   G_DEFINE_ENUM_VALUE(LECTERN_SERVICE_ERROR_BUS, "bus"),
                   G_DEFINE_ENUM_VALUE(LECTERN_SERVICE_ERROR_TIMED_OUT, "timed-out"),
                   G_DEFINE_ENUM_VALUE(LECTERN_SERVICE_ERROR_GONE, "gone"),
                   G_DEFINE_ENUM_VALUE(LECTERN_SERVICE_ERROR_NOT_OPEN, "not-open"),
                   G_DEFINE_ENUM_VALUE(LECTERN_SERVICE_ERROR_WRONG_KIND, "wrong-kind"),
                   G_DEFINE_ENUM_VALUE(LECTERN_SERVICE_ERROR_OUT_OF_RANGE, "out-of-range"),
                   G_DEFINE_ENUM_VALUE(LECTERN_SERVICE_ERROR_NOTHING_THERE, "nothing-there"),
                   G_DEFINE_ENUM_VALUE(LECTERN_SERVICE_ERROR_NOT_SUPPORTED, "not-supported"),
                   G_DEFINE_ENUM_VALUE(LECTERN_SERVICE_ERROR_NOT_WRITABLE, "not-writable"),
                   G_DEFINE_ENUM_VALUE(LECTERN_SERVICE_ERROR_FAILED, "failed"),
                   G_DEFINE_ENUM_VALUE(LECTERN_SERVICE_ERROR_REFUSED, "refused"))

G_DEFINE_ENUM_TYPE(LecternDocumentError, lectern_document_error,
                   G_DEFINE_ENUM_VALUE(LECTERN_DOCUMENT_ERROR_FAILED, "failed"),
                   G_DEFINE_ENUM_VALUE(LECTERN_DOCUMENT_ERROR_NOT_FOUND, "not-found"),
                   G_DEFINE_ENUM_VALUE(LECTERN_DOCUMENT_ERROR_NOT_A_FILE, "not-a-file"),
                   G_DEFINE_ENUM_VALUE(LECTERN_DOCUMENT_ERROR_NOT_READABLE, "not-readable"),
                   G_DEFINE_ENUM_VALUE(LECTERN_DOCUMENT_ERROR_DAMAGED, "damaged"),
                   G_DEFINE_ENUM_VALUE(LECTERN_DOCUMENT_ERROR_WRONG_KIND, "wrong-kind"),
                   G_DEFINE_ENUM_VALUE(LECTERN_DOCUMENT_ERROR_NEEDS_PASSWORD, "needs-password"),
                   G_DEFINE_ENUM_VALUE(LECTERN_DOCUMENT_ERROR_WRONG_PASSWORD, "wrong-password"),
                   G_DEFINE_ENUM_VALUE(LECTERN_DOCUMENT_ERROR_TIMED_OUT, "timed-out"),
                   G_DEFINE_ENUM_VALUE(LECTERN_DOCUMENT_ERROR_ENGINE_LOST, "engine-lost"),
                   G_DEFINE_ENUM_VALUE(LECTERN_DOCUMENT_ERROR_NO_ENGINE, "no-engine"),
                   G_DEFINE_ENUM_VALUE(LECTERN_DOCUMENT_ERROR_NOT_SUPPORTED, "not-supported"),
                   G_DEFINE_ENUM_VALUE(LECTERN_DOCUMENT_ERROR_TOO_LARGE, "too-large"),
                   G_DEFINE_ENUM_VALUE(LECTERN_DOCUMENT_ERROR_TOO_COMPLEX, "too-complex"),
                   G_DEFINE_ENUM_VALUE(LECTERN_DOCUMENT_ERROR_CHANGED, "changed"))

/**
 * lectern_service_error_quark:
 *
 * The domain of [error@ServiceError].
 *
 * Returns: its number
 */
GQuark lectern_service_error_quark(void) {
    return g_quark_from_static_string("lectern-service-error-quark");
}

/**
 * lectern_document_error_quark:
 *
 * The domain of [error@DocumentError].
 *
 * Returns: its number
 */
GQuark lectern_document_error_quark(void) {
    return g_quark_from_static_string("lectern-document-error-quark");
}

namespace lectern {

namespace {

LecternServiceError refusal(const std::string& name) {
    static const std::map<std::string, LecternServiceError> CODES = {
        {"errDoesNotExist", LECTERN_SERVICE_ERROR_GONE},
        {"errNotOpen", LECTERN_SERVICE_ERROR_NOT_OPEN},
        {"errWrongType", LECTERN_SERVICE_ERROR_WRONG_KIND},
        {"errOutOfRange", LECTERN_SERVICE_ERROR_OUT_OF_RANGE},
        {"errNothingThere", LECTERN_SERVICE_ERROR_NOTHING_THERE},
        {"errNotSupported", LECTERN_SERVICE_ERROR_NOT_SUPPORTED},
        {"errNotWritable", LECTERN_SERVICE_ERROR_NOT_WRITABLE},
        {"errFailed", LECTERN_SERVICE_ERROR_FAILED},
    };
    const auto found = CODES.find(name);
    return found == CODES.end() ? LECTERN_SERVICE_ERROR_REFUSED : found->second;
}

LecternDocumentError documentCode(int moduleCode) {
    switch (moduleCode) {
    case MODULE_NOT_FOUND:
        return LECTERN_DOCUMENT_ERROR_NOT_FOUND;
    case MODULE_NOT_A_FILE:
        return LECTERN_DOCUMENT_ERROR_NOT_A_FILE;
    case MODULE_NOT_READABLE:
        return LECTERN_DOCUMENT_ERROR_NOT_READABLE;
    case MODULE_DAMAGED:
        return LECTERN_DOCUMENT_ERROR_DAMAGED;
    case MODULE_WRONG_KIND:
        return LECTERN_DOCUMENT_ERROR_WRONG_KIND;
    case MODULE_NEEDS_PASSWORD:
        return LECTERN_DOCUMENT_ERROR_NEEDS_PASSWORD;
    case MODULE_WRONG_PASSWORD:
        return LECTERN_DOCUMENT_ERROR_WRONG_PASSWORD;
    case MODULE_TIMED_OUT:
        return LECTERN_DOCUMENT_ERROR_TIMED_OUT;
    case MODULE_ENGINE_LOST:
        return LECTERN_DOCUMENT_ERROR_ENGINE_LOST;
    case MODULE_NO_ENGINE:
        return LECTERN_DOCUMENT_ERROR_NO_ENGINE;
    case MODULE_NOT_SUPPORTED:
        return LECTERN_DOCUMENT_ERROR_NOT_SUPPORTED;
    case MODULE_TOO_LARGE:
        return LECTERN_DOCUMENT_ERROR_TOO_LARGE;
    case MODULE_TOO_COMPLEX:
        return LECTERN_DOCUMENT_ERROR_TOO_COMPLEX;
    case MODULE_CHANGED:
        return LECTERN_DOCUMENT_ERROR_CHANGED;
    default:
        return LECTERN_DOCUMENT_ERROR_FAILED;
    }
}

LecternServiceError serviceCode(const Error& error) {
    switch (error.kind) {
    case Error::Kind::Argument:
        return LECTERN_SERVICE_ERROR_ARGUMENT;
    case Error::Kind::System:
        return LECTERN_SERVICE_ERROR_SYSTEM;
    case Error::Kind::TimedOut:
        return LECTERN_SERVICE_ERROR_TIMED_OUT;
    case Error::Kind::Gone:
        return LECTERN_SERVICE_ERROR_GONE;
    case Error::Kind::Refused:
        return refusal(error.name);
    default:
        return LECTERN_SERVICE_ERROR_BUS;
    }
}

} // namespace

GLibHolder<GError> toGError(const Error& error) {
    const bool ofDocument = error.kind == Error::Kind::Document;
    GError* converted = nullptr;
    if (error.kind == Error::Kind::Cancelled || (ofDocument && error.code == MODULE_CANCELLED)) {
        converted = g_error_new_literal(G_IO_ERROR, G_IO_ERROR_CANCELLED, error.text.c_str());
    } else if (ofDocument) {
        converted = g_error_new_literal(LECTERN_DOCUMENT_ERROR, documentCode(error.code), error.text.c_str());
    } else {
        converted = g_error_new_literal(LECTERN_SERVICE_ERROR, serviceCode(error), error.text.c_str());
    }
    return GLibHolder<GError>(converted);
}

} // namespace lectern

// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/CallErrors.h"

#include <glib/gi18n.h>
#include <lectern-glib/lectern-error.h>

namespace lectern::viewer {

std::string explained(const GError& error) {
    if (error.domain == LECTERN_SERVICE_ERROR) {
        switch (error.code) {
        case LECTERN_SERVICE_ERROR_BUS:
            return _("The document service does not answer.");
        case LECTERN_SERVICE_ERROR_TIMED_OUT:
            return _("The document took too long to answer.");
        case LECTERN_SERVICE_ERROR_GONE:
            return _("The document service has stopped.");
        case LECTERN_SERVICE_ERROR_NOT_OPEN:
            return _("The document is still being opened.");
        case LECTERN_SERVICE_ERROR_WRONG_KIND:
        case LECTERN_SERVICE_ERROR_NOT_SUPPORTED:
            return _("This is not possible with this document.");
        case LECTERN_SERVICE_ERROR_OUT_OF_RANGE:
        case LECTERN_SERVICE_ERROR_NOTHING_THERE:
            return _("There is nothing there.");
        case LECTERN_SERVICE_ERROR_NOT_WRITABLE:
            return _("The file cannot be written.");
        case LECTERN_SERVICE_ERROR_FAILED:
            return _("The document could not do it.");
        default:
            break;
        }
    }
    return error.message;
}

} // namespace lectern::viewer

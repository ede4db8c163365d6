// SPDX-License-Identifier: Apache-2.0
#include "client/lib/Errors.h"

#include "modules/ModuleResults.h"

#include <system_error>

namespace lectern {

std::string moduleResultText(int code) {
    switch (code) {
    case MODULE_OK:
        return "nothing is wrong with it";
    case MODULE_FAILED:
        return "the rendering engine failed; set LECTERN_VERBOSE=1 and LECTERN_ENGINE_VERBOSE=1 to see its "
               "messages";
    case MODULE_NOT_FOUND:
        return "there is no such file; check the path";
    case MODULE_NOT_A_FILE:
        return "it is not a regular file; give the path of a document";
    case MODULE_NOT_READABLE:
        return "it cannot be read; check its permissions";
    case MODULE_DAMAGED:
        return "it is damaged or incomplete; try another copy";
    case MODULE_WRONG_KIND:
        return "its contents do not match its file name extension; rename it";
    case MODULE_NEEDS_PASSWORD:
        return "it needs a password; give one with --password";
    case MODULE_WRONG_PASSWORD:
        return "the password is wrong; give the right one with --password";
    case MODULE_TIMED_OUT:
        return "its layout takes too long; try a smaller document";
    case MODULE_ENGINE_LOST:
        return "the rendering engine crashed on it; try again, or try another copy";
    case MODULE_NO_ENGINE:
        return "the rendering engine cannot be started; check that LibreOffice is installed";
    case MODULE_BAD_ARGUMENT:
        return "the rendering engine received an invalid request; try another size";
    case MODULE_NOT_SUPPORTED:
        return "the rendering module does not support it";
    case MODULE_NOTHING_THERE:
        return "there is nothing in it to show";
    case MODULE_TOO_LARGE:
        return "it needs more memory than a document may take; try a smaller one";
    case MODULE_REFUSED:
        return "the document does not allow it";
    case MODULE_TOO_COMPLEX:
        return "its tables lie too deep within each other to be laid out; try a simpler copy";
    case MODULE_CANCELLED:
        return "the open was given up";
    case MODULE_CHANGED:
        return "its file has changed; open it again";
    default:
        return "the rendering module reported an unknown error";
    }
}

Error documentError(const std::string& path, DocumentKind kind, int code) {
    const bool locked = code == MODULE_NEEDS_PASSWORD || code == MODULE_WRONG_PASSWORD;
    const std::string reason = locked && kind == DocumentKind::Presentation
                                   ? "it is a presentation protected by a password, and those cannot be "
                                     "opened; save a copy without one"
                                   : moduleResultText(code);
    return {Error::Kind::Document,
            "cannot open '" + path + "': " + reason + " (code " + std::to_string(code) + ")",
            code,
            {}};
}

Error paintError(int code) {
    return {Error::Kind::Document,
            "cannot paint the document: " + moduleResultText(code) + " (code " + std::to_string(code) + ")",
            code,
            {}};
}

Error lossError(int code) {
    return {Error::Kind::Document,
            "the document is lost: " + moduleResultText(code) + " (code " + std::to_string(code) + ")",
            code,
            {}};
}

Error cancelledError() {
    return {Error::Kind::Cancelled, "interrupted", 0, {}};
}

Error refusalError(const std::string& errorCode, const std::string& errorText) {
    std::string text;
    if (errorCode == "errDocType") {
        text = "the file name does not tell the kind of document; "
               "it must end in .doc, .docx, .txt, .xls, .xlsx, .ppt or .pptx";
    } else if (errorCode == "errDoesNotExist") {
        text = "the service no longer knows the document; open it again";
    } else if (errorCode == "errWrongType") {
        text = "the document is of another kind (" + errorText + ")";
    } else if (errorCode == "errParamFailed") {
        text = "the service rejected a parameter (" + errorText + ")";
    } else {
        text = "the service refused: " + errorText;
    }
    return {Error::Kind::Refused, text + " (" + errorCode + ")", 0, errorCode};
}

Error systemError(const std::string& attempt, int errorNumber) {
    return {
        Error::Kind::System, attempt + ": " + std::generic_category().message(errorNumber), errorNumber, {}};
}

} // namespace lectern

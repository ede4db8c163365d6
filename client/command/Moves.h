// SPDX-License-Identifier: Apache-2.0
// Moves of a view as users ask for them. Sheets, slides and hits are numbered
// from 1; the error for a number that does not exist tells which ones do.
#pragma once

#include <lectern/Document.h>

#include <string>

namespace lectern {

// Returns an error unless the document is of this kind. `what` names the option
// or instruction that needs the kind.
Failure requireKind(const Document& document, DocumentKind kind, const char* what);

// REQUIRES for all functions: the document is of the right kind; otherwise the
// service refuses.
Failure goToSheet(Document& document, int number, const CallLimits& limits);
Failure goToSlide(Document& document, int number, const CallLimits& limits);

} // namespace lectern

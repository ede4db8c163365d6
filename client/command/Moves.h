// SPDX-License-Identifier: Apache-2.0
// Moves of a view as people ask for them: sheets, slides and hits are numbered
// from 1, and what a document has not is an error that says what it has.
#pragma once

#include <lectern/Document.h>

#include <string>

namespace lectern {

// An error, unless the document is of the kind that `what` is for.
Failure requireKind(const Document& document, DocumentKind kind, const char* what);

// REQUIRES for all: the document is of the kind, else the service refuses.
Failure goToSheet(Document& document, int number, const CallLimits& limits);
Failure goToSlide(Document& document, int number, const CallLimits& limits);

} // namespace lectern

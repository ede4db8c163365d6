// SPDX-License-Identifier: Apache-2.0
// Moves of a view as users ask for them. Sheets, slides and hits are numbered
// from 1; the error for a number that does not exist tells which ones do.
#pragma once

#include <lectern/Document.h>

#include <optional>
#include <string>

namespace lectern {

// Returns an error unless the document is of this kind. `what` names the option
// or instruction that needs the kind.
Failure requireKind(const Document& document, DocumentKind kind, const char* what);

// REQUIRES for all functions: the document is of the right kind; otherwise the
// service refuses.
Failure goToSheet(Document& document, int number, const CallLimits& limits);
Failure goToSlide(Document& document, int number, const CallLimits& limits);

// Marks all hits and moves the view to the first one at its place. Returns their number;
// nothing for presentations with classic manners, whose hits the service does not count.
Result<std::optional<int>> goToFirstHit(Document& document, const std::string& text,
                                        const CallLimits& limits);
// Do nothing without hits.
Failure goToNextHit(Document& document, const CallLimits& limits);
Failure goToPreviousHit(Document& document, const CallLimits& limits);

} // namespace lectern

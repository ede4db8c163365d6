// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/command/Interrupt.h"
#include <lectern/Document.h>

#include <functional>
#include <string>

namespace lectern {

// What a sub-command does with a document that is open, within these limits.
using DocumentWork = std::function<Failure(Document& document, const CallLimits& limits)>;

// Opens a document in the session's service or a private one, does the work and
// reports what goes wrong; the exit status. Shows progress while it opens, and
// starts the interrupt's watch. REQUIRES: one thread.
int withDocument(const std::string& path, OpenOptions options, Interrupt& interrupt,
                 const DocumentWork& work);

} // namespace lectern

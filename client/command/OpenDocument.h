// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/command/Interrupt.h"
#include <lectern/Document.h>

#include <functional>
#include <string>

namespace lectern {

// The work of a sub-command on an open document, within these limits.
using DocumentWork = std::function<Failure(Document& document, const CallLimits& limits)>;

// Opens a document in the session's service or in a private one, runs the work,
// reports errors, and returns the exit status. Shows progress during the open
// and starts to watch for interrupts. REQUIRES: the process has one thread.
int withDocument(const std::string& path, OpenOptions options, Interrupt& interrupt,
                 const DocumentWork& work);

} // namespace lectern
